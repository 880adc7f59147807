// SPDX-License-Identifier: GPL-3.0-or-later
// The show listing window driven as a user would: a session, and failures that lose nothing.

#include "foundation/mdlGeneral.h"
#include "show/frmMainTSL.h"
#include "tests/support/RecordingLinks.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/TestFiles.h"
#include "tests/support/WindowDriver.h"

#include <QMenu>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray TwoScenes = R"(<play title="Two" mainworld="..\rez\worlds\park">)"
                             R"(<scene id="0" name="A" ssf="..\\rez\\a.ssf"/>)"
                             R"(<scene id="1" name="B" ssf="..\\rez\\b.ssf"/></play>)";

} // namespace

class tst_frmMainTSL : public QObject {
    Q_OBJECT

    // A file dialog answered with that file of the test's folder, or cancelled for none.
    void choose(const QString& control, const QString& file)
    {
        m_ui->chooseFile(m_dialogs, control, file.isEmpty() ? file : m_base + file);
    }
    ListBox* list() const { return m_ui->listBox(u"lstScenes"_s); }
    void clickList(int row, Qt::KeyboardModifiers keys = {}) const // row -1: the blank part
    {
        const QPoint blank(5, list()->viewport()->height() - 5);
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, keys,
                          row < 0 ? blank : list()->visualItemRect(list()->item(row)).center());
    }
    QStringList rows() const { return m_ui->rows(u"lstScenes"_s); }

    std::unique_ptr<TestFiles> m_files;
    QString m_base; // the test's folder, where the run's base directory will be
    ScriptedDialogService m_dialogs;
    RecordingLinks m_links;
    std::unique_ptr<frmMainTSL> m_window;
    std::unique_ptr<WindowDriver> m_ui;

