// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/DOMDocument.h"

#include <QIODevice>
#include <QXmlStreamReader>

#include <algorithm>
#include <limits>

namespace {

// Equal texts, without a call: names and short values are a few characters long.
bool sameText(const QString& known, QStringView text)
{
    if (known.size() != text.size())
        return false;
    const QChar* const k = known.constData();
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (k[i] != text[i])
            return false;
    }
    return true;
}

// Appends `text` escaped for an attribute value: `&`, `<`, `>`, `"` by name, tab, line feed
// and carriage return as character references, so they come back unchanged. False at a
// character XML 1.0 cannot carry, which is then `bad`.
bool appendEscaped(QString& out, QStringView text, char16_t& bad)
{
    const auto plain = [](char16_t c) {
        return c >= 0x20 && c != u'&' && c != u'<' && c != u'>' && c != u'"' &&
               (c < 0xd800 || c > 0xdfff) && c < 0xfffe;
    };
    // Most texts need nothing: they go across whole.
    if (std::all_of(text.begin(), text.end(), [&](QChar c) { return plain(c.unicode()); })) {
        out += text;
        return true;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (plain(c)) {
            out += QChar(c);
            continue;
        }
        switch (c) {
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
        case u'\t':
            out += u"&#9;";
            break;
        case u'\n':
            out += u"&#10;";
            break;
        case u'\r':
            out += u"&#13;";
            break;
        default:
            // A surrogate pair goes across; anything else here cannot be carried.
            if (QChar::isHighSurrogate(c) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
                out += text.sliced(i, 2);
                ++i;
                break;
            }
            bad = c;
            return false;
        }
    }
    return true;
}

} // namespace

DOMDocument::DOMDocument() = default;
DOMDocument::~DOMDocument() = default;

void DOMDocument::clear()
{
    m_nodes.clear();
    m_attributes.clear();
    m_texts.clear();
    m_root = None;
}

bool DOMDocument::read(QIODevice& device, QString* why)
{
    clear();
    // Room for the nodes and attributes a text of this size holds at most in the suite's own
    // formats: room never used takes no memory, and tables that need not move leave no old
    // copy behind at the peak.
    const qint64 size = device.isSequential() ? 0 : device.size();
    m_nodes.reserve(size_t(size / 32));
    m_attributes.reserve(size_t(size / 8));
    m_texts.reserve(size_t(size));
    // The reader takes the device in blocks, so the whole text is never held at once.
    QXmlStreamReader reader(&device);
    return parse(reader, why);
}

bool DOMDocument::loadXML(const QString& text)
{
    clear();
    QXmlStreamReader reader(text);
    return parse(reader, nullptr);
}

