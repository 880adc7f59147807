// The show listing window driven as a user would: one session from New to a failed open, and
// the failures that must lose nothing.

#include "foundation/controls/ListBox.h"
#include "foundation/controls/SuiteLinks.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "show/frmMainTSL.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/WindowDriver.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString Caption = u"Troupe Show Listing Manager - "_s;

// The other managers as the window reaches them.
struct Links : SuiteLinks {
    QStringList calls;
    void ShowRBTManager() override { calls << u"RBT"_s; }
    void ShowSSFManager() override { calls << u"SSF"_s; }
    void ShowTSLManager() override { calls << u"TSL"_s; }
    void EditRBT(const std::optional<QString>&) override { calls << u"EditRBT"_s; }
    void EditSSF(const std::optional<QString>& name) override
    {
        calls << u"EditSSF "_s + name.value_or(u"-"_s);
    }
};

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "<no file>";
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

} // namespace

class tst_frmMainTSL : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void session();
    void failuresLoseNothing_data();
    void failuresLoseNothing();

private:
    QString path(const QString& name) const
    {
        return QDir::toNativeSeparators(m_dir->filePath(name));
    }
    // A folder of the test's directory as a file dialog opens in it, with its separator.
    QString folder(const QString& sub = {}) const
    {
        return path(sub.isEmpty() ? u"x"_s : sub + u"/x"_s).chopped(1);
    }
    ListBox* list() const { return m_ui->listBox(u"lstScenes"_s); }
    TextBox* box(const QString& name) const { return m_ui->textBox(name); }
    QStringList rows() const
    {
        QStringList texts;
        for (int i = 0; i < list()->ListCount(); ++i)
            texts << list()->List(i);
        return texts;
    }
    void answer(const QString& file, const QString& command)
    {
        file.isEmpty() ? m_dialogs.answerCancel() : m_dialogs.answerFile(path(file));
        m_ui->trigger(command);
    }
    void press(const QString& button, const QString& file)
    {
        m_dialogs.answerFile(path(file));
        m_ui->click(button);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    ScriptedDialogService m_dialogs;
    Links m_links;
    std::unique_ptr<frmMainTSL> m_window;
    std::unique_ptr<WindowDriver> m_ui;
};

void tst_frmMainTSL::init()
{
    mdlGeneral::strCurrentDir.clear();
    m_dir = std::make_unique<QTemporaryDir>();
    m_dialogs.reset();
    m_links.calls.clear();
    m_window = std::make_unique<frmMainTSL>(m_dialogs, &m_links);
    m_ui = std::make_unique<WindowDriver>(m_window.get());
}

void tst_frmMainTSL::cleanup()
{
    QCOMPARE(m_dialogs.pendingAnswers(), 0);
    m_ui.reset();
    m_window.reset();
}

