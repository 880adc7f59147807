// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The XML document service of the three formats: reads through Qt's QXmlStreamReader into flat
// tables, writes UTF-8 with no declaration and no white space between elements.

#include "foundation/XmlNode.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QIODevice;
class QXmlStreamReader;

class DOMDocument {
public:
    DOMDocument();
    ~DOMDocument();
    DOMDocument(const DOMDocument&) = delete;
    DOMDocument& operator=(const DOMDocument&) = delete;

    // Reads and parses the text of `device`. False, with no root, when it is not well-formed;
    // `why`, where given, then says what was wrong and on which line.
    bool read(QIODevice& device, QString* why = nullptr);
    // Parses a literal text, as a save does with its root pair.
    bool loadXML(const QString& text);

    // The root element; a null node when the last parse failed or nothing was parsed.
    XmlNode documentElement();

    // A new element of this document, not yet in the tree.
    XmlNode createElement(const QString& name);

    // The text `write` writes: UTF-8, no byte-order mark, no declaration, no white space, an
    // element without children as `<name .../>`. Nothing when there is no root or a text
    // holds a character XML 1.0 cannot carry (a control character other than tab, line feed
    // and carriage return, U+FFFE, U+FFFF, an unpaired surrogate): such a file would not load.
    // `why`, where given, then names the element, by its tag and `id`, and the attribute.
    std::optional<QByteArray> toByteArray(QString* why = nullptr) const;
    // Writes that text to `device`; nothing at all when it cannot be made.
    bool write(QIODevice& device, QString* why = nullptr) const;

private:
    friend class XmlNode;
    friend class XmlNodeList;

    static constexpr quint32 None = 0xffffffffu;

    struct Node {
        quint32 name = 0; // index into m_names
        quint32 firstAttribute = 0;
        quint32 attributeCount = 0;
        quint32 firstChild = None;
        quint32 lastChild = None;
        quint32 nextSibling = None;
        quint32 childCount = 0;
        quint32 line = 0; // where it starts in the text read; 0 for a node made by a save
        XmlNode::Kind kind = XmlNode::Kind::Element;
    };
    // An attribute's value is a piece of m_texts: no string is made for it until a document
    // reads it into a field.
    struct Attribute {
        quint32 name; // index into m_names
        quint32 offset;
        quint32 length;
    };

    void clear();
    bool parse(QXmlStreamReader& reader, QString* why);
    // Why an attribute value cannot be written: the element, the attribute and the character.
    QString uncarriable(quint32 element, const Attribute& attribute, char16_t bad) const;
    quint32 addNode(XmlNode::Kind kind, quint32 name, qint64 line = 0);
    void link(quint32 parent, quint32 child);
    // The index of a tag or attribute name, tried first against the name last seen at the
    // same place, so the repeated elements of a file cost no search.
    quint32 nameIndex(QStringView name, quint32& hint);
    void addAttribute(quint32 node, quint32 name, QStringView value);
    QStringView valueOf(const Attribute& attribute) const;
    const Attribute* findAttribute(quint32 node, QStringView name) const;
    // A short text shared with an equal one met before, so the many repeated values of a file
    // ("0.0", "rotate") take no memory of their own.
    QString sharedText(QStringView text);

    std::vector<Node> m_nodes;
    std::vector<Attribute> m_attributes;
    std::vector<char16_t> m_texts; // the attribute values, one behind the other
    std::vector<QString> m_names;
    QHash<QStringView, quint32> m_nameIndices; // views of m_names' texts
    std::vector<quint32> m_attributeHints;     // by the attribute's place in its element
    quint32 m_tagHint = 0;
    std::unique_ptr<QString[]> m_sharedTexts;
    quint32 m_root = None;
};