private slots:
    void init()
    {
        mdlGeneral::strCurrentDir.clear();
        m_files = std::make_unique<TestFiles>();
        m_base = QDir::toNativeSeparators(m_files->path({}) + u'/');
        m_dialogs.reset();
        m_window = std::make_unique<frmMainTSL>(m_dialogs, &m_links);
        m_ui = std::make_unique<WindowDriver>(m_window.get());
    }
    void cleanup() { QCOMPARE(m_dialogs.pendingAnswers(), 0); }

    void session()
    {
        m_ui->trigger(u"menNewTSL"_s);
        m_ui->type(u"txtTitle"_s, u"Opening"_s);
        m_ui->find<QWidget>(u"Command1"_s)->setFocus();
        m_ui->pressKey(u"Command1"_s, Qt::Key_Return); // "Add scene..." from the keyboard
        m_ui->type(u"txtName"_s, u"Act one"_s);
        choose(u"Command3"_s, u"act1.ssf"_s);
        QCOMPARE(m_dialogs.lastShown().Folder,
                 QDir::toNativeSeparators(QDir::currentPath() + u'/'));
        choose(u"Command5"_s, u"worlds/Park.dat"_s);
        QCOMPARE(m_dialogs.lastShown().Folder, m_base); // the folder of the last pick
        m_ui->click(u"Command1"_s);
        m_ui->type(u"txtName"_s, u"Finale"_s);

        // The selected row stays through a click on the blank part and a Ctrl+click on it, so
        // what is typed next reaches its scene.
        clickList(0);
        clickList(-1);
        m_ui->type(u"txtName"_s, u" &"_s);
        clickList(0, Qt::ControlModifier);
        m_ui->type(u"txtName"_s, u" more"_s);
        m_ui->trigger(u"menEditSSF"_s);
        clickList(1);
        m_ui->pressKey(u"lstScenes"_s, Qt::Key_Delete);
        QVERIFY(m_ui->showsOrphaned(u"txtName"_s)); // the deleted scene's name, no record's
        for (const QString& entry : {u"menEditSSF"_s, u"menSFFEditor"_s, u"menRBTEditor"_s})
            m_ui->trigger(entry);
        QCOMPARE(m_links.calls, (QStringList{u"ssf act1.ssf"_s, u"ssf -"_s, u"SSF"_s, u"RBT"_s}));
        clickList(0);
        QVERIFY(!m_ui->showsOrphaned(u"txtName"_s));

        // F10, or Alt pressed and released alone, opens the first menu.
        for (const Qt::Key key : {Qt::Key_F10, Qt::Key_Alt}) {
            QTest::keyClick(m_ui->textBox(u"txtName"_s), key);
            QVERIFY(m_ui->find<QMenu>(u"menFile"_s)->isVisible());
            m_ui->find<QMenu>(u"menFile"_s)->hide();
        }

        choose(u"menSaveTSL"_s, u"opening.tsl"_s);
        QCOMPARE(m_dialogs.lastShown().Folder, m_base + u"worlds/"_s);
        QCOMPARE(TestFiles::read(m_base + u"opening.tsl"_s),
                 R"(<play title="Opening" mainworld="..\rez\worlds\Park">)"
                 R"(<scene id="0" name="Act one &amp; more" ssf="..\\rez\\act1.ssf"/></play>)"_ba);
        QCOMPARE(m_window->windowTitle(), u"Troupe Show Listing Manager - opening.tsl"_s);
        choose(u"menSaveTSL"_s, {}); // proposes the name where it was saved
        QCOMPARE(m_dialogs.lastShown().Folder + m_dialogs.lastShown().FileName,
                 m_base + u"opening.tsl"_s);

        m_ui->trigger(u"menNewTSL"_s);
        choose(u"menOpenTSL"_s, u"opening.tsl"_s);
        QCOMPARE(rows(),
                 QStringList{u"Act one & more"_s.leftJustified(33) + u"..\\rez\\act1.ssf"_s});

        // A listing at the limit takes no more scenes, so it still loads.
        m_files->write(u"full.tsl"_s, R"(<play title="" mainworld="">)" +
                                          R"(<scene id="0" name="" ssf=""/>)"_ba.repeated(32767) +
                                          "</play>");
        QVERIFY(m_window->OpenTSL(u"full.tsl"_s));
        m_ui->click(u"Command1"_s);
        QCOMPARE(m_window->Document()->NumScenes(), 32767);
    }

    void failuresLoseNothing_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("file"); // empty: Cancel
        QTest::addColumn<QString>("message");
        QTest::newRow("open of a file cut off") << u"menOpenTSL"_s << u"cut.tsl"_s << u"open"_s;
        QTest::newRow("save cancelled") << u"menSaveTSL"_s << QString() << QString();
        // No room beside a name of 250 characters for the temporary file a save writes first.
        QTest::newRow("save over a file that cannot be replaced")
            << u"menSaveTSL"_s << QString(246, u'n') + u".tsl"_s
            << u"Cannot save TSL file\n%1: no file can be made in its folder"_s;
    }

    void failuresLoseNothing()
    {
        QFETCH(QString, control);
        QFETCH(QString, file);
        QFETCH(QString, message);
        const QStringList files = {u"cut.tsl"_s, QString(246, u'n') + u".tsl"_s, u"two.tsl"_s};
        for (const QString& name : files)
            m_files->write(name, name == files[0] ? TwoScenes.left(80) : TwoScenes);
        choose(u"menOpenTSL"_s, u"two.tsl"_s);
        clickList(1);
        m_ui->type(u"txtTitle"_s, u" edited"_s);
        const clsTSL* document = m_window->Document();
        const QStringList rowsBefore = rows();
        if (files.contains(file) && control == u"menSaveTSL"_s) {
            m_dialogs.answerFile(m_base + file);
            m_dialogs.answerQuestion(true); // another file stands there: replace it
            m_ui->trigger(control);
        } else {
            choose(control, file);
        }
        if (message == u"open"_s)
            message = u"Cannot open the TSL file "_s + m_base + file;
        message.replace(u"%1"_s, m_base + file);
        QCOMPARE(m_dialogs.messages(), message.isEmpty() ? QStringList() : QStringList{message});
        QCOMPARE(m_window->Document(), document);
        QCOMPARE(document->Title, u"Two edited"_s);
        QCOMPARE(rows(), rowsBefore);
        QCOMPARE(list()->ListIndex(), 1);
        QCOMPARE(QDir(m_base).entryList(QDir::Files), files);
        for (const QString& name : files)
            QCOMPARE(TestFiles::read(m_base + name),
                     name == files[0] ? TwoScenes.left(80) : TwoScenes);
    }
};

QTEST_MAIN(tst_frmMainTSL)
#include "tst_frmMainTSL.moc"
