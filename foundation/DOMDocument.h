#pragma once
// Part 1.2: the XML document service, standing in for MSXML's DOMDocument (design.md 1).
// Reads through QXmlStreamReader; writes with no declaration and no white space.

#include "foundation/XmlNode.h"

#include <QByteArray>
#include <QString>

#include <optional>

class DOMDocument {
public:
    // Reads and parses a file (its name matched without regard to case where it does not
    // exist as given, design 4.5). False, with no root, when the file is missing,
    // unreadable or not well-formed.
    bool load(const QString& path);
    // Parses a literal text, as `Save` does with "<rbt></rbt>".
    bool loadXML(const QString& text);

    // The root element; nullptr when the last parse failed or nothing was parsed.
    XmlNode* documentElement();
    const XmlNode* documentElement() const;

    static XmlNode createElement(const QString& name);

    // The text `save` writes: UTF-8, no byte-order mark, no declaration, no white space,
    // an element without children as `<name .../>`.
    QByteArray toByteArray() const;
    // Writes through QSaveFile, so an existing file is replaced only when the whole new
    // text is on disk. False when there is no root or the file cannot be written.
    bool save(const QString& path) const;

private:
    bool parse(const QByteArray& data);

    std::optional<XmlNode> m_root;
};
