// The XML document service: what a load refuses, the bytes it writes, saves that fail safely.

#include "foundation/DOMDocument.h"
#include "tests/support/TestFiles.h"

#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_DOMDocument : public QObject {
    Q_OBJECT

private slots:
    void load_data();
    void load()
    {
        QFETCH(QString, kind);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, title);
        TestFiles files;
        QString path = files.path(u"in.xml"_s);
        if (kind == u"bytes")
            files.write(u"in.xml"_s, bytes);
        else if (kind == u"fifo")
            QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        else if (kind.startsWith(u"blanks")) { // a whole root, then blanks up to the size
            const qint64 size = Limits::MaxFileBytes + (kind == u"blanks over" ? 1 : 0);
            QFile file(files.write(u"in.xml"_s, bytes));
            QVERIFY(file.open(QIODevice::Append));
            QCOMPARE(file.write(QByteArray(size - bytes.size(), ' ')), size - bytes.size());
        }
        DOMDocument doc;
        QCOMPARE(doc.load(path), !title.isNull());
        QCOMPARE(doc.documentElement().isNull(), title.isNull());
        if (!title.isNull())
            QCOMPARE(doc.documentElement().getAttribute(u"title"), title);
    }

    void writtenBytesReadBack();
    void failedSaveLeavesTheOldFile();
};

void tst_DOMDocument::load_data()
{
    QTest::addColumn<QString>("kind"); // "bytes" is a file holding `bytes`
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("title"); // null: load must fail
    QTest::newRow("missing") << u"missing"_s << QByteArray() << QString();
    QTest::newRow("FIFO without writer") << u"fifo"_s << QByteArray() << QString();
    QTest::newRow("64 MiB") << u"blanks"_s << R"(<play title="t"/>)"_ba << u"t"_s;
    QTest::newRow("one byte over 64 MiB")
        << u"blanks over"_s << R"(<play title="t"/>)"_ba << QString();
    QTest::newRow("cut off") << u"bytes"_s << R"(<play title="a"><scene id="0" na)"_ba << QString();
    // A billion laughs: `&l9;` expands to 10^9 characters, beyond Qt's expansion limit.
    QByteArray bomb = R"(<!DOCTYPE play [<!ENTITY l0 "lol">)";
    for (int level = 1; level <= 9; ++level)
        bomb += "<!ENTITY l" + QByteArray::number(level) + " \"" +
                ("&l" + QByteArray::number(level - 1) + ';').repeated(10) + "\">";
    QTest::newRow("entity bomb") << u"bytes"_s << bomb + R"(]><play title="&l9;"/>)" << QString();
    auto utf16 = QStringEncoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    QTest::newRow("UTF-16 with byte-order mark")
        << u"bytes"_s << QByteArray(utf16(u"<play title=\"Été\"/>"_s)) << u"Été"_s;
    QTest::newRow("300000 nested elements") << u"bytes"_s
                                            << R"(<play title="t">)" + "<a>"_ba.repeated(300000) +
                                                   "</a>"_ba.repeated(300000) + "</play>"
                                            << u"t"_s;
}

void tst_DOMDocument::writtenBytesReadBack()
{
    const QString text = u"x&<>\"'\t\n\r é \U0001F600"_s;
    DOMDocument doc;
    doc.loadXML(u"<play></play>"_s);
    XmlNode root = doc.documentElement();
    root.setAttribute(u"title"_s, text);
    XmlNode scene = doc.createElement(u"scene"_s);
    root.appendChild(scene);
    root.appendChild(doc.createElement(u"scene"_s));
    root.setAttribute(u"mainworld"_s, QString()); // after the children: still the root's
    scene.setAttribute(u"id"_s, u"0"_s);
    const QByteArray bytes = R"(<play title="x&amp;&lt;&gt;&quot;'&#9;&#10;&#13; é )"_ba +
                             "\xf0\x9f\x98\x80" +
                             R"(" mainworld=""><scene id="0"/><scene/></play>)";
    QCOMPARE(doc.toByteArray().value_or(QByteArray()), bytes);
    DOMDocument again;
    QVERIFY(again.loadXML(QString::fromUtf8(bytes)));
    QCOMPARE(again.documentElement().getAttribute(u"title"), text);
}

// A text XML cannot carry fails the save before the file is touched.
void tst_DOMDocument::failedSaveLeavesTheOldFile()
{
    for (const QString& title : {u"a\u0001b"_s, u"a\uFFFE"_s, QString(QChar(0xd800)) + u"x"_s}) {
        TestFiles files;
        const QString old = files.write(u"a.tsl"_s, R"(<play title="old"/>)"_ba);
        DOMDocument doc;
        doc.loadXML(u"<play></play>"_s);
        doc.documentElement().setAttribute(u"title"_s, title);
        QVERIFY(!doc.save(old));
        QCOMPARE(TestFiles::read(old), R"(<play title="old"/>)"_ba);
        QCOMPARE(QDir(files.path({})).entryList(QDir::Files), QStringList(u"a.tsl"_s));
    }
}

QTEST_APPLESS_MAIN(tst_DOMDocument)
#include "tst_DOMDocument.moc"
