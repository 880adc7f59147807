// SPDX-License-Identifier: GPL-3.0-or-later
// A monkey over the suite's windows and real documents, from a fixed seed so a failure replays:
// after each event, a list has one row per record and the selected row's box shows its record.

#include "app/Suite.h"
#include "foundation/controls/ListBox.h"
#include "rig/frmMainRBT.h"
#include "show/frmMainTSL.h"
#include "stage/frmMainSSF.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {
constexpr quint32 Seed = 20261123;
constexpr QStringView Alphabet = u"a7 -.&amp;<x>]]>\"'\\é日\t\n\x01\x1f\xffff"; // to escape
QString piece(QRandomGenerator& rng) { return Alphabet.mid(rng.bounded(28)).left(3).toString(); }

template <class T> T* any(QRandomGenerator& rng, const QWidget* window)
{
    QList<T*> found = window->findChildren<T*>();
    found.removeIf([](const T* control) { return !control->isVisible() || !control->isEnabled(); });
    return found.isEmpty() ? nullptr : found[rng.bounded(int(found.size()))];
}

// One random user action on `window`, if any; what was done.
QString act(QRandomGenerator& rng, QWidget* window)
{
    if (!window)
        return {};
    const int kind = rng.bounded(100);
    if (auto* button = any<QAbstractButton>(rng, window); kind < 25 && button) {
        QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
    } else if (auto* list = any<ListBox>(rng, window); kind < 48 && list) {
        if (QListWidgetItem* row = list->item(rng.bounded(list->count() + 2) - 2))
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              (list->scrollToItem(row), list->visualItemRect(row).center()));
        else
            QTest::keyClick(list, rng.bounded(2) ? Qt::Key_Delete : Qt::Key_F2);
    } else if (auto* box = any<QLineEdit>(rng, window); kind < 72 && box) {
        box->setFocus(Qt::MouseFocusReason); // typed, then pasted (control characters and all)
        QTest::sendKeyEvent(QTest::Click, box, Qt::Key_unknown, piece(rng), Qt::NoModifier);
        QGuiApplication::clipboard()->setText(piece(rng)); // or undone
        QTest::keyClick(box, rng.bounded(3) ? Qt::Key_V : Qt::Key_Z, Qt::ControlModifier);
    } else if (auto* entry = any<QAction>(rng, window); kind < 88 && entry) {
        if (entry->objectName() != u"menExit")
            entry->trigger();
    } else if (auto* combo = any<QComboBox>(rng, window); kind < 94 && combo) {
        combo->showPopup(); // its DropDown may refill the list
        combo->hidePopup();
        QTest::keyClick(combo, rng.bounded(2) ? Qt::Key_Down : Qt::Key_Up);
    } else if (auto* tabs = any<QTabBar>(rng, window); tabs) {
        QTest::keyClick(tabs, rng.bounded(2) ? Qt::Key_Left : Qt::Key_Right);
    }
    return u"seed %1, kind %2 on %3"_s.arg(Seed).arg(kind).arg(window->metaObject()->className());
}

// Dialogs answered at random: a file of the filter's kind, any file, a missing one, a cancel.
struct MonkeyDialogs : DialogService {
    MonkeyDialogs(QRandomGenerator& rng, const QString& folder) : rng(rng), folder(folder) {}
    bool ShowSave(CommonDialog& dialog) override { return ShowOpen(dialog); }
    bool ShowOpen(CommonDialog& dialog) override
    {
        const QString ext = rng.bounded(8) ? dialog.Filter.section(u"*."_s, -1) : u"*"_s;
        const QStringList files = QDir(folder).entryList({u"*."_s + ext}, QDir::Files)
                                  << u"missing."_s + ext << QString(); // the null one: a cancel
        const QString file = files[rng.bounded(int(files.size()))];
        dialog.FileName = file.isNull() ? dialog.FileName : folder + u'/' + file;
        return !file.isNull();
    }
    void MsgBox(const QString&) override {}
    QString InputBox(const QString&, const QString&) override { return piece(rng); }
    bool AskYesNo(const QString&) override { return rng.bounded(2); }
    QRandomGenerator& rng;
    const QString folder;
};

