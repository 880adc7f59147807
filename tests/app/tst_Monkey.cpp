// A monkey over the suite: random clicks, keys, texts, menu commands and dialog answers over real
// documents from a fixed seed, so a failure replays (MONKEY_LOG=1 numbers the events). After each
// one, every list of a document has one row per record and the box beside a selected row shows it.

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
// Texts a file must escape, control characters, non-ASCII; past its end, nothing.
constexpr QStringView Alphabet = u"a7 -.&amp;<x>]]>\"'\\é日\t\n\x01\x1f\xffff";
QString piece(QRandomGenerator& rng) { return Alphabet.mid(rng.bounded(28)).left(3).toString(); }

// A random visible, enabled control of type T in `window` (also into `on`), or none.
template <class T> T* any(QRandomGenerator& rng, const QWidget* window, QObject*& on)
{
    QList<T*> found = window->findChildren<T*>();
    found.removeIf([](const T* control) { return !control->isVisible() || !control->isEnabled(); });
    return static_cast<T*>(on = found.isEmpty() ? nullptr : found[rng.bounded(int(found.size()))]);
}

// One random user action on `window` (none for no window); what was done.
QString act(QRandomGenerator& rng, QWidget* window)
{
    const int kind = rng.bounded(100);
    QObject* on = window;
    if (auto* button = any<QAbstractButton>(rng, window, on); kind < 25 && button) {
        QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
    } else if (auto* list = any<ListBox>(rng, window, on); kind < 48 && list) {
        const Qt::Key keys[] = {Qt::Key_Delete, Qt::Key_F2, Qt::Key_Up, Qt::Key_Down, Qt::Key_End};
        if (QListWidgetItem* row = list->item(rng.bounded(list->count() + 5) - 5))
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              (list->scrollToItem(row), list->visualItemRect(row).center()));
        else
            QTest::keyClick(list, keys[rng.bounded(5)]);
    } else if (auto* box = any<QLineEdit>(rng, window, on); kind < 72 && box) {
        // Typed text, Ctrl+V pasting it with control characters and all, Ctrl+Z, erasing.
        const Qt::Key keys[] = {Qt::Key_unknown, Qt::Key_V, Qt::Key_Z, Qt::Key_Backspace};
        const Qt::Key key = keys[rng.bounded(4)];
        QGuiApplication::clipboard()->setText(piece(rng));
        box->setFocus(Qt::MouseFocusReason);
        QTest::sendKeyEvent(QTest::Click, box, key, key == Qt::Key_unknown ? piece(rng) : QString(),
                            key < Qt::Key_Escape ? Qt::ControlModifier : Qt::NoModifier);
    } else if (auto* entry = any<QAction>(rng, window, on); kind < 88 && entry) {
        if (entry->objectName() != u"menExit")
            entry->trigger();
    } else if (auto* combo = any<QComboBox>(rng, window, on); kind < 94 && combo) {
        combo->showPopup(); // its DropDown may refill the list; Return takes the row moved to
        QTest::keyClick(combo->view(), rng.bounded(2) ? Qt::Key_Down : Qt::Key_End);
        QTest::keyClick(combo->view(), Qt::Key_Return);
        combo->hidePopup();
    } else if (auto* tabs = any<QTabBar>(rng, window, on); tabs) {
        QTest::keyClick(tabs, rng.bounded(2) ? Qt::Key_Left : Qt::Key_Right);
    } else if (qobject_cast<QDialog*>(on = window)) {
        window->close(); // by the frame, a cancel
    }
    return u"kind %1 on %2."_s.arg(kind).arg(window->metaObject()->className()) + on->objectName();
}

