// The `.rbt` file: Load and Save of clsRBT through the XML document service. The model,
// texture and icon are stored relative to strCurrentDir, lower case, backslashes doubled.

#include "foundation/DOMDocument.h"
#include "foundation/Triple.h"
#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"

using namespace Qt::StringLiterals;

namespace {

// Relative to strCurrentDir of this moment, lower case, every backslash written twice. An
// empty field gives an empty text.
QString StoredPath(const QString& field)
{
    return mdlGeneral::DoubleBackslashes(
        mdlGeneral::MakeRelativePath(field, mdlGeneral::strCurrentDir));
}

// Each pair of backslashes made one, then strCurrentDir in front whatever the text holds; the
// stored `\` become the native separator as the text joins a local path.
QString JoinedPath(const QString& stored)
{
    return mdlGeneral::strCurrentDir +
           mdlGeneral::StoredToNative(mdlGeneral::UndoubleBackslashes(stored));
}

// `texture` and `icon` are joined only when present and not empty; otherwise the field is
// left alone.
void ReadOptionalPath(const XmlNode& root, QStringView name, QString& field)
{
    const std::optional<QString> text = root.getAttribute(name);
    if (text && !text->isEmpty())
        field = JoinedPath(*text);
}

// A joint needs all seven attributes; a missing one, or a vector with fewer than two commas,
// fails the load. Extra commas stay in the third number. The Id stays as read.
bool ReadJoint(const XmlNode& element, RecordList<clsJoint>& joints)
{
    const auto joint = std::make_shared<clsJoint>();
    return element.readAttribute(u"id", joint->Id) && element.readAttribute(u"node", joint->Node) &&
           element.readAttribute(u"min", joint->Min) && element.readAttribute(u"max", joint->Max) &&
           element.readTriple(u"vector", joint->VectorX, joint->VectorY, joint->VectorZ) &&
           element.readAttribute(u"action", joint->Action) &&
           element.readAttribute(u"desc", joint->Description) && joints.AppendLoaded(joint);
}

// An animation needs `id` and `name`; Anim stays empty until the window looks it up.
bool ReadAnimation(const XmlNode& element, RecordList<clsAnimation, Numbering::Kept>& animations)
{
    const auto animation = std::make_shared<clsAnimation>();
    return element.readAttribute(u"id", animation->Id) &&
           element.readAttribute(u"name", animation->Name) && animations.AppendLoaded(animation);
}

} // namespace

bool clsRBT::Save(const QString& strFile) const
{
    // Every file starts from the literal root pair, so nothing of an earlier file survives.
    DOMDocument objDoc;
    objDoc.loadXML(u"<rbt></rbt>"_s);
    XmlNode objRoot = objDoc.documentElement();

    // The run-time reads the root's attributes in this order; only the three paths are
    // doubled, against strCurrentDir of this moment.
    objRoot.setAttribute(u"name"_s, Name);
    objRoot.setAttribute(u"type"_s, u"model"_s);
    objRoot.setAttribute(u"model"_s, StoredPath(Model));
    objRoot.setAttribute(u"texture"_s, StoredPath(Texture));
    objRoot.setAttribute(u"icon"_s, StoredPath(Icon));

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
    return objDoc.save(strFile);
}

bool clsRBT::Load(const QString& strFile)
{
    // A file that cannot be read or parsed has no root, which fails at once.
    DOMDocument objDoc;
    objDoc.load(strFile);
    const XmlNode objRoot = objDoc.documentElement();

    // `name` and `model` are required, `texture` and `icon` optional, `type` is not read.
    // The model is joined to strCurrentDir whatever it holds.
    QString model;
    if (objRoot.isNull() || !objRoot.readAttribute(u"name", Name) ||
        !objRoot.readAttribute(u"model", model))
        return false;
    Model = JoinedPath(model);
    ReadOptionalPath(objRoot, u"texture", Texture);
    ReadOptionalPath(objRoot, u"icon", Icon);

    // Joints and animations in any order and mix; other elements are passed over.
    m_joints.Clear();
    m_animations.Clear();
    return ReadChildElements(objRoot, [this](const XmlNode& child) {
        if (child.tagName() == u"joint")
            return ReadJoint(child, m_joints);
        if (child.tagName() == u"animation")
            return ReadAnimation(child, m_animations);
        return true;
    });
}
