#pragma once
// Part 2.1: the rig binding document, with its joint and animation lists; Part 2.2: its
// `.rbt` file format (Load and Save, in clsRBT_format.cpp).

#include "foundation/RecordList.h"
#include "rig/clsAnimation.h"
#include "rig/clsJoint.h"

#include <QString>

#include <memory>

class clsRBT {
public:
    // Part 2.1: the document's own fields, read and replaced freely.
    QString Name;    // name of the rig binding
    QString Model;   // full path of the compiled model (.ltb)
    QString Texture; // path of a .dtx texture; empty means none
    QString Icon;    // path of a .bmp picture; empty means none

    // Part 2.2: read `strFile` into this freshly made document; False at the first failure,
    // with the object left as far as it got.
    bool Load(const QString& strFile);
    // Part 2.2: write the document to `strFile`; False when the file cannot be written.
    // The fields and records are left unchanged.
    bool Save(const QString& strFile) const;

    // Part 2.1: the joint list. AddJoint numbers the joint by its place; DeleteJoint
    // renumbers the joints behind the removed one.
    void AddJoint(const std::shared_ptr<clsJoint>& j);
    void DeleteJoint(qint16 i);
    std::shared_ptr<clsJoint> Joints(qint16 index) const;
    qint16 NumJoints() const;

    // Part 2.1: the animation list. An animation's Id refers to the model and never changes.
    void AddAnimation(const std::shared_ptr<clsAnimation>& a);
    void DeleteAnimation(qint16 i);
    std::shared_ptr<clsAnimation> Animations(qint16 index) const;
    qint16 NumAnimations() const;

private:
    // The working document and root of Part 2.1 are locals of Load and Save: nothing reads
    // them between two calls (Part 2.2, State and lifecycle).
    RecordList<clsJoint> m_joints;
    RecordList<clsAnimation, Numbering::Kept> m_animations;
};
