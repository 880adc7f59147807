// Part 3.2: the `.ssf` file format, `Load` and `Save` of clsSSF with their three private
// helpers. XML goes through the document service of Part 1.2.

#include "foundation/DOMDocument.h"
#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"
#include "stage/clsSSF.h"

#include <QStringBuilder>

namespace {

// Part 1.2: a required attribute is read as plain text; when it is missing the Null
// can't become a string and the load fails.
[[nodiscard]] bool ReadText(const XmlNode& objElement, QStringView strName, QString& strField)
{
    std::optional<QString> value = objElement.getAttribute(strName);
    if (!value)
        return false;
    strField = std::move(*value);
    return true;
}

// Part 3.2 "Reading a triple": split at the first two commas; Z keeps any further commas.
// Fewer than two commas fail the read. Any of the three may be empty.
[[nodiscard]] bool ReadTriple(const XmlNode& objElement, QStringView strName,
                              QString& strX, QString& strY, QString& strZ)
{
    QString s;
    if (!ReadText(objElement, strName, s))
        return false;
    const qsizetype p1 = s.indexOf(u',');
    if (p1 < 0)
        return false;
    const qsizetype p2 = s.indexOf(u',', p1 + 1);
    if (p2 < 0)
        return false;
    strX = s.left(p1);
    strY = s.mid(p1 + 1, p2 - p1 - 1);
    strZ = s.mid(p2 + 1);
    return true;
}

// Part 3.2: a triple is X, Y and Z joined by single commas, character for character.
// (QStringBuilder's % joins the five pieces in one allocation.)
QString Triple(const QString& strX, const QString& strY, const QString& strZ)
{
    return strX % u',' % strY % u',' % strZ;
}

} // namespace

bool clsSSF::Load(const QString& strFile)
{
    // Step 1: the result of `load` is not looked at; a missing or ill-formed file
    // leaves the document without a root, which step 2 finds.
    DOMDocument objDOM;
    objDOM.load(strFile);

    // Step 2.
    const XmlNode* objRoot = objDOM.documentElement();
    if (!objRoot)
        return false;

    // Step 3: `world` is the one required root attribute; its backslashes stay single
    // (a world reference, Part 1.1). The root's name is not looked at.
    if (!ReadText(*objRoot, u"world", World))
        return false;

    // Step 4: the other four are optional; absent reads as empty.
    MainCamera = NullToEmpty(objRoot->getAttribute(u"maincamera"));
    Nickname = NullToEmpty(objRoot->getAttribute(u"nickname"));
    Server = NullToEmpty(objRoot->getAttribute(u"server"));
    Port = NullToEmpty(objRoot->getAttribute(u"port"));

    // The count of child nodes is a 16-bit value (Part 3.2 Failure handling).
    const std::vector<XmlNode>& objChildren = objRoot->childNodes();
    if (objChildren.size() > static_cast<std::size_t>(Limits::MaxChildNodes))
        return false;

    // Step 5: children in document order, the three kinds in any order and mix.
    for (const XmlNode& objNode : objChildren) {
        // 5.1: a comment, processing instruction or text can't be taken as an element.
        if (!objNode.isElement())
            return false;

        // 5.2 and 5.3: exact names, with regard to case; any other name is passed over
        // with its contents. Every attribute of the kind's table is required, read in
        // the table's order; the record is appended only when all are read, as the file
        // has it (no Id is touched). A list past 32767 records fails (design 5).
        const QString& strTag = objNode.tagName();
        if (strTag == u"puppet") {
            auto p = std::make_shared<clsPuppet>();
            if (!ReadText(objNode, u"id", p->Id))
                return false;
            if (!ReadText(objNode, u"rbt", p->RBT))
                return false;
            p->RBT = mdlGeneral::UndoubleBackslashes(p->RBT);
            if (!ReadTriple(objNode, u"position", p->PositionX, p->PositionY, p->PositionZ))
                return false;
            if (!ReadTriple(objNode, u"scale", p->ScaleX, p->ScaleY, p->ScaleZ))
                return false;
            if (!ReadTriple(objNode, u"orientation",
                            p->OrientationX, p->OrientationY, p->OrientationZ))
                return false;
            if (!m_puppets.AppendLoaded(p))
                return false;
        } else if (strTag == u"sound") {
            auto s = std::make_shared<clsSound>();
            if (!ReadText(objNode, u"id", s->Id))
                return false;
            if (!ReadText(objNode, u"name", s->Name))
                return false;
            if (!ReadText(objNode, u"type", s->TypeSound))
                return false;
            if (!ReadText(objNode, u"file", s->File))
                return false;
            // Undoubling first, then the extension of a dialog sound.
            s->File = mdlGeneral::UndoubleBackslashes(s->File);
            s->File = LoadedSoundFile(*s);
            if (!m_sounds.AppendLoaded(s))
                return false;
        } else if (strTag == u"camera") {
            auto c = std::make_shared<clsCamera>();
            if (!ReadText(objNode, u"id", c->Id))
                return false;
            // A camera's name is taken unchanged, like a sound's (design 5).
            if (!ReadText(objNode, u"name", c->Name))
                return false;
            if (!ReadTriple(objNode, u"position", c->PositionX, c->PositionY, c->PositionZ))
                return false;
            if (!ReadTriple(objNode, u"orientation",
                            c->OrientationX, c->OrientationY, c->OrientationZ))
                return false;
            if (!m_cameras.AppendLoaded(c))
                return false;
        }
    }

    // Step 6: the XML document goes with this scope.
    return true;
}

