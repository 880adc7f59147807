// Part 2.2: the `.rbt` file format, Load and Save of clsRBT, through the XML document service
// of Part 1.2 and the base-relative path rule of Part 1.1.

#include "foundation/DOMDocument.h"
#include "foundation/Limits.h"
#include "foundation/Triple.h"
#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"

#include <iterator>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Part 1.1 "Storing paths", base-relative on save: relative to strCurrentDir of this moment,
// lower case, every backslash written twice. An empty field gives an empty text.
QString StoredPath(const QString& field)
{
    return mdlGeneral::DoubleBackslashes(
        mdlGeneral::MakeRelativePath(field, mdlGeneral::strCurrentDir));
}

// Part 1.1 "Storing paths", base-relative on load: each pair of backslashes made one, then
// strCurrentDir in front whatever the text holds. Design 4.3: the stored `\` become the
// native separator as the text joins a local path.
QString JoinedPath(const QString& stored)
{
    return mdlGeneral::strCurrentDir +
           mdlGeneral::StoredToNative(mdlGeneral::UndoubleBackslashes(stored));
}

// Part 2.2 steps 5 and 6: `texture` and `icon` are joined only when present and not empty;
// otherwise the field is left alone.
void ReadOptionalPath(const XmlNode& root, QStringView name, QString& field)
{
    const std::optional<QString> text = root.getAttribute(name);
    if (text && !text->isEmpty())
        field = JoinedPath(*text);
}

// Part 2.2 step 8.2: the seven attributes of a `joint`, all required, in the order of the
// table; the first one missing, or a vector with fewer than two commas ("Splitting vector"),
// ends the read. Blanks stay, and further commas go to VectorZ.
bool ReadJoint(const XmlNode& element, clsJoint& joint)
{
    QString vector;
    return element.readAttribute(u"id", joint.Id) && element.readAttribute(u"node", joint.Node) &&
           element.readAttribute(u"min", joint.Min) && element.readAttribute(u"max", joint.Max) &&
           element.readAttribute(u"vector", vector) &&
           SplitTriple(vector, joint.VectorX, joint.VectorY, joint.VectorZ) &&
           element.readAttribute(u"action", joint.Action) &&
           element.readAttribute(u"desc", joint.Description);
}

// Part 2.2 step 8.3: `id` and `name` of an `animation`, both required. Anim stays empty.
bool ReadAnimation(const XmlNode& element, clsAnimation& animation)
{
    return element.readAttribute(u"id", animation.Id) &&
           element.readAttribute(u"name", animation.Name);
}

} // namespace

bool clsRBT::Save(const QString& strFile) const
{
    // Step 1: every file starts from the literal root pair, so nothing of an earlier file
    // survives.
    DOMDocument objDoc;
    objDoc.loadXML(u"<rbt></rbt>"_s);
    XmlNode* const objRoot = objDoc.documentElement();
    if (!objRoot)
        return false;

    // Step 2: the root's five attributes in the order of the table; the paths against
    // strCurrentDir of this moment. Only these three are doubled.
    objRoot->setAttribute(u"name"_s, Name);
    objRoot->setAttribute(u"type"_s, u"model"_s);
    objRoot->setAttribute(u"model"_s, StoredPath(Model));
    objRoot->setAttribute(u"texture"_s, StoredPath(Texture));
    objRoot->setAttribute(u"icon"_s, StoredPath(Icon));

    // Step 3: all joints in list order, their seven attributes in the order of the table.
    for (const std::shared_ptr<clsJoint>& joint : m_joints) {
        XmlNode element = DOMDocument::createElement(u"joint"_s);
        element.setAttribute(u"id"_s, joint->Id);
        element.setAttribute(u"node"_s, joint->Node);
        element.setAttribute(u"min"_s, joint->Min);
        element.setAttribute(u"max"_s, joint->Max);
        element.setAttribute(u"vector"_s,
                             JoinTriple(joint->VectorX, joint->VectorY, joint->VectorZ));
        element.setAttribute(u"action"_s, joint->Action);
        element.setAttribute(u"desc"_s, joint->Description);
        objRoot->appendChild(std::move(element));
    }

    // Step 4: then all animations in list order. Anim is not stored.
    for (const std::shared_ptr<clsAnimation>& animation : m_animations) {
        XmlNode element = DOMDocument::createElement(u"animation"_s);
        element.setAttribute(u"id"_s, animation->Id);
        element.setAttribute(u"name"_s, animation->Name);
        objRoot->appendChild(std::move(element));
    }

    // Step 5: the one step that touches the file (atomic, design 5).
    if (!objDoc.save(strFile))
        return false;

    // Step 6.
    return true;
}

bool clsRBT::Load(const QString& strFile)
{
    // Step 1: the result of the load is not looked at; a file that cannot be read or parsed
    // has no root, which fails at the next step.
    DOMDocument objDoc;
    objDoc.load(strFile);

    // Step 2: the root's tag is not looked at.
    const XmlNode* const objRoot = objDoc.documentElement();
    if (!objRoot)
        return false;

    // Step 3: `name` is required.
    if (!objRoot->readAttribute(u"name", Name))
        return false;

    // Step 4: `model` is required and always joined to strCurrentDir.
    const std::optional<QString> model = objRoot->getAttribute(u"model");
    if (!model)
        return false;
    Model = JoinedPath(*model);

    // Steps 5 and 6: `texture` and `icon` are optional. The `type` is not read.
    ReadOptionalPath(*objRoot, u"texture", Texture);
    ReadOptionalPath(*objRoot, u"icon", Icon);

    // Step 7: both record lists start empty.
    m_joints.Clear();
    m_animations.Clear();

    // Step 8: every child of the root, all kinds of node counted. Design 5: the count is a
    // 16-bit value, so a root with more child nodes fails.
    const std::vector<XmlNode>& children = objRoot->childNodes();
    if (std::ssize(children) > Limits::MaxChildNodes)
        return false;
    for (const XmlNode& child : children) {
        // 8.1: a comment, text, CDATA or processing instruction fails the load.
        if (!child.isElement())
            return false;

        if (child.tagName() == u"joint") {
            // 8.2: AddJoint is not used, so the Id stays as read. Design 5: no list
            // passes 32767 records.
            const auto joint = std::make_shared<clsJoint>();
            if (!ReadJoint(child, *joint) || !m_joints.AppendLoaded(joint))
                return false;
        } else if (child.tagName() == u"animation") {
            // 8.3
            const auto animation = std::make_shared<clsAnimation>();
            if (!ReadAnimation(child, *animation) || !m_animations.AppendLoaded(animation))
                return false;
        }
        // 8.4: any other tag is skipped with all that it holds.
    }

    // Steps 9 and 10: the working document and root go as this call ends.
    return true;
}
