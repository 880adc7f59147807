// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/XmlNode.h"

#include "foundation/DOMDocument.h"
#include "foundation/Triple.h"

XmlNode::Kind XmlNode::kind() const { return m_document->m_nodes[m_index].kind; }

const QString& XmlNode::tagName() const
{
    return m_document->m_names[m_document->m_nodes[m_index].name];
}

qint64 XmlNode::lineNumber() const { return m_document->m_nodes[m_index].line; }

QString XmlNode::kindName() const
{
    switch (kind()) {
    case Kind::Element:
        return QStringLiteral("an element <%1>").arg(tagName());
    case Kind::Text:
        return QStringLiteral("text");
    case Kind::CData:
        return QStringLiteral("a CDATA section");
    case Kind::Comment:
        return QStringLiteral("a comment");
    case Kind::ProcessingInstruction:
        return QStringLiteral("a processing instruction");
    }
    return {};
}

bool XmlNode::reject(QString* why, const QString& problem) const
{
    if (why)
        *why = QStringLiteral("line %1: %2").arg(lineNumber()).arg(problem);
    return false;
}

std::optional<QString> XmlNode::getAttribute(QStringView name) const
{
    if (const DOMDocument::Attribute* attribute = m_document->findAttribute(m_index, name))
        return m_document->sharedText(m_document->valueOf(*attribute));
    return std::nullopt;
}

bool XmlNode::readAttribute(QStringView name, QString& into, QString* why) const
{
    const DOMDocument::Attribute* attribute = m_document->findAttribute(m_index, name);
    if (!attribute)
        return reject(why, QStringLiteral("<%1> has no \"%2\"").arg(tagName(), name));
    into = m_document->sharedText(m_document->valueOf(*attribute));
    return true;
}

bool XmlNode::readTriple(QStringView name, QString& x, QString& y, QString& z, QString* why) const
{
    const DOMDocument::Attribute* attribute = m_document->findAttribute(m_index, name);
    if (!attribute)
        return reject(why, QStringLiteral("<%1> has no \"%2\"").arg(tagName(), name));
    QStringView vx, vy, vz;
    if (!SplitTriple(m_document->valueOf(*attribute), vx, vy, vz))
        return reject(why, QStringLiteral("the \"%1\" of <%2> is not three values split by "
                                          "commas")
                               .arg(name, tagName()));
    x = m_document->sharedText(vx);
    y = m_document->sharedText(vy);
    z = m_document->sharedText(vz);
    return true;
}

void XmlNode::setAttribute(const QString& name, const QString& value)
{
    DOMDocument& document = *m_document;
    const quint32 place = document.m_nodes[m_index].attributeCount;
    if (document.m_attributeHints.size() <= place)
        document.m_attributeHints.resize(place + 1, 0);
    document.addAttribute(m_index, document.nameIndex(name, document.m_attributeHints[place]),
                          value);
}

XmlNodeList XmlNode::childNodes() const
{
    const DOMDocument::Node& node = m_document->m_nodes[m_index];
    return XmlNodeList(m_document, node.firstChild, node.childCount);
}

void XmlNode::appendChild(const XmlNode& child) { m_document->link(m_index, child.m_index); }

XmlNodeList::const_iterator& XmlNodeList::const_iterator::operator++()
{
    m_index = m_document->m_nodes[m_index].nextSibling;
    return *this;
}

XmlNodeList::const_iterator XmlNodeList::end() const { return {m_document, DOMDocument::None}; }