bool DOMDocument::parse(QXmlStreamReader& reader, QString* why)
{
    // Names stay as written: a prefix is part of the tag, `xmlns` an attribute like another.
    reader.setNamespaceProcessing(false);

    // Open elements, innermost last: a list, not a recursion, however deep the input nests.
    std::vector<quint32> open;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            const quint32 element =
                addNode(XmlNode::Kind::Element, nameIndex(reader.qualifiedName(), m_tagHint),
                        reader.lineNumber());
            if (open.empty())
                m_root = element;
            else
                link(open.back(), element);
            open.push_back(element);
            // A const copy: iterating the temporary would detach it from the reader's own.
            const QXmlStreamAttributes attributes = reader.attributes();
            if (m_attributeHints.size() < size_t(attributes.size()))
                m_attributeHints.resize(attributes.size(), 0);
            // The reader has refused a name given twice, so each is added without a search.
            for (qsizetype i = 0; i < attributes.size(); ++i) {
                const QXmlStreamAttribute& attribute = attributes[i];
                addAttribute(element, nameIndex(attribute.qualifiedName(), m_attributeHints[i]),
                             attribute.value());
            }
            break;
        }
        case QXmlStreamReader::EndElement:
            open.pop_back();
            break;
        case QXmlStreamReader::EntityReference:
            // An entity the reader could not resolve: the text is not what the file means.
            if (why)
                *why = QStringLiteral("line %1: the entity \"%2\" is not declared")
                           .arg(reader.lineNumber())
                           .arg(reader.name());
            clear();
            return false;
        case QXmlStreamReader::Characters:
            // White space between elements is no child; any other text or CDATA is one.
            if (!open.empty() && (reader.isCDATA() || !reader.isWhitespace()))
                link(open.back(),
                     addNode(reader.isCDATA() ? XmlNode::Kind::CData : XmlNode::Kind::Text, 0,
                             reader.lineNumber()));
            break;
        case QXmlStreamReader::Comment:
            if (!open.empty())
                link(open.back(), addNode(XmlNode::Kind::Comment, 0, reader.lineNumber()));
            break;
        case QXmlStreamReader::ProcessingInstruction:
            if (!open.empty())
                link(open.back(),
                     addNode(XmlNode::Kind::ProcessingInstruction,
                             nameIndex(reader.processingInstructionTarget(), m_tagHint),
                             reader.lineNumber()));
            break;
        default:
            // The prolog, a DTD, and nodes behind the root are no children.
            break;
        }
    }
    if (reader.hasError() || m_root == None) {
        if (why)
            *why = reader.hasError() ? QStringLiteral("line %1, column %2: %3")
                                           .arg(reader.lineNumber())
                                           .arg(reader.columnNumber() + 1)
                                           .arg(reader.errorString())
                                     : QStringLiteral("there is no element in it");
        clear();
        return false;
    }
    return true;
}

quint32 DOMDocument::addNode(XmlNode::Kind kind, quint32 name, qint64 line)
{
    Node node;
    node.kind = kind;
    node.name = name;
    node.line = quint32(std::clamp<qint64>(line, 0, std::numeric_limits<quint32>::max()));
    node.firstAttribute = quint32(m_attributes.size());
    m_nodes.push_back(node);
    return quint32(m_nodes.size() - 1);
}

void DOMDocument::link(quint32 parent, quint32 child)
{
    Node& node = m_nodes[parent];
    if (node.lastChild == None)
        node.firstChild = child;
    else
        m_nodes[node.lastChild].nextSibling = child;
    node.lastChild = child;
    ++node.childCount;
}

quint32 DOMDocument::nameIndex(QStringView name, quint32& hint)
{
    if (hint < m_names.size() && sameText(m_names[hint], name))
        return hint;
    const auto known = m_nameIndices.constFind(name);
    if (known != m_nameIndices.cend()) {
        hint = known.value();
        return hint;
    }
    m_names.push_back(name.toString());
    hint = quint32(m_names.size() - 1);
    // The key views the text of the name just kept, which stays where it is.
    m_nameIndices.insert(QStringView(m_names.back()), hint);
    return hint;
}

void DOMDocument::addAttribute(quint32 node, quint32 name, QStringView value)
{
    Node& element = m_nodes[node];
    // An element's attributes stand together. Set on an element whose attributes another
    // element's followed, they move behind those first.
    if (element.firstAttribute + element.attributeCount != m_attributes.size()) {
        const quint32 first = quint32(m_attributes.size());
        for (quint32 i = 0; i < element.attributeCount; ++i)
            m_attributes.push_back(m_attributes[element.firstAttribute + i]);
        element.firstAttribute = first;
    }
    m_attributes.push_back({name, quint32(m_texts.size()), quint32(value.size())});
    m_texts.insert(m_texts.end(), value.utf16(), value.utf16() + value.size());
    ++element.attributeCount;
}

QStringView DOMDocument::valueOf(const Attribute& attribute) const
{
    return QStringView(m_texts.data() + attribute.offset, qsizetype(attribute.length));
}

