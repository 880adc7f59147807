// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One node of a document of the XML service: a small handle into its document's node table,
// valid while the document lives. The tree lives in flat tables of the document, so no node
// owns another and nothing is freed by recursion, however deep the input nests.

#include "foundation/Limits.h"

#include <QString>
#include <QStringView>

#include <optional>

class DOMDocument;
class XmlNodeList;

class XmlNode {
public:
    // Every kind of node that can stand among an element's children; white space between
    // elements is no node.
    enum class Kind : quint8 { Element, Text, CData, Comment, ProcessingInstruction };

    XmlNode() = default;

    bool isNull() const { return m_document == nullptr; }
    Kind kind() const;
    bool isElement() const { return !isNull() && kind() == Kind::Element; }
    // The kind in words, for a reader's message: "a comment", "text".
    QString kindName() const;

    // The element's name; for a processing instruction its target; empty for other kinds.
    const QString& tagName() const;
    // The line of the text read on which the node starts; 0 for a node made by a save.
    qint64 lineNumber() const;

    // The text, or Null (std::nullopt) when the attribute is missing; an attribute present
    // but empty gives an empty string. Names are compared exactly, with case.
    std::optional<QString> getAttribute(QStringView name) const;
    // An attribute read as plain text. False, with `into` left alone, when it is missing:
    // the Null cannot become a string. `why`, where given, then names the line and what
    // is missing.
    [[nodiscard]] bool readAttribute(QStringView name, QString& into, QString* why = nullptr) const;
    // A coordinate triple read from one attribute into its three texts. False, with the three
    // left alone, when the attribute is missing or holds fewer than two commas.
    [[nodiscard]] bool readTriple(QStringView name, QString& x, QString& y, QString& z,
                                  QString* why = nullptr) const;
    // False, with `why` (where given) saying `problem` on the node's line: how a reader
    // refuses what it found here.
    bool reject(QString* why, const QString& problem) const;

    // Adds the attribute behind those already set; the file keeps this order. Each save sets
    // a name once, so nothing is searched.
    void setAttribute(const QString& name, const QString& value);

    XmlNodeList childNodes() const;
    // Adds `child`, made by createElement of the same document, behind the others.
    void appendChild(const XmlNode& child);

private:
    friend class DOMDocument;
    friend class XmlNodeList;
    XmlNode(DOMDocument* document, quint32 index) : m_document(document), m_index(index) {}

    DOMDocument* m_document = nullptr;
    quint32 m_index = 0;
};

// The direct children of a node, in document order: a count and a forward walk.
class XmlNodeList {
public:
    class const_iterator {
    public:
        XmlNode operator*() const { return XmlNode(m_document, m_index); }
        const_iterator& operator++();
        bool operator!=(const const_iterator& other) const { return m_index != other.m_index; }

    private:
        friend class XmlNodeList;
        const_iterator(DOMDocument* document, quint32 index) : m_document(document), m_index(index)
        {
        }
        DOMDocument* m_document;
        quint32 m_index;
    };

    qsizetype length() const { return m_length; }
    const_iterator begin() const { return {m_document, m_first}; }
    const_iterator end() const;

private:
    friend class XmlNode;
    XmlNodeList(DOMDocument* document, quint32 first, qsizetype length)
        : m_document(document), m_first(first), m_length(length)
    {
    }
    DOMDocument* m_document;
    quint32 m_first;
    qsizetype m_length;
};

// The value of an optional attribute, empty when it is absent.
inline QString NullToEmpty(const std::optional<QString>& value)
{
    return value.value_or(QString());
}

// How every format reads the children of its root: more than MaxChildNodes of them, or one
// that is no element (a comment, text, CDATA or processing instruction), fails the read before
// or where it stands; each element goes to `readChild`, which passes over tags it does not know
// and gives False to fail the read, having said why.
template <class ReadChild>
[[nodiscard]] bool ReadChildElements(const XmlNode& root, QString* why, ReadChild&& readChild)
{
    const XmlNodeList children = root.childNodes();
    if (children.length() > Limits::MaxChildNodes)
        return root.reject(why, QStringLiteral("more than %1 records").arg(Limits::MaxChildNodes));
    for (const XmlNode child : children) {
        if (!child.isElement())
            return child.reject(why, QStringLiteral("%1 among the records").arg(child.kindName()));
        if (!readChild(child))
            return false;
    }
    return true;
}

// Appends a record read from `element` to its list; a full list fails the read there.
template <class List, class Pointer>
[[nodiscard]] bool AppendRead(List& list, const Pointer& record, const XmlNode& element,
                              QString* why)
{
    return list.AppendLoaded(record) ||
           element.reject(why, QStringLiteral("more than %1 <%2> records")
                                   .arg(Limits::MaxRecords)
                                   .arg(element.tagName()));
}
