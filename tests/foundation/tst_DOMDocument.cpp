// SPDX-License-Identifier: GPL-3.0-or-later
// The XML document service and the file gate beneath it: what a read refuses and why, the
// bytes it writes, saves that fail safely.

#include "foundation/DOMDocument.h"
#include "foundation/FileAccess.h"
#include "tests/support/TestFiles.h"

#include <QBuffer>
#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_DOMDocument : public QObject {
    Q_OBJECT

private slots:
    void openForReading_data();
    void openForReading()
    {
        QFETCH(QString, kind);
        QFETCH(QString, reason);
        TestFiles files;
        const QString path = files.path(u"in.xml"_s);
        const QByteArray root = R"(<play title="t"/>)";
        if (kind == u"fifo")
            QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        else if (kind == u"folder")
            QVERIFY(QDir().mkdir(path));
        else if (kind == u"loop")
            QVERIFY(QFile::link(path, path));
        else if (kind == u"case")
            files.write(u"IN.XML"_s, root);
        else if (kind.startsWith(u"64 MiB")) { // a whole root, then blanks up to the size
            const qint64 size = Limits::MaxFileBytes + (kind == u"64 MiB and one" ? 1 : 0);
            QFile file(files.write(u"in.xml"_s, root));
            QVERIFY(file.open(QIODevice::Append));
            QCOMPARE(file.write(QByteArray(size - root.size(), ' ')), size - root.size());
        }
        QFile file;
        QString why;
        QCOMPARE(FileAccess::OpenForReading(file, path, &why), reason.isEmpty());
        QCOMPARE(why, reason);
        if (reason.isEmpty()) {
            DOMDocument doc;
            QVERIFY(doc.read(file));
            QCOMPARE(doc.documentElement().getAttribute(u"title"), u"t"_s);
        }
    }

    void read_data();
    void read()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, title);
        QFETCH(QString, reason);
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        DOMDocument doc;
        QString why;
        QCOMPARE(doc.read(buffer, &why), !title.isNull());
        QCOMPARE(doc.documentElement().isNull(), title.isNull());
        if (!title.isNull())
            QCOMPARE(doc.documentElement().getAttribute(u"title"), title);
        QVERIFY2(why.startsWith(reason), qPrintable(why));
    }

    void writtenBytesReadBack();
    void failedSaveLeavesTheOldFileAndNamesTheRecord();
};

void tst_DOMDocument::openForReading_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason"); // empty: it opens
    QTest::newRow("missing") << u"missing"_s << u"there is no such file"_s;
    QTest::newRow("FIFO without writer") << u"fifo"_s << u"it is a FIFO"_s;
    QTest::newRow("folder") << u"folder"_s << u"it is a folder"_s;
    QTest::newRow("link to itself") << u"loop"_s << u"its symbolic links lead round in a loop"_s;
    QTest::newRow("name in another case") << u"case"_s << QString();
    QTest::newRow("64 MiB") << u"64 MiB"_s << QString();
    QTest::newRow("one byte over 64 MiB") << u"64 MiB and one"_s << u"it is larger than 64 MiB"_s;
}

void tst_DOMDocument::read_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("title");  // null: the read must fail
    QTest::addColumn<QString>("reason"); // how the reason begins
    QTest::newRow("cut off") << "<play title=\"a\">\n<scene id=\"0\" na"_ba << QString()
                             << u"line 2, column 17: Premature end"_s;
    QTest::newRow("empty") << QByteArray() << QString() << u"line 1, column 1: "_s;
    QTest::newRow("entity of a DTD elsewhere")
        << R"(<!DOCTYPE play SYSTEM "x.dtd"><play title="t">&y;</play>)"_ba << QString()
        << u"line 1: the entity \"y\" is not declared"_s;
    // A billion laughs: `&l9;` expands to 10^9 characters, beyond Qt's expansion limit.
    QByteArray bomb = R"(<!DOCTYPE play [<!ENTITY l0 "lol">)";
    for (int level = 1; level <= 9; ++level)
        bomb += "<!ENTITY l" + QByteArray::number(level) + " \"" +
                ("&l" + QByteArray::number(level - 1) + ';').repeated(10) + "\">";
    QTest::newRow("entity bomb") << bomb + R"(]><play title="&l9;"/>)" << QString() << u"line"_s;
    auto utf16 = QStringEncoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    QTest::newRow("UTF-16 with byte-order mark")
        << QByteArray(utf16(u"<play title=\"Été\"/>"_s)) << u"Été"_s << QString();
    QTest::newRow("300000 nested elements") << R"(<play title="t">)" + "<a>"_ba.repeated(300000) +
                                                   "</a>"_ba.repeated(300000) + "</play>"
                                            << u"t"_s << QString();
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

// A text XML cannot carry fails the save before the file is touched, and the reason names
// the record and the attribute that hold it.
void tst_DOMDocument::failedSaveLeavesTheOldFileAndNamesTheRecord()
{
    const QStringList bad = {u"a\u0001b"_s, u"a\uFFFE"_s, QString(QChar(0xd800)) + u"x"_s};
    const QStringList codes = {u"0001"_s, u"FFFE"_s, u"D800"_s};
    for (qsizetype i = 0; i < bad.size(); ++i) {
        TestFiles files;
        const QString old = files.write(u"a.tsl"_s, R"(<play title="old"/>)"_ba);
        DOMDocument doc;
        doc.loadXML(u"<play></play>"_s);
        doc.documentElement().setAttribute(u"title"_s, u"t"_s);
        XmlNode scene = doc.createElement(u"scene"_s);
        scene.setAttribute(u"id"_s, u"7"_s);
        scene.setAttribute(u"name"_s, bad[i]);
        doc.documentElement().appendChild(scene);
        QString why;
        QVERIFY(!FileAccess::SaveWhole(
            old, [&](QIODevice& file) { return doc.write(file, &why); }, &why));
        QCOMPARE(why, u"scene 7: its \"name\" holds the character U+"_s + codes[i] +
                          u", which a file cannot carry"_s);
        QCOMPARE(TestFiles::read(old), R"(<play title="old"/>)"_ba);
        QCOMPARE(QDir(files.path({})).entryList(QDir::Files), QStringList(u"a.tsl"_s));
    }
}

QTEST_APPLESS_MAIN(tst_DOMDocument)
#include "tst_DOMDocument.moc"