const DOMDocument::Attribute* DOMDocument::findAttribute(quint32 node, QStringView name) const
{
    const Node& element = m_nodes[node];
    const Attribute* const first = m_attributes.data() + element.firstAttribute;
    for (const Attribute* attribute = first; attribute != first + element.attributeCount;
         ++attribute) {
        if (sameText(m_names[attribute->name], name))
            return attribute;
    }
    return nullptr;
}

QString DOMDocument::sharedText(QStringView text)
{
    constexpr qsizetype longest = 16;
    constexpr size_t slotCount = 1024;
    if (text.isEmpty())
        return QString();
    if (text.size() > longest)
        return text.toString();
    if (!m_sharedTexts)
        m_sharedTexts = std::make_unique<QString[]>(slotCount);
    size_t hash = size_t(text.size());
    for (const QChar c : text)
        hash = hash * 31 + c.unicode();
    QString& shared = m_sharedTexts[(hash ^ (hash >> 9)) & (slotCount - 1)];
    if (!sameText(shared, text))
        shared = text.toString();
    return shared;
}

XmlNode DOMDocument::documentElement()
{
    return m_root == None ? XmlNode() : XmlNode(this, m_root);
}

XmlNode DOMDocument::createElement(const QString& name)
{
    return XmlNode(this, addNode(XmlNode::Kind::Element, nameIndex(name, m_tagHint)));
}

std::optional<QByteArray> DOMDocument::toByteArray(QString* why) const
{
    if (m_root == None)
        return std::nullopt;
    QString out;
    // Elements whose end tag is still to come, innermost last: a list, not a recursion.
    std::vector<quint32> open;
    // Only elements are written: the other kinds come from reading alone.
    const auto firstElement = [this](quint32 index) {
        while (index != None && m_nodes[index].kind != XmlNode::Kind::Element)
            index = m_nodes[index].nextSibling;
        return index;
    };
    quint32 current = m_root;
    for (;;) {
        const Node& node = m_nodes[current];
        out += u'<';
        out += m_names[node.name];
        for (quint32 i = 0; i < node.attributeCount; ++i) {
            const Attribute& attribute = m_attributes[node.firstAttribute + i];
            out += u' ';
            out += m_names[attribute.name];
            out += u"=\"";
            char16_t bad = 0;
            if (!appendEscaped(out, valueOf(attribute), bad)) {
                if (why)
                    *why = uncarriable(current, attribute, bad);
                return std::nullopt;
            }
            out += u'"';
        }
        quint32 next = firstElement(node.firstChild);
        if (next != None) {
            out += u'>';
            open.push_back(current);
            current = next;
            continue;
        }
        out += u"/>";
        // On to the next element behind this one, closing those that end here. The root
        // has no siblings.
        while ((next = firstElement(m_nodes[current].nextSibling)) == None) {
            if (open.empty())
                return out.toUtf8();
            current = open.back();
            open.pop_back();
            out += u"</";
            out += m_names[m_nodes[current].name];
            out += u'>';
        }
        current = next;
    }
}

bool DOMDocument::write(QIODevice& device, QString* why) const
{
    const std::optional<QByteArray> bytes = toByteArray(why);
    if (!bytes)
        return false;
    if (device.write(*bytes) != bytes->size()) {
        if (why)
            *why = device.errorString();
        return false;
    }
    return true;
}

QString DOMDocument::uncarriable(quint32 element, const Attribute& attribute, char16_t bad) const
{
    // The record is named by its kind and Id, as the author finds it in the window's list.
    QString holder = QStringLiteral("the document");
    if (element != m_root) {
        holder = m_names[m_nodes[element].name];
        if (const Attribute* id = findAttribute(element, u"id"))
            holder += u' ' + valueOf(*id).toString();
    }
    const QString code = QString::number(uint(bad), 16).toUpper().rightJustified(4, u'0');
    return QStringLiteral("%1: its \"%2\" holds the character U+%3, which a file cannot carry")
        .arg(holder, m_names[attribute.name], code);
}