bool clsSSF::Save(const QString& strFile) const
{
    // Step 1: a new tree from the literal root pair; what Load read is not reused.
    DOMDocument objDOM;
    objDOM.loadXML(QStringLiteral("<scene></scene>"));
    XmlNode* objRoot = objDOM.documentElement();
    if (!objRoot)
        return false;

    // Step 2: all five, an empty field as an empty attribute; `world` keeps single
    // backslashes (a world reference, Part 1.1).
    objRoot->setAttribute(QStringLiteral("world"), World);
    objRoot->setAttribute(QStringLiteral("maincamera"), MainCamera);
    objRoot->setAttribute(QStringLiteral("nickname"), Nickname);
    objRoot->setAttribute(QStringLiteral("server"), Server);
    objRoot->setAttribute(QStringLiteral("port"), Port);

    // Step 3: puppets first, in list order; `rbt` has its backslashes doubled.
    for (const std::shared_ptr<clsPuppet>& p : m_puppets) {
        XmlNode objElement = DOMDocument::createElement(QStringLiteral("puppet"));
        objElement.setAttribute(QStringLiteral("id"), p->Id);
        objElement.setAttribute(QStringLiteral("rbt"), mdlGeneral::DoubleBackslashes(p->RBT));
        objElement.setAttribute(QStringLiteral("position"),
                                Triple(p->PositionX, p->PositionY, p->PositionZ));
        objElement.setAttribute(QStringLiteral("scale"), Triple(p->ScaleX, p->ScaleY, p->ScaleZ));
        objElement.setAttribute(QStringLiteral("orientation"),
                                Triple(p->OrientationX, p->OrientationY, p->OrientationZ));
        objRoot->appendChild(std::move(objElement));
    }

    // Step 4: then sounds; `file` is the stored form of a dialog sound, then doubled.
    // `File` itself keeps its text.
    for (const std::shared_ptr<clsSound>& s : m_sounds) {
        XmlNode objElement = DOMDocument::createElement(QStringLiteral("sound"));
        objElement.setAttribute(QStringLiteral("id"), s->Id);
        objElement.setAttribute(QStringLiteral("name"), s->Name);
        objElement.setAttribute(QStringLiteral("type"), s->TypeSound);
        objElement.setAttribute(QStringLiteral("file"),
                                mdlGeneral::DoubleBackslashes(StoredSoundFile(*s)));
        objRoot->appendChild(std::move(objElement));
    }

    // Step 5: then cameras. The name is written unchanged, not doubled, so that it
    // round-trips through Load, which takes it unchanged (design 5).
    for (const std::shared_ptr<clsCamera>& c : m_cameras) {
        XmlNode objElement = DOMDocument::createElement(QStringLiteral("camera"));
        objElement.setAttribute(QStringLiteral("id"), c->Id);
        objElement.setAttribute(QStringLiteral("name"), c->Name);
        objElement.setAttribute(QStringLiteral("position"),
                                Triple(c->PositionX, c->PositionY, c->PositionZ));
        objElement.setAttribute(QStringLiteral("orientation"),
                                Triple(c->OrientationX, c->OrientationY, c->OrientationZ));
        objRoot->appendChild(std::move(objElement));
    }

    // Step 6: the only step that touches the file; atomic, so a failure leaves an
    // existing file as it was (design 5).
    return objDOM.save(strFile);
}

QString clsSSF::NullToEmpty(const std::optional<QString>& value)
{
    return value.value_or(QString());
}

QString clsSSF::StoredSoundFile(const clsSound& s)
{
    // 1: only a type of exactly "sound" keeps its file name; any other is a dialog.
    if (s.TypeSound == u"sound")
        return s.File;

    // 2: the last "." of the whole text, the directory part too; p counts from 1, 0 = none.
    const qsizetype p = s.File.lastIndexOf(u'.') + 1;

    // 3: step back over the decimal digits directly in front of that dot.
    qsizetype k = p - 1;
    while (k >= 1 && s.File.at(k - 1) >= u'0' && s.File.at(k - 1) <= u'9')
        --k;

    // 4: the first k characters, or the empty text.
    return k > 0 ? s.File.left(k) : QString();
}

QString clsSSF::LoadedSoundFile(const clsSound& s)
{
    if (s.TypeSound == u"sound")
        return s.File;
    return s.File + QStringLiteral(".wav");
}
