// Part 1.2: the XML document service, with the file rules of design.md section 5.

#include "foundation/DOMDocument.h"
#include "tests/support/EntityBomb.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class tst_DOMDocument : public QObject {
    Q_OBJECT

private slots:
    void loadXMLParsesTheLiteralRootPair();
    void badInputHasNoRoot_data();
    void badInputHasNoRoot();
    void missingFileHasNoRoot();
    void directoryHasNoRoot();
    void entityBombHasNoRoot();
    void smallEntityIsExpanded();
    void utf16WithByteOrderMarkLoads();
    void fileNameIsMatchedWithoutCase();
    void getAttributeTellsMissingFromEmpty();
    void attributesKeepTheirOrder();
    void whiteSpaceBetweenElementsIsNoChild();
    void everyOtherKindOfChildIsKept_data();
    void everyOtherKindOfChildIsKept();
    void bothFormsOfAnEmptyElementRead();
    void writerWritesNoDeclarationAndNoWhiteSpace();
    void writerEscapesValues();
    void writtenTextReadsBack();
    void saveReplacesAnExistingFile();
    void failingSaveLeavesTheOldFileAsItWas();
    void saveWithoutRootFails();
};

void tst_DOMDocument::loadXMLParsesTheLiteralRootPair()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<rbt></rbt>"_qs));
    QVERIFY(doc.documentElement());
    QCOMPARE(doc.documentElement()->tagName(), u"rbt"_qs);
    QVERIFY(doc.documentElement()->childNodes().empty());
    QVERIFY(doc.documentElement()->attributes().isEmpty());
}

void tst_DOMDocument::badInputHasNoRoot_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("cut off half way") << QByteArray("<play title=\"a\"><scene id=\"0\" na");
    QTest::newRow("root not closed") << QByteArray("<play title=\"a\"><scene/>");
    QTest::newRow("binary") << QByteArray("\x00\x01\x02\xff\xfe\x7f<\x00>", 9);
    QTest::newRow("plain text") << QByteArray("Troupe show listing");
    QTest::newRow("two roots") << QByteArray("<a/><b/>");
    QTest::newRow("undeclared entity") << QByteArray("<play title=\"&nope;\"/>");
    QTest::newRow("mismatched tags") << QByteArray("<play></scene>");
}

void tst_DOMDocument::badInputHasNoRoot()
{
    QFETCH(QByteArray, bytes);
    QTemporaryDir dir;
    const QString path = dir.filePath(u"bad.xml"_qs);
    writeBytes(path, bytes);
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<ok/>"_qs));
    QVERIFY(!doc.load(path));
    QCOMPARE(doc.documentElement(), nullptr);
}

void tst_DOMDocument::missingFileHasNoRoot()
{
    QTemporaryDir dir;
    DOMDocument doc;
    QVERIFY(!doc.load(dir.filePath(u"missing.tsl"_qs)));
    QCOMPARE(doc.documentElement(), nullptr);
}

void tst_DOMDocument::directoryHasNoRoot()
{
    QTemporaryDir dir;
    DOMDocument doc;
    QVERIFY(!doc.load(dir.path()));
    QCOMPARE(doc.documentElement(), nullptr);
}

void tst_DOMDocument::entityBombHasNoRoot()
{
    // Design 5: past Qt's expansion limit the file is not well-formed.
    QTemporaryDir dir;
    const QString path = dir.filePath(u"bomb.xml"_qs);
    writeBytes(path, EntityBombPrologue("play") + "<play title=\"&l9;\"/>");
    DOMDocument doc;
    QVERIFY(!doc.load(path));
    QCOMPARE(doc.documentElement(), nullptr);
}

void tst_DOMDocument::smallEntityIsExpanded()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<!DOCTYPE p [<!ENTITY w \"park\">]><play mainworld=\"&w;\"/>"_qs));
    QCOMPARE(doc.documentElement()->getAttribute(u"mainworld"), u"park"_qs);
}

