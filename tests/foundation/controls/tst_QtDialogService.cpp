// Part 1.3 and design.md 3: the real standard dialogs, shown modally and answered here as a
// user would, by a timer that finds the modal dialog.

#include "foundation/controls/CommonDialog.h"
#include "foundation/controls/QtDialogService.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <functional>

namespace {

// Waits (within the modal loop of the dialog about to be shown) for a modal dialog of type
// T, hands it to `answer`, and records that it came.
template <class T> class WhenShown {
public:
    explicit WhenShown(std::function<void(T*)> answer) : m_answer(std::move(answer))
    {
        m_timer.setInterval(20);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            auto* dialog = qobject_cast<T*>(QApplication::activeModalWidget());
            // Keys reach the dialog as a user's only once it is the active window.
            if (!dialog || !dialog->isVisible() || !dialog->isActiveWindow()) {
                // A dialog that never comes up right fails the test instead of hanging it.
                if (++m_ticks > 500) {
                    m_timer.stop();
                    if (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                        modal->reject();
                }
                return;
            }
            m_timer.stop();
            m_seen = true;
            m_answer(dialog);
        });
        m_timer.start();
    }
    bool seen() const { return m_seen; }

private:
    std::function<void(T*)> m_answer;
    QTimer m_timer;
    bool m_seen = false;
    int m_ticks = 0;
};

// Types a name into the file dialog's name box and presses its accepting button, as a user.
void typeFileNameAndAccept(QFileDialog* dialog, const QString& name)
{
    auto* nameBox = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QVERIFY(nameBox);
    nameBox->clear();
    QTest::keyClicks(nameBox, name);
    QTest::keyClick(nameBox, Qt::Key_Return);
}

} // namespace

class tst_QtDialogService : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void showOpenGivesTheFullPathOfATypedName();
    void showOpenShowsTheFilterInQtsForm();
    void aCancelOfShowOpenLeavesFileNameAndGivesFalse();
    void showSaveAddsDefaultExtAndOverwritesWithoutQuestion();
    void showSaveStartsFromTheFileNamePreset();
    void msgBoxHasTheApplicationsNameAsTitleAndOkOnly();
    void inputBoxGivesTheTypedTextOrEmptyOnCancel();

private:
    QTemporaryDir m_dir;
};

void tst_QtDialogService::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Troupe"));
    QVERIFY(m_dir.isValid());
}

void tst_QtDialogService::showOpenGivesTheFullPathOfATypedName()
{
    QtDialogService service;
    CommonDialog dialog(service);
    const QString missing = m_dir.filePath(QStringLiteral("missing.tsl"));
    WhenShown<QFileDialog> user([&](QFileDialog* d) { typeFileNameAndAccept(d, missing); });
    // A name that does not exist is taken: the open command shows its own message then.
    QVERIFY(dialog.ShowOpen());
    QVERIFY(user.seen());
    QCOMPARE(dialog.FileName, QDir::toNativeSeparators(missing));
}

void tst_QtDialogService::showOpenShowsTheFilterInQtsForm()
{
    QtDialogService service;
    CommonDialog dialog(service);
    dialog.Filter = QStringLiteral("Troupe Show Listing Files (*.tsl)|*.tsl");
    QStringList filters;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptSave;
    WhenShown<QFileDialog> user([&](QFileDialog* d) {
        filters = d->nameFilters();
        mode = d->acceptMode();
        d->reject();
    });
    QVERIFY(!dialog.ShowOpen());
    QVERIFY(user.seen());
    QCOMPARE(filters, QStringList{QStringLiteral("Troupe Show Listing Files (*.tsl)")});
    QCOMPARE(mode, QFileDialog::AcceptOpen);
}

void tst_QtDialogService::aCancelOfShowOpenLeavesFileNameAndGivesFalse()
{
    QtDialogService service;
    CommonDialog dialog(service);
    dialog.FileName = QStringLiteral("before.tsl");
    WhenShown<QFileDialog> user([](QFileDialog* d) {
        auto* buttons = d->findChild<QDialogButtonBox*>();
        QVERIFY(buttons);
        QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    });
    QVERIFY(!dialog.ShowOpen());
    QVERIFY(user.seen());
    QCOMPARE(dialog.FileName, QStringLiteral("before.tsl"));
}

