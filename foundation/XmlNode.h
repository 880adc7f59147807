#pragma once
// Part 1.2: one node of the small tree of the XML document service. It keeps attribute
// order and every kind of child node that can stand among a root's children.

#include <QList>
#include <QString>

#include <optional>
#include <vector>

struct XmlAttribute {
    QString name;
    QString value;
};

class XmlNode {
public:
    enum class Kind { Element, Text, CData, Comment, ProcessingInstruction };

    XmlNode(Kind kind, QString nameOrTarget, QString text = {});

    Kind kind() const { return m_kind; }
    bool isElement() const { return m_kind == Kind::Element; }

    // The element's name; for a processing instruction its target.
    const QString& tagName() const { return m_name; }
    // The content of a text, CDATA, comment or processing instruction node.
    const QString& text() const { return m_text; }

    // Part 1.2: the text, or Null (std::nullopt) when the attribute is missing; an
    // attribute present but empty gives an empty string.
    std::optional<QString> getAttribute(QStringView name) const;
    // Part 1.2: an attribute read as plain text. False, with `into` left alone, when it is
    // missing: the Null cannot become a string.
    [[nodiscard]] bool readAttribute(QStringView name, QString& into) const;
    // Adds the attribute behind those already set; a second set of one name replaces
    // its value in place.
    void setAttribute(const QString& name, const QString& value);
    const QList<XmlAttribute>& attributes() const { return m_attributes; }

    const std::vector<XmlNode>& childNodes() const { return m_children; }
    XmlNode& appendChild(XmlNode child);

private:
    Kind m_kind;
    QString m_name;
    QString m_text;
    QList<XmlAttribute> m_attributes;
    std::vector<XmlNode> m_children;
};
