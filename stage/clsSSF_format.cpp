// Part 3.2: the `.ssf` file format, `Load` and `Save` of clsSSF with their three private
// helpers. XML goes through the document service of Part 1.2.

#include "foundation/DOMDocument.h"
#include "foundation/Limits.h"
#include "foundation/Triple.h"
#include "foundation/mdlGeneral.h"
#include "stage/clsSSF.h"

namespace {

// Part 3.2 "Reading a triple": an absent attribute fails before the split starts, and so
// does one with fewer than two commas.
[[nodiscard]] bool ReadTriple(const XmlNode& objElement, QStringView strName, QString& strX,
                              QString& strY, QString& strZ)
{
    QString s;
    return objElement.readAttribute(strName, s) && SplitTriple(s, strX, strY, strZ);
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
    if (!objRoot->readAttribute(u"world", World))
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
            if (!objNode.readAttribute(u"id", p->Id))
                return false;
            if (!objNode.readAttribute(u"rbt", p->RBT))
                return false;
            p->RBT = mdlGeneral::UndoubleBackslashes(p->RBT);
            if (!ReadTriple(objNode, u"position", p->PositionX, p->PositionY, p->PositionZ))
                return false;
            if (!ReadTriple(objNode, u"scale", p->ScaleX, p->ScaleY, p->ScaleZ))
                return false;
            if (!ReadTriple(objNode, u"orientation", p->OrientationX, p->OrientationY,
                            p->OrientationZ))
                return false;
            if (!m_puppets.AppendLoaded(p))
                return false;
        } else if (strTag == u"sound") {
            auto s = std::make_shared<clsSound>();
            if (!objNode.readAttribute(u"id", s->Id))
                return false;
            if (!objNode.readAttribute(u"name", s->Name))
                return false;
            if (!objNode.readAttribute(u"type", s->TypeSound))
                return false;
            if (!objNode.readAttribute(u"file", s->File))
                return false;
            // Undoubling first, then the extension of a dialog sound.
            s->File = mdlGeneral::UndoubleBackslashes(s->File);
            s->File = LoadedSoundFile(*s);
            if (!m_sounds.AppendLoaded(s))
                return false;
        } else if (strTag == u"camera") {
            auto c = std::make_shared<clsCamera>();
            if (!objNode.readAttribute(u"id", c->Id))
                return false;
            // A camera's name is taken unchanged, like a sound's (design 5).
            if (!objNode.readAttribute(u"name", c->Name))
                return false;
            if (!ReadTriple(objNode, u"position", c->PositionX, c->PositionY, c->PositionZ))
                return false;
            if (!ReadTriple(objNode, u"orientation", c->OrientationX, c->OrientationY,
                            c->OrientationZ))
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
                                JoinTriple(p->PositionX, p->PositionY, p->PositionZ));
        objElement.setAttribute(QStringLiteral("scale"),
                                JoinTriple(p->ScaleX, p->ScaleY, p->ScaleZ));
        objElement.setAttribute(QStringLiteral("orientation"),
                                JoinTriple(p->OrientationX, p->OrientationY, p->OrientationZ));
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
                                JoinTriple(c->PositionX, c->PositionY, c->PositionZ));
        objElement.setAttribute(QStringLiteral("orientation"),
                                JoinTriple(c->OrientationX, c->OrientationY, c->OrientationZ));
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