void tst_DOMDocument::utf16WithByteOrderMarkLoads()
{
    const QString text = u"<play title=\"Été\"/>"_qs;
    QByteArray bytes("\xff\xfe");
    bytes += QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    QTemporaryDir dir;
    const QString path = dir.filePath(u"utf16.tsl"_qs);
    writeBytes(path, bytes);
    DOMDocument doc;
    QVERIFY(doc.load(path));
    QCOMPARE(doc.documentElement()->getAttribute(u"title"), u"Été"_qs);
}

void tst_DOMDocument::fileNameIsMatchedWithoutCase()
{
    // Design 4.5: a document opened by name finds the file in another case.
    QTemporaryDir dir;
    writeBytes(dir.filePath(u"Show.TSL"_qs), "<play title=\"t\"/>");
    DOMDocument doc;
    QVERIFY(doc.load(dir.filePath(u"show.tsl"_qs)));
    QCOMPARE(doc.documentElement()->tagName(), u"play"_qs);
}

void tst_DOMDocument::getAttributeTellsMissingFromEmpty()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<rbt name=\"\" model='m'/>"_qs));
    const XmlNode* root = doc.documentElement();
    QVERIFY(root->getAttribute(u"name").has_value());
    QCOMPARE(*root->getAttribute(u"name"), QString());
    QCOMPARE(root->getAttribute(u"model"), u"m"_qs);
    QVERIFY(!root->getAttribute(u"texture").has_value());
    // Names are compared exactly, with case.
    QVERIFY(!root->getAttribute(u"Model").has_value());
}

void tst_DOMDocument::attributesKeepTheirOrder()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<scene world=\"w\" port=\"1\" maincamera=\"0\"/>"_qs));
    XmlNode* root = doc.documentElement();
    QStringList names;
    for (const XmlAttribute& attribute : root->attributes())
        names << attribute.name;
    QCOMPARE(names, QStringList({u"world"_qs, u"port"_qs, u"maincamera"_qs}));
    // setAttribute adds behind those set; a second set of one name keeps its place.
    root->setAttribute(u"nickname"_qs, u"n"_qs);
    root->setAttribute(u"world"_qs, u"v"_qs);
    QCOMPARE(doc.toByteArray(),
             QByteArray("<scene world=\"v\" port=\"1\" maincamera=\"0\" nickname=\"n\"/>"));
}

void tst_DOMDocument::whiteSpaceBetweenElementsIsNoChild()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<play>\n  <scene id=\"0\"/>\r\n\t<scene id=\"1\"/>  </play>"_qs));
    const auto& children = doc.documentElement()->childNodes();
    QCOMPARE(children.size(), size_t(2));
    QVERIFY(children[0].isElement());
    QVERIFY(children[1].isElement());
    QCOMPARE(children[1].getAttribute(u"id"), u"1"_qs);
}

void tst_DOMDocument::everyOtherKindOfChildIsKept_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::newRow("comment") << u"<play><scene/><!-- note --><scene/></play>"_qs
                             << int(XmlNode::Kind::Comment);
    QTest::newRow("text") << u"<play><scene/>Act two<scene/></play>"_qs
                          << int(XmlNode::Kind::Text);
    QTest::newRow("cdata") << u"<play><scene/><![CDATA[ ]]><scene/></play>"_qs
                           << int(XmlNode::Kind::CData);
    QTest::newRow("processing instruction") << u"<play><scene/><?run fast?><scene/></play>"_qs
                                            << int(XmlNode::Kind::ProcessingInstruction);
}

void tst_DOMDocument::everyOtherKindOfChildIsKept()
{
    // Part 1.2: a child that is no element fails a load when taken as one; the service must
    // therefore keep it, in its place.
    QFETCH(QString, text);
    QFETCH(int, kind);
    DOMDocument doc;
    QVERIFY(doc.loadXML(text));
    const auto& children = doc.documentElement()->childNodes();
    QCOMPARE(children.size(), size_t(3));
    QCOMPARE(int(children[1].kind()), kind);
    QVERIFY(!children[1].isElement());
}

