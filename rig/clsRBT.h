// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The rig binding document, with its joint and animation lists; its `.rbt` file is read and
// written in clsRBT_format.cpp.

#include "foundation/RecordList.h"
#include "rig/clsAnimation.h"
#include "rig/clsJoint.h"

#include <QString>

#include <memory>

class QIODevice;

class clsRBT {
public:
    // The document's own fields, read and replaced freely.
    QString Name;    // name of the rig binding
    QString Model;   // full path of the compiled model (.ltb)
    QString Texture; // path of a .dtx texture; empty means none
    QString Icon;    // path of a .bmp picture; empty means none

    // Reads a `.rbt` text from `device`, its stored paths joined to `baseDir`. False at the
    // first failure, with the document as it was and `why` (where given) saying what was
    // expected and on which line.
    bool Read(QIODevice& device, const QString& baseDir, QString* why = nullptr);
    // Writes the document to `device`, its paths made relative to `baseDir`. False, with
    // nothing written, when a text holds a character a file cannot carry; `why` names the
    // record and the field.
    bool Write(QIODevice& device, const QString& baseDir, QString* why = nullptr) const;

    // The file `strFile` read and written, relative to strCurrentDir. A save replaces the
    // file whole or not at all; the fields and records are left unchanged.
    bool Load(const QString& strFile);
    bool Save(const QString& strFile, QString* why = nullptr) const;

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