void tst_QtDialogService::showSaveAddsDefaultExtAndOverwritesWithoutQuestion()
{
    const QString existing = m_dir.filePath(QStringLiteral("show.tsl"));
    {
        QFile file(existing);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("old");
    }
    QtDialogService service;
    CommonDialog dialog(service);
    dialog.DefaultExt = QStringLiteral(".tsl");
    QString suffix;
    WhenShown<QFileDialog> user([&](QFileDialog* d) {
        suffix = d->defaultSuffix();
        QVERIFY(d->testOption(QFileDialog::DontConfirmOverwrite));
        // Typed without the extension: the default suffix finds the existing file.
        typeFileNameAndAccept(d, m_dir.filePath(QStringLiteral("show")));
    });
    QVERIFY(dialog.ShowSave());
    QVERIFY(user.seen());
    QCOMPARE(suffix, QStringLiteral("tsl"));
    QCOMPARE(dialog.FileName, QDir::toNativeSeparators(existing));
    QVERIFY(!QApplication::activeModalWidget()); // no question about overwriting
}

void tst_QtDialogService::showSaveStartsFromTheFileNamePreset()
{
    QtDialogService service;
    CommonDialog dialog(service);
    dialog.FileName = m_dir.filePath(QStringLiteral("preset.tsl"));
    QString shownName;
    WhenShown<QFileDialog> user([&](QFileDialog* d) {
        auto* nameBox = d->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QVERIFY(nameBox);
        shownName = nameBox->text();
        QTest::keyClick(nameBox, Qt::Key_Return);
    });
    QVERIFY(dialog.ShowSave());
    QVERIFY(user.seen());
    QCOMPARE(shownName, QStringLiteral("preset.tsl"));
    QCOMPARE(dialog.FileName, QDir::toNativeSeparators(m_dir.filePath(QStringLiteral("preset.tsl"))));
}

void tst_QtDialogService::msgBoxHasTheApplicationsNameAsTitleAndOkOnly()
{
    QtDialogService service;
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    WhenShown<QMessageBox> user([&](QMessageBox* box) {
        title = box->windowTitle();
        text = box->text();
        buttons = box->standardButtons();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    service.MsgBox(QStringLiteral("Cannot save TSL file"));
    QVERIFY(user.seen());
    QCOMPARE(title, QStringLiteral("Troupe"));
    QCOMPARE(text, QStringLiteral("Cannot save TSL file"));
    QCOMPARE(buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void tst_QtDialogService::inputBoxGivesTheTypedTextOrEmptyOnCancel()
{
    QtDialogService service;
    QString prompt;
    QString shownDefault;
    {
        WhenShown<QInputDialog> user([&](QInputDialog* d) {
            prompt = d->labelText();
            shownDefault = d->textValue();
            auto* box = d->findChild<QLineEdit*>();
            QVERIFY(box);
            QTest::keyClick(box, Qt::Key_End);
            QTest::keyClicks(box, QStringLiteral(" left"));
            QTest::keyClick(box, Qt::Key_Return);
        });
        QCOMPARE(service.InputBox(QStringLiteral("Name of the joint"),
                                  QStringLiteral("rotate Head")),
                 QStringLiteral("rotate Head left"));
        QVERIFY(user.seen());
        QCOMPARE(prompt, QStringLiteral("Name of the joint"));
        QCOMPARE(shownDefault, QStringLiteral("rotate Head"));
    }
    {
        WhenShown<QInputDialog> user([](QInputDialog* d) { d->reject(); });
        QCOMPARE(service.InputBox(QStringLiteral("Name of the animation"), QStringLiteral("walk")),
                 QString());
        QVERIFY(user.seen());
    }
}

QTEST_MAIN(tst_QtDialogService)
#include "tst_QtDialogService.moc"
