// SPDX-License-Identifier: GPL-3.0-or-later
// The rig binding manager on its largest document: a .rbt with 32767 joints and one
// animation, over a model that lists 32767 nodes.
// Targets: OpenRBT from the call to filled lists under 1 s; enabling one more node as a
// joint, renaming a joint and typing one character into a limit of the selected joint, each
// under 5 ms. Each timed step ends with the events it posted handled (the lists' delayed
// relayout included), so what is measured is what the user waits for.

#include "foundation/controls/CheckBox.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/DialogService.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/OptionButton.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int BigCount = 32767;

// Answers every name box at once, with its default with an "x" added or taken away, so that
// a renamed joint's name does not grow from one iteration to the next.
class InstantDialogs : public DialogService {
public:
    bool ShowOpen(CommonDialog&) override { return false; }
    bool ShowSave(CommonDialog&) override { return false; }
    void MsgBox(const QString& text) override { messages << text; }
    QString InputBox(const QString&, const QString& defaultText) override
    {
        return defaultText.endsWith(u'x') ? defaultText.chopped(1) : defaultText + u'x';
    }
    bool AskYesNo(const QString&) override { return false; } // no question is expected

    QStringList messages;
};

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// The model: one animation and BigCount nodes, laid out as a modelling tool writes them.
QByteArray BigModel()
{
    QByteArray text = "(lt-model-0\n\t(on-load-cmds (\n\t\t(anim-bindings (\n"
                      "\t\t\t(anim-binding\n\t\t\t\t(name \"walk\" )\n"
                      "\t\t\t\t(interp-time 200 )\n\t\t\t )))\n\t\t(set-node-flags (\n";
    for (int i = 0; i < BigCount; ++i)
        text += "\t\t\t(\"node" + QByteArray::number(i) + "\" 0 )\n";
    text += "\t\t)))\n)\n";
    return text;
}

QByteArray BigBinding()
{
    QByteArray text = R"(<rbt name="Big" type="model" model="big.ltb" texture="" icon="">)";
    for (int i = 0; i < BigCount; ++i) {
        const QByteArray n = QByteArray::number(i);
        text += R"(<joint id=")" + n + R"(" node="node)" + n +
                R"(" min="-90.0" max="90.0" vector="0.0,1.0,0.0" action="rotate" desc="Joint )" +
                n + R"("/>)";
    }
    text += R"(<animation id="0" name="Walk"/></rbt>)";
    return text;
}

// The two files in a fresh base directory, and the window, shown offscreen.
class BigSession {
public:
    BigSession()
    {
        mdlGeneral::strCurrentDir = m_dir.path() + QDir::separator();
        m_ready = m_dir.isValid() &&
                  WriteFile(m_dir.filePath(QStringLiteral("big.lta")), BigModel()) &&
                  WriteFile(m_dir.filePath(QStringLiteral("big.rbt")), BigBinding());
        m_window.show();
        QApplication::processEvents();
    }
    ~BigSession() { mdlGeneral::strCurrentDir.clear(); }

    // The file opened, with all four lists filled and no message shown; a benchmark that
    // cannot have it is skipped.
    bool OpenOrSkip(benchmark::State& state)
    {
        if (Open())
            return true;
        state.SkipWithError("the large binding did not open whole");
        return false;
    }
    bool Open()
    {
        const bool opened = m_ready && m_window.OpenRBT(QStringLiteral("big.rbt"));
        QApplication::processEvents();
        return opened && m_dialogs.messages.isEmpty() &&
               list("lstJoints")->ListCount() == BigCount &&
               list("lstNodes")->ListCount() == BigCount;
    }

    template <class T> T* control(const char* name) const
    {
        return m_window.findChild<T*>(QString::fromLatin1(name));
    }
    ListBox* list(const char* name) const { return control<ListBox>(name); }
    void trigger(const char* name) const { control<QAction>(name)->trigger(); }

    const frmMainRBT& window() const { return m_window; }

private:
    QTemporaryDir m_dir;
    bool m_ready = false;
    InstantDialogs m_dialogs;
    frmMainRBT m_window{m_dialogs};
};

void BM_OpenRBT_32767Joints(benchmark::State& state)
{
    BigSession session;
    for (auto _ : state) {
        if (!session.OpenOrSkip(state))
            break;
    }
}
BENCHMARK(BM_OpenRBT_32767Joints)->Unit(benchmark::kMillisecond);

void BM_EnableOneMoreJoint(benchmark::State& state)
{
    BigSession session;
    if (!session.OpenOrSkip(state))
        return;
    ListBox* joints = session.list("lstJoints");
    ListBox* nodes = session.list("lstNodes");
    // The document is full: one joint goes, so that one can come.
    joints->setListIndex(BigCount - 1);
    session.trigger("menDeleteJoint");
    session.control<OptionButton>("chkRotate")->setValue(true);
    auto* command1 = session.control<CommandButton>("Command1");
    for (auto _ : state) {
        state.PauseTiming();
        nodes->setListIndex(BigCount / 2);
        QApplication::processEvents();
        state.ResumeTiming();

        command1->click();
        QApplication::processEvents();

        state.PauseTiming();
        if (joints->ListCount() != BigCount) {
            state.SkipWithError("no joint was added");
            break;
        }
        joints->setListIndex(BigCount - 1);
        session.trigger("menDeleteJoint");
        state.ResumeTiming();
    }
}
BENCHMARK(BM_EnableOneMoreJoint)->Unit(benchmark::kMicrosecond);

void BM_RenameJoint(benchmark::State& state)
{
    BigSession session;
    if (!session.OpenOrSkip(state))
        return;
    ListBox* joints = session.list("lstJoints");
    joints->setListIndex(BigCount / 2);
    for (auto _ : state) {
        session.trigger("menRenameJoint");
        QApplication::processEvents();
    }
    if (joints->List(BigCount / 2).isEmpty())
        state.SkipWithError("the row went");
}
BENCHMARK(BM_RenameJoint)->Unit(benchmark::kMicrosecond);

void BM_TypeOneCharacterIntoALimit(benchmark::State& state)
{
    BigSession session;
    if (!session.OpenOrSkip(state))
        return;
    session.list("lstJoints")->setListIndex(BigCount / 2);
    auto* txtMax = session.control<TextBox>("txtMax");
    txtMax->setFocus();
    txtMax->end(false);
    bool typing = true;
    for (auto _ : state) {
        // A digit and a Backspace by turns keep the limit within its six characters.
        QKeyEvent key(QEvent::KeyPress, typing ? Qt::Key_5 : Qt::Key_Backspace, Qt::NoModifier,
                      typing ? QStringLiteral("5") : QString());
        QApplication::sendEvent(txtMax, &key);
        QApplication::processEvents();
        typing = !typing;
    }
    const clsRBT* document = session.window().Document();
    if (!document || document->Joints(BigCount / 2)->Max != txtMax->Text())
        state.SkipWithError("the typing did not reach the joint");
}
BENCHMARK(BM_TypeOneCharacterIntoALimit)->Unit(benchmark::kMicrosecond);

} // namespace
