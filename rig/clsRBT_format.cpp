// Part 2.2: the `.rbt` file format, Load and Save of clsRBT, through the XML document service
// of Part 1.2 and the base-relative path rule of Part 1.1.

#include "foundation/DOMDocument.h"
#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"

#include <iterator>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Part 1.1 "Storing paths", base-relative on save: relative to strCurrentDir of this moment,
// lower case, every backslash written twice. An empty field gives an empty text.
QString StoredPath(const QString& field) {
    return mdlGeneral::DoubleBackslashes(
        mdlGeneral::MakeRelativePath(field, mdlGeneral::strCurrentDir));
}

// Part 1.1 "Storing paths", base-relative on load: each pair of backslashes made one, then
// strCurrentDir in front whatever the text holds. Design 4.3: the stored `\` become the
// native separator as the text joins a local path.
QString JoinedPath(const QString& stored) {
    return mdlGeneral::strCurrentDir +
           mdlGeneral::StoredToNative(mdlGeneral::UndoubleBackslashes(stored));
}

// Part 2.2: a requested attribute that is absent fails the load; the text is copied as it
// stands, numbers included.
bool ReadAttribute(const XmlNode& element, QStringView name, QString& field) {
    const std::optional<QString> text = element.getAttribute(name);
    if (!text)
        return false;
    field = *text;
    return true;
}

// Part 2.2 steps 5 and 6: `texture` and `icon` are joined only when present and not empty;
// otherwise the field is left alone.
void ReadOptionalPath(const XmlNode& root, QStringView name, QString& field) {
    const std::optional<QString> text = root.getAttribute(name);
    if (text && !text->isEmpty())
        field = JoinedPath(*text);
}

// Part 2.2 "Splitting vector": X in front of the first comma, Y between it and the next,
// Z all behind that, further commas included. Blanks stay. Fewer than two commas fail.
bool SplitVector(const QString& vector, clsJoint& joint) {
    const qsizetype p1 = vector.indexOf(u',');
    if (p1 < 0)
        return false;
    const qsizetype p2 = vector.indexOf(u',', p1 + 1);
    if (p2 < 0)
        return false;
    joint.VectorX = vector.left(p1);
    joint.VectorY = vector.mid(p1 + 1, p2 - p1 - 1);
    joint.VectorZ = vector.mid(p2 + 1);
    return true;
}

// Part 2.2 step 8.2: the seven attributes of a `joint`, all required, in the order of the
// table; the first one missing (or a vector with fewer than two commas) ends the read.
bool ReadJoint(const XmlNode& element, clsJoint& joint) {
    QString vector;
    return ReadAttribute(element, u"id", joint.Id) && ReadAttribute(element, u"node", joint.Node) &&
           ReadAttribute(element, u"min", joint.Min) && ReadAttribute(element, u"max", joint.Max) &&
           ReadAttribute(element, u"vector", vector) && SplitVector(vector, joint) &&
           ReadAttribute(element, u"action", joint.Action) &&
           ReadAttribute(element, u"desc", joint.Description);
}

// Part 2.2 step 8.3: `id` and `name` of an `animation`, both required. Anim stays empty.
bool ReadAnimation(const XmlNode& element, clsAnimation& animation) {
    return ReadAttribute(element, u"id", animation.Id) &&
           ReadAttribute(element, u"name", animation.Name);
}

} // namespace

bool clsRBT::Save(const QString& strFile) const {
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
                             joint->VectorX + u',' + joint->VectorY + u',' + joint->VectorZ);
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

bool clsRBT::Load(const QString& strFile) {
    // Step 1: the result of the load is not looked at; a file that cannot be read or parsed
    // has no root, which fails at the next step.
    DOMDocument objDoc;
    objDoc.load(strFile);

    // Step 2: the root's tag is not looked at.
    const XmlNode* const objRoot = objDoc.documentElement();
    if (!objRoot)
        return false;

    // Step 3: `name` is required.
    if (!ReadAttribute(*objRoot, u"name", Name))
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
    m_joints.clear();
    m_animations.clear();

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
            auto joint = std::make_shared<clsJoint>();
            if (!ReadJoint(child, *joint) || m_joints.size() >= Limits::MaxRecords)
                return false;
            m_joints.append(std::move(joint));
        } else if (child.tagName() == u"animation") {
            // 8.3
            auto animation = std::make_shared<clsAnimation>();
            if (!ReadAnimation(child, *animation) || m_animations.size() >= Limits::MaxRecords)
                return false;
            m_animations.append(std::move(animation));
        }
        // 8.4: any other tag is skipped with all that it holds.
    }

    // Steps 9 and 10: the working document and root go as this call ends.
    return true;
}
