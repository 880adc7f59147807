// Part 1.3: `TextBox`, and the first row of design.md section 3.

#include "foundation/controls/TextBox.h"

#include <QSignalSpy>
#include <QtTest>

class tst_TextBox : public QObject {
    Q_OBJECT

private slots:
    void writingADifferentTextRaisesChangeBeforeTheWriteReturns();
    void writingTheSameTextRaisesNoChange();
    void typingRaisesChangeForEachKey();
    void lockedStopsTheUserNotTheCode();
    void maxLengthLimitsTypingButNotTheCode();
    void withoutMaxLengthALongTextFromCodeIsNotCut();
    void setFocusGivesTheBoxTheFocus();
    void carriesItsSpecName();
};

void tst_TextBox::writingADifferentTextRaisesChangeBeforeTheWriteReturns()
{
    TextBox box(QStringLiteral("txtTitle"));
    QStringList seenInChange;
    connect(&box, &TextBox::Change, &box, [&] { seenInChange << box.Text(); });

    box.setText(QStringLiteral("Opening"));
    // The handler has run, and seen the new text, before setText returned.
    QCOMPARE(seenInChange, QStringList{QStringLiteral("Opening")});
    QCOMPARE(box.Text(), QStringLiteral("Opening"));

    box.setText(QString());
    QCOMPARE(seenInChange, (QStringList{QStringLiteral("Opening"), QString()}));
}

void tst_TextBox::writingTheSameTextRaisesNoChange()
{
    TextBox box(QStringLiteral("txtTitle"));
    box.setText(QStringLiteral("Opening"));
    QSignalSpy change(&box, &TextBox::Change);
    box.setText(QStringLiteral("Opening"));
    QCOMPARE(change.count(), 0);
    box.setText(QStringLiteral("opening"));
    QCOMPARE(change.count(), 1);
}

void tst_TextBox::typingRaisesChangeForEachKey()
{
    TextBox box(QStringLiteral("txtName"));
    QStringList seen;
    connect(&box, &TextBox::Change, &box, [&] { seen << box.Text(); });
    QTest::keyClicks(&box, QStringLiteral("Act"));
    QCOMPARE(seen, (QStringList{QStringLiteral("A"), QStringLiteral("Ac"), QStringLiteral("Act")}));
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(seen.last(), QStringLiteral("Ac"));
}

void tst_TextBox::lockedStopsTheUserNotTheCode()
{
    TextBox box(QStringLiteral("txtSSF"));
    box.setLocked(true);
    QVERIFY(box.Locked());
    QSignalSpy change(&box, &TextBox::Change);

    QTest::keyClicks(&box, QStringLiteral("typed"));
    QCOMPARE(box.Text(), QString());
    QCOMPARE(change.count(), 0);

    box.setText(QStringLiteral("..\\rez\\act1.ssf"));
    QCOMPARE(box.Text(), QStringLiteral("..\\rez\\act1.ssf"));
    QCOMPARE(change.count(), 1);
}

void tst_TextBox::maxLengthLimitsTypingButNotTheCode()
{
    TextBox box(QStringLiteral("txtPort"));
    QCOMPARE(box.MaxLength(), 0);
    box.setMaxLength(3);
    QTest::keyClicks(&box, QStringLiteral("12345"));
    QCOMPARE(box.Text(), QStringLiteral("123"));

    box.setText(QStringLiteral("123456"));
    QCOMPARE(box.Text(), QStringLiteral("123456"));
    // The user may shorten what the code wrote.
    QTest::keyClick(&box, Qt::Key_End);
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(box.Text(), QStringLiteral("12345"));
}

void tst_TextBox::withoutMaxLengthALongTextFromCodeIsNotCut()
{
    // Plain QLineEdit cuts at 32767 characters; the original's text box does not.
    TextBox box(QStringLiteral("txtName"));
    const QString longText(40000, u'x');
    box.setText(longText);
    QCOMPARE(box.Text().size(), longText.size());
    QTest::keyClick(&box, Qt::Key_End);
    QTest::keyClicks(&box, QStringLiteral("y"));
    QCOMPARE(box.Text().size(), longText.size() + 1);
}

void tst_TextBox::setFocusGivesTheBoxTheFocus()
{
    QWidget window;
    auto* first = new TextBox(QStringLiteral("txtA"), &window);
    auto* second = new TextBox(QStringLiteral("txtB"), &window);
    second->move(0, 40);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first->SetFocus();
    QTRY_VERIFY(first->hasFocus());
    second->SetFocus();
    QTRY_VERIFY(second->hasFocus());
}

void tst_TextBox::carriesItsSpecName()
{
    const TextBox box(QStringLiteral("txtWorld"));
    QCOMPARE(box.objectName(), QStringLiteral("txtWorld"));
}

QTEST_MAIN(tst_TextBox)
#include "tst_TextBox.moc"
