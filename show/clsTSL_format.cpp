// SPDX-License-Identifier: GPL-3.0-or-later
// The `.tsl` file: the listing read from and written to a device through the XML document
// service. A scene's `ssf` has its backslashes doubled in the file; `mainworld` keeps them
// single.

#include "show/clsTSL.h"

#include "foundation/DOMDocument.h"
#include "foundation/FileAccess.h"
#include "foundation/mdlGeneral.h"

#include <QFile>

using namespace Qt::StringLiterals;


namespace {

// A scene needs `id`, `name` and `ssf`; the `ssf` path has each pair of backslashes made one,
// a lone backslash stays. The Id stays as the file has it.
bool ReadScene(const XmlNode& element, RecordList<clsScene>& scenes, QString* why)
{
    const auto scene = std::make_shared<clsScene>();
    if (!element.readAttribute(u"id", scene->Id, why) ||
        !element.readAttribute(u"name", scene->Name, why) ||
        !element.readAttribute(u"ssf", scene->SSF, why))
        return false;
    scene->SSF = mdlGeneral::UndoubleBackslashes(scene->SSF);
    return AppendRead(scenes, scene, element, why);
}

} // namespace

bool clsTSL::Read(QIODevice& device, QString* why)
{
    // An ill-formed text has no root, which fails at once; the root's name plays no part.
    // `title` is required; `mainworld` alone reads empty when absent and keeps its backslashes
    // as they stand.
    DOMDocument doc;
    if (!doc.read(device, why))
        return false;
    const XmlNode root = doc.documentElement();
    // A listing of its own replaces this one only when the whole file was read.
    clsTSL read;
    if (!root.readAttribute(u"title", read.Title, why))
        return false;
    read.MainWorld = NullToEmpty(root.getAttribute(u"mainworld"));

    // Exactly "scene", with case; any other element is passed over.
    const bool whole = ReadChildElements(root, why, [&](const XmlNode& child) {
        return child.tagName() != u"scene" || ReadScene(child, read.m_scenes, why);
    });
    if (whole)
        *this = std::move(read);
    return whole;
}

bool clsTSL::Write(QIODevice& device, QString* why) const
{
    // A new tree from the literal root pair, so the root is always `play`; nothing reaches
    // the file before the whole text is written.
    DOMDocument doc;
    doc.loadXML(u"<play></play>"_s);
    XmlNode root = doc.documentElement();
    root.setAttribute(u"title"_s, Title);
    root.setAttribute(u"mainworld"_s, MainWorld);
    for (const std::shared_ptr<clsScene>& scene : m_scenes) {
        XmlNode element = doc.createElement(u"scene"_s);
        element.setAttribute(u"id"_s, scene->Id);
        element.setAttribute(u"name"_s, scene->Name);
        element.setAttribute(u"ssf"_s, mdlGeneral::DoubleBackslashes(scene->SSF));
        root.appendChild(element);
    }
    return doc.write(device, why);
}

bool clsTSL::Load(const QString& strFile)
{
    QFile file;
    return FileAccess::OpenForReading(file, strFile) && Read(file);
}

bool clsTSL::Save(const QString& strFile, QString* why) const
{
    return FileAccess::SaveWhole(
        strFile, [&](QIODevice& file) { return Write(file, why); }, why);
}
