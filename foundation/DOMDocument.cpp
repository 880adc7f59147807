#include "foundation/DOMDocument.h"

#include "foundation/mdlGeneral.h"

#include <QFile>
#include <QSaveFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <vector>

namespace {

// Design 5: the child kinds that can stand among a root's children; white space between
// elements is no child.
std::optional<XmlNode> contentNode(const QXmlStreamReader& reader)
{
    using Kind = XmlNode::Kind;
    switch (reader.tokenType()) {
    case QXmlStreamReader::Characters:
        if (reader.isCDATA())
            return XmlNode(Kind::CData, {}, reader.text().toString());
        if (reader.isWhitespace())
            return std::nullopt;
        return XmlNode(Kind::Text, {}, reader.text().toString());
    case QXmlStreamReader::Comment:
        return XmlNode(Kind::Comment, {}, reader.text().toString());
    case QXmlStreamReader::ProcessingInstruction:
        return XmlNode(Kind::ProcessingInstruction, reader.processingInstructionTarget().toString(),
                       reader.processingInstructionData().toString());
    default:
        return std::nullopt;
    }
}

// Design 5: `&`, `<`, `>`, `"` and control characters escaped. Our own, because Qt 6.4's
// QXmlStreamWriter drops a whole attribute value that holds a control character.
bool needsEscape(QChar c)
{
    return c.unicode() < 0x20 || c == u'&' || c == u'<' || c == u'>' || c == u'"';
}

void appendEscaped(QString& out, const QString& text)
{
    // Most texts need nothing: they go across whole.
    if (std::none_of(text.begin(), text.end(), needsEscape)) {
        out += text;
        return;
    }
    for (const QChar c : text) {
        switch (c.unicode()) {
        case u'&':
            out += u"&amp;";
            break;
        case u'<':
            out += u"&lt;";
            break;
        case u'>':
            out += u"&gt;";
            break;
        case u'"':
            out += u"&quot;";
            break;
        default:
            if (c.unicode() < 0x20)
                out += QStringLiteral("&#%1;").arg(c.unicode());
            else
                out += c;
        }
    }
}

void writeNode(QString& out, const XmlNode& node)
{
    using Kind = XmlNode::Kind;
    switch (node.kind()) {
    case Kind::Element:
        out += u'<';
        out += node.tagName();
        for (const XmlAttribute& attribute : node.attributes()) {
            out += u' ';
            out += attribute.name;
            out += u"=\"";
            appendEscaped(out, attribute.value);
            out += u'"';
        }
        if (node.childNodes().empty()) {
            out += u"/>";
            break;
        }
        out += u'>';
        for (const XmlNode& child : node.childNodes())
            writeNode(out, child);
        out += u"</";
        out += node.tagName();
        out += u'>';
        break;
    case Kind::Text:
        appendEscaped(out, node.text());
        break;
    case Kind::CData:
        out += u"<![CDATA[";
        out += node.text();
        out += u"]]>";
        break;
    case Kind::Comment:
        out += u"<!--";
        out += node.text();
        out += u"-->";
        break;
    case Kind::ProcessingInstruction:
        out += u"<?";
        out += node.tagName();
        out += u' ';
        out += node.text();
        out += u"?>";
        break;
    }
}

} // namespace

bool DOMDocument::load(const QString& path)
{
    m_root.reset();
    QFile file(mdlGeneral::ResolveFileCase(path));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return parse(file.readAll());
}

bool DOMDocument::loadXML(const QString& text)
{
    m_root.reset();
    return parse(text.toUtf8());
}

bool DOMDocument::parse(const QByteArray& data)
{
    QXmlStreamReader reader(data);
    // Names stay as written: a prefix is part of the tag, `xmlns` an attribute like another.
    reader.setNamespaceProcessing(false);

    // Tag and attribute names repeat from element to element: one shared copy of each of
    // the first few, so a file of many odd names costs no quadratic search.
    std::vector<QString> names;
    const auto intern = [&names](QStringView name) {
        for (const QString& known : names) {
            if (known == name)
                return known;
        }
        if (names.size() < 64)
            names.push_back(name.toString());
        return name.toString();
    };

    // Open elements, innermost last; a finished one moves into its parent.
    std::vector<XmlNode> open;
    std::optional<XmlNode> root;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            XmlNode element(XmlNode::Kind::Element, intern(reader.qualifiedName()));
            // A const copy: iterating the temporary would detach it from the reader's own.
            const QXmlStreamAttributes attributes = reader.attributes();
            for (const QXmlStreamAttribute& attribute : attributes)
                element.setAttribute(intern(attribute.qualifiedName()),
                                     attribute.value().toString());
            open.push_back(std::move(element));
            break;
        }
        case QXmlStreamReader::EndElement: {
            XmlNode finished = std::move(open.back());
            open.pop_back();
            if (open.empty())
                root = std::move(finished);
            else
                open.back().appendChild(std::move(finished));
            break;
        }
        case QXmlStreamReader::EntityReference:
            // An entity the reader could not resolve: the text is not what the file means.
            return false;
        default:
            // Nodes outside the root (prolog, DTD, trailing comments) are no children.
            if (!open.empty()) {
                if (std::optional<XmlNode> node = contentNode(reader))
                    open.back().appendChild(std::move(*node));
            }
            break;
        }
    }
    if (reader.hasError() || !root)
        return false;
    m_root = std::move(root);
    return true;
}

XmlNode* DOMDocument::documentElement() { return m_root ? &*m_root : nullptr; }

const XmlNode* DOMDocument::documentElement() const { return m_root ? &*m_root : nullptr; }

XmlNode DOMDocument::createElement(const QString& name)
{
    return XmlNode(XmlNode::Kind::Element, name);
}

QByteArray DOMDocument::toByteArray() const
{
    // No declaration and no white space (design 5); UTF-8 without a byte-order mark.
    QString text;
    if (m_root)
        writeNode(text, *m_root);
    return text.toUtf8();
}

bool DOMDocument::save(const QString& path) const
{
    if (!m_root)
        return false;
    const QByteArray bytes = toByteArray();
    QSaveFile file(path);
    // Design 5: where the directory takes no temporary file but the file is writable.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (file.write(bytes) != bytes.size())
        return false;
    return file.commit();
}
