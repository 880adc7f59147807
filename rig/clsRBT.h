#pragma once
// The rig binding document, with its joint and animation lists; its `.rbt` file is read and
// written in clsRBT_format.cpp.

#include "foundation/RecordList.h"
#include "rig/clsAnimation.h"
#include "rig/clsJoint.h"

#include <QString>

#include <memory>

class clsRBT {
public:
    // The document's own fields, read and replaced freely.
    QString Name;    // name of the rig binding
    QString Model;   // full path of the compiled model (.ltb)
    QString Texture; // path of a .dtx texture; empty means none
    QString Icon;    // path of a .bmp picture; empty means none

    // Reads `strFile` into this freshly made document; False at the first failure,
    // with the object left as far as it got.
    bool Load(const QString& strFile);
    // Writes the document to `strFile`; False when the file cannot be written.
    // The fields and records are left unchanged.
    bool Save(const QString& strFile) const;

    // The joint list. AddJoint numbers the joint by its place; DeleteJoint
    // renumbers the joints behind the removed one.
    void AddJoint(const std::shared_ptr<clsJoint>& j);
    void DeleteJoint(qint16 i);
    std::shared_ptr<clsJoint> Joints(qint16 index) const;
    qint16 NumJoints() const;

    // The animation list. An animation's Id refers to the model and never changes.
    void AddAnimation(const std::shared_ptr<clsAnimation>& a);
    void DeleteAnimation(qint16 i);
    std::shared_ptr<clsAnimation> Animations(qint16 index) const;
    qint16 NumAnimations() const;

private:
    // The XML document is a local of Load and Save: nothing reads it between two calls.
    RecordList<clsJoint> m_joints;
    RecordList<clsAnimation, Numbering::Kept> m_animations;
};