// Each dialog answered at random: a cancel, a file of the show folder of the kind the filter
// asks for, or of any kind, or a missing one; a typed text.
struct MonkeyDialogs : DialogService {
    MonkeyDialogs(QRandomGenerator& rng, const QString& folder) : rng(rng), folder(folder) {}
    bool ShowSave(CommonDialog& dialog) override { return ShowOpen(dialog); }
    bool ShowOpen(CommonDialog& dialog) override
    {
        const int kind = rng.bounded(10); // 0 and 1 cancel
        const QString ext = kind == 2 ? u"*"_s : dialog.Filter.section(u"*."_s, -1);
        const QStringList files = QDir(folder).entryList({u"*."_s + ext}, QDir::Files)
                                  << u"missing."_s + ext;
        if (kind > 1)
            dialog.FileName = folder + u'/' + files[rng.bounded(int(files.size()))];
        return kind > 1;
    }
    void MsgBox(const QString&) override {}
    QString InputBox(const QString&, const QString&) override { return piece(rng); }
    QRandomGenerator& rng;
    const QString folder;
};

// What is wrong in `window`'s `list` of `record`s: a row count that is not the record count (the
// records 0 to n - 1 exist, n not), or a `box` that does not show `field` of the selected one.
template <class Window, class Record>
QString wrong(const Window* window, Record record, const char* list, const char* box, auto field)
{
    const auto* document = window->Document();
    const auto* rows = window->template findChild<ListBox*>(QLatin1String(list));
    const int n = rows->count();
    if (document && ((n > 0 && !(document->*record)(n - 1)) || (document->*record)(n)))
        return u" %1 has %2 rows."_s.arg(list).arg(n);
    const auto selected = document ? (document->*record)(rows->ListIndex()) : nullptr;
    const auto* shown = window->template findChild<QLineEdit*>(QLatin1String(box));
    const bool same = !selected || !*box || shown->text() == (*selected).*field;
    return same ? QString() : u" %1 shows another text than its record."_s.arg(box);
}

template <class Window> Window* manager()
{
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<Window*>(top))
            return window;
    return nullptr;
}

} // namespace

class tst_Monkey : public QObject {
    Q_OBJECT

private slots:
    void randomEventsKeepEveryRowWithItsRecord()
    {
        QTemporaryDir dir; // the example show and its models side by side, changed freely
        const QString ex = TROUPE_FIXTURES_DIR "/../../examples/"_L1;
        QVERIFY(!QProcess::execute(u"cp"_s, {u"-R"_s, ex + u'.', ex + u"models/."_s, dir.path()}));
        QRandomGenerator rng(Seed);
        Suite suite(std::make_unique<MonkeyDialogs>(rng, dir.path()));
        // The first file sets the base folder, as on the command line.
        for (const char* file : {"midnight.tsl", "act2.ssf", "dancer.rbt"})
            QCOMPARE(suite.OpenFiles({dir.filePath(QLatin1String(file))}), QStringList());
        auto* const r = manager<frmMainRBT>(); // the managers are never closed
        auto* const s = manager<frmMainSSF>();
        auto* const t = manager<frmMainTSL>();
        QTimer modal; // works frmNewRBT inside its modal loop, one action a turn, till it closes
        modal.callOnTimeout([&] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                act(rng, dialog);
        });
        modal.start(0);
        for (int i = 0; i < 20000; ++i) {
            if (qEnvironmentVariableIsSet("MONKEY_LOG"))
                qInfo("event %d", i);
            const QString event = act(rng, std::array<QWidget*, 3>{r, s, t}[rng.bounded(3)]);
            QCoreApplication::processEvents();
            const QString fault =
                wrong(r, &clsRBT::Joints, "lstJoints", "txtMin", &clsJoint::Min) +
                wrong(r, &clsRBT::Animations, "lstAnimations", "", &clsAnimation::Name) +
                wrong(s, &clsSSF::Puppets, "lstPuppets", "txtRBT", &clsPuppet::RBT) +
                wrong(s, &clsSSF::Sounds, "lstSounds", "txtNameSound", &clsSound::Name) +
                wrong(s, &clsSSF::Cameras, "lstCameras", "txtCamera", &clsCamera::Name) +
                wrong(t, &clsTSL::Scenes, "lstScenes", "txtName", &clsScene::Name);
            QVERIFY2(fault.isEmpty(),
                     qPrintable(u"seed %1, event %2, %3:%4"_s.arg(Seed).arg(i).arg(event, fault)));
        }
    }
};

QTEST_MAIN(tst_Monkey)
#include "tst_Monkey.moc"