// A `list` of `window` without one row per `record`, or a `box` not showing the selected one.
QString wrong(const auto* window, auto record, const char* list, const char* box, auto field)
{
    const auto* document = window->Document();
    const auto* rows = window->template findChild<ListBox*>(QLatin1String(list));
    const int n = rows->count(); // records 0 to n - 1 exist, n not
    if (document && ((n > 0 && !(document->*record)(n - 1)) || (document->*record)(n)))
        return u" %1 has %2 rows."_s.arg(list).arg(n);
    const auto selected = document ? (document->*record)(rows->ListIndex()) : nullptr;
    const auto* shown = window->template findChild<QLineEdit*>(QLatin1String(box));
    return selected && *box && shown->text() != (*selected).*field ? u" stale %1"_s.arg(box)
                                                                   : u""_s;
}
} // namespace

class tst_Monkey : public QObject {
    Q_OBJECT
private slots:
    void randomEventsKeepEveryRowWithItsRecord()
    {
        QTemporaryDir dir; // the example show and its models side by side, changed freely
        const QString ex = TROUPE_EXAMPLES_DIR "/"_L1;
        QVERIFY(QDir(dir.path()).mkdir(u"models"_s));
        for (const auto& [from, to] :
             {std::pair{u""_s, u""_s}, {u"models/"_s, u"models/"_s}, {u"models/"_s, u""_s}})
            for (const QString& name : QDir(ex + from).entryList(QDir::Files))
                QVERIFY(QFile::copy(ex + from + name, dir.filePath(to + name)));
        QRandomGenerator rng(Seed);
        Suite suite(std::make_unique<MonkeyDialogs>(rng, dir.path()));
        for (const char* file : {"midnight.tsl", "act2.ssf", "dancer.rbt"}) // first: the base
            suite.OpenFiles({dir.filePath(QLatin1String(file))},
                            [](const QString& line) { QFAIL(qPrintable(line)); });
        QWidgetList windows = QApplication::topLevelWidgets(); // the managers, never closed
        windows.removeIf([](const QWidget* top) { return !qobject_cast<const QMainWindow*>(top); });
        std::ranges::sort(windows, {}, &QObject::objectName); // a fixed order, for the replay
        const auto* r = static_cast<frmMainRBT*>(windows[0]);
        const auto* s = static_cast<frmMainSSF*>(windows[1]);
        const auto* t = static_cast<frmMainTSL*>(windows[2]);
        QTimer modal; // works frmNewRBT inside its modal loop, one action a turn, till it closes
        modal.callOnTimeout([&] { act(rng, QApplication::activeModalWidget()); });
        modal.start(0);
        for (int i = 0; i < 20000; ++i) {
            const QString event = act(rng, windows[rng.bounded(3)]);
            QCoreApplication::processEvents();
            const QString fault =
                wrong(r, &clsRBT::Joints, "lstJoints", "txtMin", &clsJoint::Min) +
                wrong(r, &clsRBT::Animations, "lstAnimations", "", &clsAnimation::Name) +
                wrong(s, &clsSSF::Puppets, "lstPuppets", "txtRBT", &clsPuppet::RBT) +
                wrong(s, &clsSSF::Sounds, "lstSounds", "txtNameSound", &clsSound::Name) +
                wrong(s, &clsSSF::Cameras, "lstCameras", "txtCamera", &clsCamera::Name) +
                wrong(t, &clsTSL::Scenes, "lstScenes", "txtName", &clsScene::Name);
            QVERIFY2(fault.isEmpty(), qPrintable(u"event %1, %2:%3"_s.arg(i).arg(event, fault)));
        }
    }
};

QTEST_MAIN(tst_Monkey)
#include "tst_Monkey.moc"
