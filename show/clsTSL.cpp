#include "show/clsTSL.h"

#include "foundation/DOMDocument.h"
#include "foundation/Limits.h"
#include "foundation/XmlNode.h"
#include "foundation/mdlGeneral.h"

#include <cstddef>
#include <utility>
#include <vector>

// --- the document: Part 4.1 Interfaces and Algorithms ---

// AddScene numbers the scene by the count before it and keeps the very object; DeleteScene
// renumbers those behind, those in front keep their Id. RecordList holds the steps.
void clsTSL::AddScene(const std::shared_ptr<clsScene>& scene) { m_scenes.Add(scene); }
void clsTSL::DeleteScene(qint16 i) { m_scenes.Delete(i); }
std::shared_ptr<clsScene> clsTSL::Scenes(qint16 index) const { return m_scenes.At(index); }
qint16 clsTSL::NumScenes() const { return m_scenes.Count(); }

QString clsTSL::NullToEmpty(const std::optional<QString>& value)
{
    return value.value_or(QString());
}

// --- the `.tsl` file: Part 4.1 Load and Save, over the document service of Part 1.2 ---

bool clsTSL::Load(const QString& strFile)
{
    // Step 1: a missing or not well-formed file has no root, and the load fails there.
    DOMDocument doc;
    doc.load(strFile); // Part 1.2: its result is not looked at; the root tells
    const XmlNode* const root = doc.documentElement();
    if (root == nullptr)
        return false;
    // The root's name plays no part (Part 1.2).

    // Step 2: `title` is read as plain text, so a missing one fails the load.
    if (!root->readAttribute(u"title", Title))
        return false;

    // Step 3: `mainworld` is the only attribute read through NullToEmpty; a world reference
    // keeps its backslashes as they stand (Part 1.1).
    MainWorld = NullToEmpty(root->getAttribute(u"mainworld"));

    // Step 4.
    m_scenes.Clear();

    // Step 5. The count of the root's children is 16-bit (design 5): more fails every load.
    const std::vector<XmlNode>& children = root->childNodes();
    if (children.size() > static_cast<std::size_t>(Limits::MaxChildNodes))
        return false;
    for (const XmlNode& child : children) {
        // Taking a comment, text, CDATA or processing instruction as an element fails
        // (Part 1.2); white space between elements is no child at all.
        if (!child.isElement())
            return false;
        // Exactly "scene", with case; any other element is passed over.
        if (child.tagName() != u"scene")
            continue;

        // id, name and ssf are read as plain text: each missing one fails the load.
        const auto scene = std::make_shared<clsScene>();
        if (!child.readAttribute(u"id", scene->Id) || !child.readAttribute(u"name", scene->Name) ||
            !child.readAttribute(u"ssf", scene->SSF))
            return false;
        // Part 1.1, resource-relative: each pair made one; a lone backslash stays.
        scene->SSF = mdlGeneral::UndoubleBackslashes(scene->SSF);

        // Appended as read, without renumbering: Ids from the file stay as they are. Design 5:
        // a list that would pass 32767 records fails the load.
        if (!m_scenes.AppendLoaded(scene))
            return false;
    }

    // Step 6.
    return true;
}

bool clsTSL::Save(const QString& strFile) const
{
    // Step 1: a new tree from the literal root pair, so the root is always `play`.
    DOMDocument doc;
    doc.loadXML(QStringLiteral("<play></play>")); // Part 1.2: the result is not looked at
    XmlNode* const root = doc.documentElement();
    if (root == nullptr)
        return false;

    // Step 2: both unchanged; `mainworld` keeps single backslashes (Part 1.1).
    root->setAttribute(QStringLiteral("title"), Title);
    root->setAttribute(QStringLiteral("mainworld"), MainWorld);

    // Step 3: in list order, attributes in the order id, name, ssf.
    for (const std::shared_ptr<clsScene>& scene : m_scenes) {
        XmlNode element = DOMDocument::createElement(QStringLiteral("scene"));
        element.setAttribute(QStringLiteral("id"), scene->Id);
        element.setAttribute(QStringLiteral("name"), scene->Name);
        // Part 1.1, resource-relative: every backslash doubled, nothing else.
        element.setAttribute(QStringLiteral("ssf"), mdlGeneral::DoubleBackslashes(scene->SSF));
        root->appendChild(std::move(element));
    }

    // Steps 4 and 5: nothing reaches the file before this; the save is atomic (design 5).
    return doc.save(strFile);
}