void tst_frmMainTSL::session()
{
    QVERIFY(QDir(m_dir->path()).mkdir(u"worlds"_s));
    m_ui->trigger(u"menNewTSL"_s);
    m_ui->type(u"txtTitle"_s, u"Opening"_s);
    m_ui->find<QWidget>(u"Command1"_s)->setFocus();
    m_ui->pressKey(u"Command1"_s, Qt::Key_Return); // "Add scene..." from the keyboard
    m_ui->type(u"txtName"_s, u"Act one"_s);
    press(u"Command3"_s, u"act1.ssf"_s);
    QCOMPARE(m_dialogs.lastShown().Folder, QDir::toNativeSeparators(QDir::currentPath() + u'/'));
    press(u"Command5"_s, u"worlds/Park.dat"_s);
    QCOMPARE(m_dialogs.lastShown().Folder, folder()); // the folder of the last pick
    m_ui->click(u"Command1"_s);
    m_ui->type(u"txtName"_s, u"Finale"_s);
    QCOMPARE(rows(), (QStringList{u"Act one"_s.leftJustified(33) + u"..\\rez\\act1.ssf"_s,
                                  u"Finale"_s.leftJustified(33)}));

    // The selected row stays through a click on the blank part and a Ctrl+click, so the
    // typing that follows reaches its scene.
    m_ui->pickRow(u"lstScenes"_s, 0);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, QPoint(5, list()->height() - 10));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list()->visualItemRect(list()->item(0)).center());
    m_ui->type(u"txtName"_s, u" & more"_s);
    m_ui->trigger(u"menEditSSF"_s);
    m_ui->pickRow(u"lstScenes"_s, 1);
    m_ui->pressKey(u"lstScenes"_s, Qt::Key_Delete);
    m_ui->trigger(u"menEditSSF"_s);
    m_ui->trigger(u"menSFFEditor"_s);
    m_ui->trigger(u"menRBTEditor"_s);
    QCOMPARE(m_links.calls,
             (QStringList{u"EditSSF act1.ssf"_s, u"EditSSF -"_s, u"SSF"_s, u"RBT"_s}));

    // Room gained goes to the list and the text boxes.
    const QSize listSize = list()->size();
    const int boxWidth = box(u"txtName"_s)->width();
    m_window->resize(m_window->size() + QSize(200, 150));
    QTRY_VERIFY(list()->width() > listSize.width() && list()->height() > listSize.height());
    QVERIFY(box(u"txtName"_s)->width() > boxWidth);

    const QByteArray saved =
        R"(<play title="Opening" mainworld="..\rez\worlds\Park">)"
        R"(<scene id="0" name="Act one &amp; more" ssf="..\\rez\\act1.ssf"/></play>)";
    answer(u"opening.tsl"_s, u"menSaveTSL"_s);
    QCOMPARE(m_dialogs.lastShown().Folder, folder(u"worlds"_s));
    QCOMPARE(readFile(path(u"opening.tsl"_s)), saved);
    QCOMPARE(m_window->windowTitle(), Caption + u"opening.tsl"_s);
    // The next save proposes the name where it was saved; Cancel writes nothing.
    answer({}, u"menSaveTSL"_s);
    QCOMPARE(m_dialogs.lastShown().Folder, folder());
    QCOMPARE(m_dialogs.lastShown().FileName, u"opening.tsl"_s);

    m_ui->trigger(u"menNewTSL"_s);
    answer(u"opening.tsl"_s, u"menOpenTSL"_s);
    QCOMPARE(rows(), QStringList{u"Act one & more"_s.leftJustified(33) + u"..\\rez\\act1.ssf"_s});
    QCOMPARE(box(u"txtWorld"_s)->Text(), u"..\\rez\\worlds\\Park"_s);
    const clsTSL* opened = m_window->Document();
    writeFile(path(u"broken.tsl"_s), saved.left(60));
    answer(u"broken.tsl"_s, u"menOpenTSL"_s);
    QCOMPARE(m_dialogs.messages(),
             QStringList{u"Cannot open the TSL file "_s + folder() + u"broken.tsl"_s});
    QCOMPARE(m_window->Document(), opened);
    QCOMPARE(m_window->windowTitle(), Caption + u"opening.tsl"_s);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files),
             (QStringList{u"broken.tsl"_s, u"opening.tsl"_s}));
    QCOMPARE(readFile(path(u"opening.tsl"_s)), saved);

    // A listing at the limit takes no more scenes, so it still loads.
    QByteArray full = R"(<play title="" mainworld="">)";
    for (int i = 0; i < 32767; ++i)
        full += R"(<scene id=")" + QByteArray::number(i) + R"(" name="" ssf=""/>)";
    writeFile(path(u"full.tsl"_s), full + "</play>");
    QVERIFY(m_window->OpenTSL(u"full.tsl"_s));
    m_ui->click(u"Command1"_s);
    QCOMPARE(m_window->Document()->NumScenes(), 32767);
    QCOMPARE(list()->ListCount(), 32767);
}

void tst_frmMainTSL::failuresLoseNothing_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file"); // empty: Cancel
    QTest::addColumn<QString>("message");
    // No room for the temporary name a save writes first beside a file of 250 characters.
    const QString longName = QString(246, u'n') + u".tsl"_s;
    QTest::newRow("open of a missing file") << u"menOpenTSL"_s << u"none.tsl"_s << u"open"_s;
    QTest::newRow("open of a file cut off") << u"menOpenTSL"_s << u"cut.tsl"_s << u"open"_s;
    QTest::newRow("open cancelled") << u"menOpenTSL"_s << QString() << QString();
    QTest::newRow("save cancelled") << u"menSaveTSL"_s << QString() << QString();
    QTest::newRow("save over a file that cannot be replaced")
        << u"menSaveTSL"_s << longName << u"Cannot save TSL file"_s;
}

void tst_frmMainTSL::failuresLoseNothing()
{
    QFETCH(QString, command);
    QFETCH(QString, file);
    QFETCH(QString, message);
    const QByteArray listing = R"(<play title="Two" mainworld="..\rez\worlds\park">)"
                               R"(<scene id="0" name="A" ssf="..\\rez\\a.ssf"/>)"
                               R"(<scene id="1" name="B" ssf="..\\rez\\b.ssf"/></play>)";
    writeFile(path(u"two.tsl"_s), listing);
    writeFile(path(u"cut.tsl"_s), listing.left(80));
    writeFile(path(QString(246, u'n') + u".tsl"_s), listing);
    answer(u"two.tsl"_s, u"menOpenTSL"_s);
    m_ui->pickRow(u"lstScenes"_s, 1);
    m_ui->type(u"txtTitle"_s, u" edited"_s);
    const QStringList rowsBefore = rows();
    const clsTSL* document = m_window->Document();
    const QStringList files =
        QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);

    answer(file, command);
    if (message == u"open"_s)
        message = u"Cannot open the TSL file "_s + folder() + file;
    QCOMPARE(m_dialogs.messages(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(m_window->Document(), document);
    QCOMPARE(document->Title, u"Two edited"_s);
    QCOMPARE(rows(), rowsBefore);
    QCOMPARE(list()->ListIndex(), 1);
    QCOMPARE(m_window->windowTitle(), Caption + u"two.tsl"_s);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), files);
    for (const QString& name : files)
        QCOMPARE(readFile(path(name)), name == u"cut.tsl"_s ? listing.left(80) : listing);
}

QTEST_MAIN(tst_frmMainTSL)
#include "tst_frmMainTSL.moc"
