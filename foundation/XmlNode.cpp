#include "foundation/XmlNode.h"

#include <utility>

XmlNode::XmlNode(Kind kind, QString nameOrTarget, QString text)
    : m_kind(kind), m_name(std::move(nameOrTarget)), m_text(std::move(text))
{
}

std::optional<QString> XmlNode::getAttribute(QStringView name) const
{
    for (const XmlAttribute& attribute : m_attributes) {
        if (attribute.name == name)
            return attribute.value;
    }
    return std::nullopt;
}

bool XmlNode::readAttribute(QStringView name, QString& into) const
{
    std::optional<QString> value = getAttribute(name);
    if (!value)
        return false;
    into = std::move(*value);
    return true;
}

void XmlNode::setAttribute(const QString& name, const QString& value)
{
    for (XmlAttribute& attribute : m_attributes) {
        if (attribute.name == name) {
            attribute.value = value;
            return;
        }
    }
    if (m_attributes.isEmpty())
        m_attributes.reserve(8); // the formats' elements have up to seven
    m_attributes.append({name, value});
}

XmlNode& XmlNode::appendChild(XmlNode child) { return m_children.emplace_back(std::move(child)); }
