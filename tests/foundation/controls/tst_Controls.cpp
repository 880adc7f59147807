// The control layer where it behaves otherwise than the Qt widget beneath it, driven by keys
// and clicks as a user gives them.

#include "foundation/controls/ComboBox.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/CommonDialog.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/ManagerWindow.h"
#include "foundation/controls/OptionButton.h"
#include "foundation/controls/QtDialogService.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "tests/support/ScriptedDialogService.h"

#include <QClipboard>
#include <QDialog>
#include <QFileDialog>
#include <QMainWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

using namespace Qt::StringLiterals;

// A shown dialog holding the controls of one test, one below the other.
struct Shown : QDialog {
    template <class T, class... Caption> T* add(const Caption&... caption)
    {
        auto* control = new T(u"c"_s, caption..., this);
        layout()->addWidget(control);
        return control;
    }
    void showActive()
    {
        show();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }
    Shown() { setLayout(new QVBoxLayout); }
};

class tst_Controls : public QObject {
    Q_OBJECT

private slots:
    void init() { mdlGeneral::strCurrentDir.clear(); }
    void textBoxDropsControlCharactersTypedOrPastedButNotWrittenByCode();
    void listBoxSelectionStaysUntilClearedRemovedOrWritten();
    void comboAndOptionButtonsChangeOnlyByAPickOrByCode();
    void enterPressesTheFocusedButtonOrOnlyTheDefaultOne();
    void fileDialogsOpenInTheFolderOfTheLastPick();
    void managerWindowKeepsItsSizeAndOpensMenusFromTheKeyboard();
};

void tst_Controls::textBoxDropsControlCharactersTypedOrPastedButNotWrittenByCode()
{
    Shown shown;
    TextBox* box = shown.add<TextBox>();
    shown.showActive();
    QStringList seen;
    connect(box, &TextBox::Change, box, [&] { seen << box->Text(); });
    QTest::keyClicks(box, u"ab"_s);
    QTest::keyClick(box, Qt::Key_Left);
    QGuiApplication::clipboard()->setText(u"1\n2\t3\r\u0001\u001f"_s);
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClicks(box, u"|"_s); // the cursor stands behind what was pasted
    QCOMPARE(seen, (QStringList{u"a"_s, u"ab"_s, u"a12\t3b"_s, u"a12\t3|b"_s}));
    // A write from code holds what it is given, so writing it back changes nothing.
    box->setText(u"line\nfeed\u0001"_s);
    QCOMPARE(box->Text(), u"line\nfeed\u0001"_s);
    // No cut at QLineEdit's 32767; MaxLength holds for the user only.
    box->setText(QString(40000, u'x'));
    QCOMPARE(box->Text().size(), 40000);
    box->setMaxLength(3);
    box->setText(u"12345"_s);
    QTest::keyClicks(box, u"6\b\b\ba7"_s);
    QCOMPARE(box->Text(), u"12a"_s);
}

void tst_Controls::listBoxSelectionStaysUntilClearedRemovedOrWritten()
{
    Shown shown;
    ListBox* list = shown.add<ListBox>();
    shown.showActive();
    QSignalSpy click(list, &ListBox::Click);
    QSignalSpy keyDown(list, &ListBox::KeyDown);
    for (const QString& row : {u"zero"_s, u"one"_s, u"two"_s})
        list->AddItem(row);
    const auto clickAt = [&](int row, Qt::KeyboardModifiers keys = {}) {
        const QPoint blank(20, list->viewport()->height() - 5);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, keys,
                          row < 0 ? blank : list->visualItemRect(list->item(row)).center());
    };
    QCOMPARE(list->ListIndex(), -1);
    clickAt(1);
    QCOMPARE(click.count(), 1);
    // Qt would empty the selection on each of these.
    clickAt(-1);
    clickAt(1, Qt::ControlModifier);
    QTest::keyClick(list, Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(list->ListIndex(), 1);
    // Removing the selected row leaves none, where Qt selects a neighbour.
    list->RemoveItem(1);
    QCOMPARE(list->ListIndex(), -1);
    QCOMPARE(click.count(), 1);
    clickAt(0);
    list->setListIndex(0); // also for the row already selected
    list->setListIndex(-1);
    QCOMPARE(click.count(), 4);
    keyDown.clear();
    QTest::keyClick(list, Qt::Key_Delete);
    QTest::keyClick(list, Qt::Key_F2);
    QCOMPARE(keyDown, (QList<QVariantList>{{46}, {113}}));
}