void tst_DOMDocument::bothFormsOfAnEmptyElementRead()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<rbt><joint id=\"0\"/><joint id=\"1\"></joint></rbt>"_qs));
    const auto& children = doc.documentElement()->childNodes();
    QCOMPARE(children.size(), size_t(2));
    QVERIFY(children[0].childNodes().empty());
    QVERIFY(children[1].childNodes().empty());
}

void tst_DOMDocument::writerWritesNoDeclarationAndNoWhiteSpace()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<play></play>"_qs));
    XmlNode* root = doc.documentElement();
    root->setAttribute(u"title"_qs, u"Opening"_qs);
    root->setAttribute(u"mainworld"_qs, u"..\\rez\\worlds\\park"_qs);
    XmlNode scene = DOMDocument::createElement(u"scene"_qs);
    scene.setAttribute(u"id"_qs, u"0"_qs);
    root->appendChild(scene);
    root->appendChild(DOMDocument::createElement(u"scene"_qs));
    QCOMPARE(doc.toByteArray(),
             QByteArray("<play title=\"Opening\" mainworld=\"..\\rez\\worlds\\park\">"
                        "<scene id=\"0\"/><scene/></play>"));
    DOMDocument empty;
    QVERIFY(empty.loadXML(u"<play></play>"_qs));
    QCOMPARE(empty.toByteArray(), QByteArray("<play/>"));
}

void tst_DOMDocument::writerEscapesValues()
{
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<a></a>"_qs));
    doc.documentElement()->setAttribute(u"v"_qs, u"x&<>\"'\t\n\r\u0001é"_qs);
    QCOMPARE(doc.toByteArray(), QByteArray("<a v=\"x&amp;&lt;&gt;&quot;'&#9;&#10;&#13;&#1;"
                                           "\xc3\xa9\"/>"));
}

void tst_DOMDocument::writtenTextReadsBack()
{
    const QString value = u"Act \"one\" & <two>\twith\nlines\r and é ✓"_qs;
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<a></a>"_qs));
    doc.documentElement()->setAttribute(u"v"_qs, value);
    DOMDocument again;
    QVERIFY(again.loadXML(QString::fromUtf8(doc.toByteArray())));
    QCOMPARE(again.documentElement()->getAttribute(u"v"), value);
}

void tst_DOMDocument::saveReplacesAnExistingFile()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"a.tsl"_qs);
    writeBytes(path, "old content that is longer than the new one");
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<play></play>"_qs));
    QVERIFY(doc.save(path));
    QCOMPARE(readBytes(path), QByteArray("<play/>"));
}

void tst_DOMDocument::failingSaveLeavesTheOldFileAsItWas()
{
    QTemporaryDir dir;
    const QString existing = dir.filePath(u"a.tsl"_qs);
    writeBytes(existing, "<play title=\"old\"/>");
    DOMDocument doc;
    QVERIFY(doc.loadXML(u"<play></play>"_qs));
    // Tests run as root: a missing directory and a path that is a directory cannot be written.
    QVERIFY(!doc.save(dir.filePath(u"missing/a.tsl"_qs)));
    QVERIFY(!doc.save(dir.path()));
    QCOMPARE(readBytes(existing), QByteArray("<play title=\"old\"/>"));
}

void tst_DOMDocument::saveWithoutRootFails()
{
    QTemporaryDir dir;
    DOMDocument doc;
    QVERIFY(!doc.save(dir.filePath(u"a.tsl"_qs)));
    QVERIFY(!QFile::exists(dir.filePath(u"a.tsl"_qs)));
}

QTEST_APPLESS_MAIN(tst_DOMDocument)
#include "tst_DOMDocument.moc"
