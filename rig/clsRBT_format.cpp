// SPDX-License-Identifier: GPL-3.0-or-later
// The `.rbt` file: the document read from and written to a device through the XML document
// service. The model, texture and icon are stored relative to the base folder, lower case,
// backslashes doubled.

#include "foundation/DOMDocument.h"
#include "foundation/FileAccess.h"
#include "foundation/Triple.h"
#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// Relative to the base folder, lower case, every backslash written twice. An empty field
// gives an empty text.
QString StoredPath(const QString& field, const QString& baseDir)
{
    return mdlGeneral::DoubleBackslashes(mdlGeneral::MakeRelativePath(field, baseDir));
}

// Each pair of backslashes made one, then the base folder in front whatever the text holds;
// the stored `\` become the native separator as the text joins a local path.
QString JoinedPath(const QString& stored, const QString& baseDir)
{
    return baseDir + mdlGeneral::StoredToNative(mdlGeneral::UndoubleBackslashes(stored));
}

// `texture` and `icon` are joined only when present and not empty; otherwise the field is
// left alone.
void ReadOptionalPath(const XmlNode& root, QStringView name, const QString& baseDir, QString& field)
{
    const std::optional<QString> text = root.getAttribute(name);
    if (text && !text->isEmpty())
        field = JoinedPath(*text, baseDir);
}

// A joint needs all seven attributes; a missing one, or a vector with fewer than two commas,
// fails the read. Extra commas stay in the third number. The Id stays as read.
bool ReadJoint(const XmlNode& element, RecordList<clsJoint>& joints, QString* why)
{
    const auto joint = std::make_shared<clsJoint>();
    return element.readAttribute(u"id", joint->Id, why) &&
           element.readAttribute(u"node", joint->Node, why) &&
           element.readAttribute(u"min", joint->Min, why) &&
           element.readAttribute(u"max", joint->Max, why) &&
           element.readTriple(u"vector", joint->VectorX, joint->VectorY, joint->VectorZ, why) &&
           element.readAttribute(u"action", joint->Action, why) &&
           element.readAttribute(u"desc", joint->Description, why) &&
           AppendRead(joints, joint, element, why);
}

// An animation needs `id` and `name`; Anim stays empty until the window looks it up.
bool ReadAnimation(const XmlNode& element, RecordList<clsAnimation, Numbering::Kept>& animations,
                   QString* why)
{
    const auto animation = std::make_shared<clsAnimation>();
    return element.readAttribute(u"id", animation->Id, why) &&
           element.readAttribute(u"name", animation->Name, why) &&
           AppendRead(animations, animation, element, why);
}

} // namespace

bool clsRBT::Read(QIODevice& device, const QString& baseDir, QString* why)
{
    // A text that cannot be parsed has no root, which fails at once.
    DOMDocument objDoc;
    if (!objDoc.read(device, why))
        return false;
    const XmlNode objRoot = objDoc.documentElement();

    // Read into a document of its own, which replaces this one only when the whole file was
    // read: a failed read leaves no half-filled document.
    clsRBT read;
    // `name` and `model` are required, `texture` and `icon` optional, `type` is not read.
    // The model is joined to the base folder whatever it holds.
    QString model;
    if (!objRoot.readAttribute(u"name", read.Name, why) ||
        !objRoot.readAttribute(u"model", model, why))
        return false;
    read.Model = JoinedPath(model, baseDir);
    ReadOptionalPath(objRoot, u"texture", baseDir, read.Texture);
    ReadOptionalPath(objRoot, u"icon", baseDir, read.Icon);

    // Joints and animations in any order and mix; other elements are passed over.
    const bool whole = ReadChildElements(objRoot, why, [&](const XmlNode& child) {
        if (child.tagName() == u"joint")
            return ReadJoint(child, read.m_joints, why);
        if (child.tagName() == u"animation")
            return ReadAnimation(child, read.m_animations, why);
        return true;
    });
    if (whole)
        *this = std::move(read);
    return whole;
}

bool clsRBT::Write(QIODevice& device, const QString& baseDir, QString* why) const
{
    // Every file starts from the literal root pair, so nothing of an earlier file survives.
    DOMDocument objDoc;
    objDoc.loadXML(u"<rbt></rbt>"_s);
    XmlNode objRoot = objDoc.documentElement();

    // The run-time reads the root's attributes in this order; only the three paths are
    // doubled, against the base folder.
    objRoot.setAttribute(u"name"_s, Name);
    objRoot.setAttribute(u"type"_s, u"model"_s);
    objRoot.setAttribute(u"model"_s, StoredPath(Model, baseDir));
    objRoot.setAttribute(u"texture"_s, StoredPath(Texture, baseDir));
    objRoot.setAttribute(u"icon"_s, StoredPath(Icon, baseDir));

    // All joints, then all animations, each in list order. Anim is not stored.
    for (const std::shared_ptr<clsJoint>& joint : m_joints) {
        XmlNode element = objDoc.createElement(u"joint"_s);
        element.setAttribute(u"id"_s, joint->Id);
        element.setAttribute(u"node"_s, joint->Node);
        element.setAttribute(u"min"_s, joint->Min);
        element.setAttribute(u"max"_s, joint->Max);
        element.setAttribute(u"vector"_s,
                             JoinTriple(joint->VectorX, joint->VectorY, joint->VectorZ));
        element.setAttribute(u"action"_s, joint->Action);
        element.setAttribute(u"desc"_s, joint->Description);
        objRoot.appendChild(element);
    }
    for (const std::shared_ptr<clsAnimation>& animation : m_animations) {
        XmlNode element = objDoc.createElement(u"animation"_s);
        element.setAttribute(u"id"_s, animation->Id);
        element.setAttribute(u"name"_s, animation->Name);
        objRoot.appendChild(element);
    }
    return objDoc.write(device, why);
}

bool clsRBT::Load(const QString& strFile)
{
    QFile file;
    return FileAccess::OpenForReading(file, strFile) && Read(file, mdlGeneral::strCurrentDir);
}

bool clsRBT::Save(const QString& strFile, QString* why) const
{
    // The paths are made relative to the base folder of this moment.
    return FileAccess::SaveWhole(
        strFile, [&](QIODevice& file) { return Write(file, mdlGeneral::strCurrentDir, why); }, why);
}