void tst_Controls::comboAndOptionButtonsChangeOnlyByAPickOrByCode()
{
    Shown shown;
    ComboBox* combo = shown.add<ComboBox>();
    OptionButton* a = shown.add<OptionButton>(u"a"_s);
    OptionButton* b = shown.add<OptionButton>(u"b"_s);
    shown.showActive();
    QSignalSpy click(combo, &ComboBox::Click);
    combo->AddItem(u"old"_s); // QComboBox selects the first row added
    QCOMPARE(combo->ListIndex(), -1);
    // DropDown comes before the list opens, so its handler can refill the list.
    connect(combo, &ComboBox::DropDown, combo, [combo] {
        combo->Clear();
        combo->AddItem(u"Main"_s);
        combo->AddItem(u"Side"_s);
        combo->setItemData(1, 9);
    });
    combo->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(combo->view()->window()));
    combo->view()->setCurrentIndex(combo->view()->model()->index(1, 0));
    QTest::keyClick(combo->view(), Qt::Key_Return);
    QCOMPARE(click.count(), 1);
    QCOMPARE(combo->ItemData(combo->ListIndex()), 9);

    QSignalSpy clickA(a, &OptionButton::Click);
    a->setValue(true);
    a->setValue(false); // Qt keeps the checked button of an exclusive set on
    QVERIFY(!a->Value() && !b->Value());
    b->setValue(true);
    a->setValue(true);
    QVERIFY(!b->Value());
    QCOMPARE(clickA.count(), 2);
}

void tst_Controls::enterPressesTheFocusedButtonOrOnlyTheDefaultOne()
{
    Shown shown;
    TextBox* box = shown.add<TextBox>();
    CommandButton* first = shown.add<CommandButton>(u"OK"_s);
    CommandButton* second = shown.add<CommandButton>(u"Add scene..."_s);
    shown.showActive();
    QSignalSpy clickFirst(first, &CommandButton::Click);
    QSignalSpy clickSecond(second, &CommandButton::Click);
    second->setFocus();
    QTest::keyClick(second, Qt::Key_Return);
    QCOMPARE(clickSecond.count(), 1);
    // Qt would press the button focused last from a text box in a dialog.
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    first->setDefault(true);
    QTest::keyClick(box, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(clickFirst.count(), 1);
    QCOMPARE(clickSecond.count(), 1);
}

void tst_Controls::fileDialogsOpenInTheFolderOfTheLastPick()
{
    ScriptedDialogService scripted;
    CommonDialog one(scripted);
    CommonDialog other(scripted);
    QCOMPARE(one.Folder(), QDir::toNativeSeparators(QDir::currentPath() + u'/'));
    mdlGeneral::strCurrentDir = u"/shows/"_s;
    scripted.answerFile(u"/shows/scenes/opening.tsl"_s);
    scripted.answerCancel();
    QVERIFY(one.ShowSave());
    QVERIFY(!other.ShowOpen()); // a cancel moves nothing
    QCOMPARE(scripted.shown()[0].Folder, u"/shows/"_s);
    QCOMPARE(other.Folder(), u"/shows/scenes/"_s);
    QCOMPARE(CommonDialog::QtFilter(u"Pictures|*.bmp;*.dtx|All (*.*)|*.*"_s),
             u"Pictures (*.bmp *.dtx);;All (*.*)"_s);

    // The real dialog proposes a bare name in that folder, with room for its columns.
    QTemporaryDir dir;
    mdlGeneral::strCurrentDir = QDir::toNativeSeparators(dir.path() + u'/');
    QtDialogService real;
    CommonDialog dialog(real);
    dialog.FileName = u"opening.tsl"_s;
    QString folder;
    int width = 0;
    QTimer user; // finds the dialog once it is up and takes the name with Enter
    int ticks = 0;
    connect(&user, &QTimer::timeout, this, [&] {
        auto* shown = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (shown && !shown->isActiveWindow() && ++ticks < 250)
            return;
        user.stop();
        QVERIFY(shown && shown->isActiveWindow());
        folder = shown->directory().absolutePath();
        width = shown->width();
        QTest::keyClick(shown->focusWidget(), Qt::Key_Return);
    });
    user.start(20);
    QVERIFY(dialog.ShowSave());
    QCOMPARE(folder, dir.path());
    QVERIFY(width >= 800);
    QCOMPARE(dialog.FileName, QDir::toNativeSeparators(dir.filePath(u"opening.tsl"_s)));
}

void tst_Controls::managerWindowKeepsItsSizeAndOpensMenusFromTheKeyboard()
{
    QMainWindow window;
    QMenu* file = window.menuBar()->addMenu(u"File"_s);
    file->addAction(u"New"_s);
    QMenu* scene = window.menuBar()->addMenu(u"Scene"_s);
    auto* box = new TextBox(u"txtTitle"_s, &window);
    window.setCentralWidget(box);
    ManagerWindow::SetUp(window, QSize(500, 400));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.resize(200, 150);
    QCOMPARE(window.size(), QSize(500, 400));

    box->setFocus();
    const auto opened = [&] {
        const bool visible = file->isVisible();
        file->hide();
        return visible;
    };
    QTest::keyClick(box, Qt::Key_F10);
    QVERIFY(opened());
    QTest::keyClick(box, Qt::Key_Alt);
    QVERIFY(opened());
    QTest::keyPress(box, Qt::Key_Alt); // Alt held for another key
    QTest::keyClick(box, Qt::Key_X, Qt::AltModifier);
    QTest::keyRelease(box, Qt::Key_Alt);
    QVERIFY(!opened());
    QTest::keyClick(box, Qt::Key_F10);
    QTest::keyClick(file, Qt::Key_Right);
    QVERIFY(scene->isVisible());
}

QTEST_MAIN(tst_Controls)
#include "tst_Controls.moc"
