// SPDX-License-Identifier: GPL-3.0-or-later
// The control layer where it behaves otherwise than the Qt widget beneath it.

#include "foundation/controls/ComboBox.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/CommonDialog.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/OptionButton.h"
#include "foundation/controls/QtDialogService.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/WindowDriver.h"

#include <QClipboard>
#include <QDialog>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_Controls : public QObject {
    Q_OBJECT

private:
    // A dialog with one control of each kind, shown and active, made afresh for each test.
    std::unique_ptr<QDialog> m_window;
    TextBox* m_box = nullptr;
    ListBox* m_list = nullptr;
    ComboBox* m_combo = nullptr;
    OptionButton* m_options[2] = {};
    CommandButton* m_buttons[2] = {};

private slots:
    void init()
    {
        mdlGeneral::strCurrentDir.clear();
        m_window = std::make_unique<QDialog>();
        auto* layout = new QVBoxLayout(m_window.get());
        const auto add = [&](auto* control) { return layout->addWidget(control), control; };
        m_box = add(new TextBox(u"txt"_s));
        m_list = add(new ListBox(u"lst"_s));
        m_combo = add(new ComboBox(u"cmb"_s));
        for (int i = 0; i < 2; ++i) {
            m_options[i] = add(new OptionButton(u"chk"_s, u"Option"_s));
            m_buttons[i] = add(new CommandButton(u"Command"_s, u"Button"_s));
        }
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void textBoxDropsControlCharactersTypedOrPastedButNotWrittenByCode()
    {
        QStringList seen;
        connect(m_box, &TextBox::Change, m_box, [&] { seen << m_box->Text(); });
        m_box->setFocus();
        QTest::keyClicks(m_box, u"ab"_s);
        QTest::keyClick(m_box, Qt::Key_Left);
        QGuiApplication::clipboard()->setText(u"1\n2\t3\r\u0001\u001f"_s);
        QTest::keyClick(m_box, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClicks(m_box, u"|"_s); // the cursor stands behind what was pasted
        QCOMPARE(seen, (QStringList{u"a"_s, u"ab"_s, u"a12\t3b"_s, u"a12\t3|b"_s}));
        // A write from code holds what it is given, so writing it back changes nothing; it is
        // not cut at QLineEdit's 32767 characters, nor at MaxLength, which holds for the user.
        const QString written = u"line\nfeed\u0001"_s + QString(40000, u'x');
        m_box->setText(written);
        QCOMPARE(m_box->Text(), written);
        m_box->setMaxLength(3);
        m_box->setText(u"12345"_s);
        QTest::keyClicks(m_box, u"6\b\b\ba7"_s);
        QCOMPARE(m_box->Text(), u"12a"_s);
    }

    void listBoxSelectionStaysUntilClearedRemovedOrWritten()
    {
        QSignalSpy click(m_list, &ListBox::Click);
        for (const QString& row : {u"zero"_s, u"one"_s, u"two"_s})
            m_list->AddItem(row);
        WindowDriver ui(m_window.get());
        ui.pickRow(u"lst"_s, 1);
        QTest::keyClick(m_list, Qt::Key_Space, Qt::ControlModifier); // Qt would deselect the row
        QCOMPARE(m_list->ListIndex(), 1);
        // Removing the selected row leaves none, where Qt selects a neighbour; no Click.
        m_list->RemoveItem(1);
        QCOMPARE(m_list->ListIndex(), -1);
        QCOMPARE(click.count(), 1);
        ui.pickRow(u"lst"_s, 0);
        m_list->setListIndex(0); // also for the row already selected
        m_list->setListIndex(-1);
        QCOMPARE(click.count(), 4);
    }

    void listBoxScrollsToTheEndOfItsWidestRow()
    {
        // How wide a text the horizontal scroll range lets the user see.
        const auto reach = [&] {
            return m_list->horizontalScrollBar()->maximum() + m_list->viewport()->width();
        };
        const auto width = [&](int n) {
            return m_list->fontMetrics().horizontalAdvance(QString(n, u'w'));
        };
        for (const QString& row : {u"zero"_s, u"one"_s, u"two"_s})
            m_list->AddItem(row);
        m_list->setList(1, QString(200, u'w'));
        QTRY_VERIFY(reach() >= width(200));
        QVERIFY(m_list->horizontalScrollBar()->singleStep() < width(10)); // an arrow click
        m_list->AddItem(QString(300, u'w')); // Qt would measure the last row alone
        m_list->AddItem(u"three"_s);
        QTRY_VERIFY(reach() >= width(300));
        m_list->RemoveItem(3);
        QTRY_VERIFY(reach() >= width(200) && reach() < width(300));
        m_list->setList(1, u"one"_s);
        QTRY_COMPARE(m_list->horizontalScrollBar()->maximum(), 0);
    }

    void inputBoxDropsControlCharactersTypedOrPasted()
    {
        QTimer::singleShot(0, [] {
            auto* edit = QApplication::activeModalWidget()->findChild<QLineEdit*>();
            QGuiApplication::clipboard()->setText(u"1\n2\t3\r\u0001"_s);
            QTest::keyClick(edit, Qt::Key_End);
            QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
            QTest::keyClicks(edit, u"|"_s);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        QCOMPARE(QtDialogService().InputBox(u"Name of the joint"_s, u"a\fb"_s), u"ab12\t3|"_s);
    }

    void comboAndOptionButtonsChangeByAPickOrByCodeAlone()
    {
        m_combo->AddItem(u"old"_s); // QComboBox selects the first row added
        QCOMPARE(m_combo->ListIndex(), -1);

        // A user's press raises Click when it turns a button on; code's True always does.
        const auto [a, b] = m_options;
        QSignalSpy clickA(a, &OptionButton::Click), clickB(b, &OptionButton::Click);
        a->setValue(true);
        a->setValue(true);
        a->setValue(false); // Qt keeps the checked button of an exclusive set on
        QVERIFY(!a->Value() && !b->Value());
        QTest::keyClick(b, Qt::Key_Space);
        QTest::keyClick(b, Qt::Key_Space);
        a->setValue(true);
        QVERIFY(!b->Value());
        QCOMPARE(QList<qsizetype>({clickA.count(), clickB.count()}), QList<qsizetype>({3, 1}));
    }

    void enterPressesTheFocusedButtonOrOnlyTheDefaultOne()
    {
        const auto [first, second] = m_buttons;
        QSignalSpy clickFirst(first, &CommandButton::Click),
            clickSecond(second, &CommandButton::Click);
        second->setFocus();
        QTest::keyClick(second, Qt::Key_Return);
        m_box->setFocus(); // Qt would press the button focused last
        QTest::keyClick(m_box, Qt::Key_Return);
        first->setDefault(true);
        QTest::keyClick(m_box, Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(QList<qsizetype>({clickFirst.count(), clickSecond.count()}),
                 QList<qsizetype>({1, 1}));
    }

    void fileDialogsOpenInTheFolderOfTheLastPick()
    {
        ScriptedDialogService scripted;
        CommonDialog one(scripted), other(scripted);
        mdlGeneral::strCurrentDir = u"/shows/"_s; // before the first pick
        scripted.answerFile(u"/shows/scenes/opening.tsl"_s);
        scripted.answerCancel();
        QVERIFY(one.ShowSave());
        QVERIFY(!other.ShowOpen()); // a cancel moves nothing
        QCOMPARE(scripted.shown()[0].Folder + other.Folder(), u"/shows//shows/scenes/"_s);
        QCOMPARE(CommonDialog::QtFilter(u"Pictures|*.bmp;*.dtx|All (*.*)|*.*"_s),
                 u"Pictures (*.bmp *.dtx);;All (*.*)"_s);
    }
};

QTEST_MAIN(tst_Controls)
#include "tst_Controls.moc"
