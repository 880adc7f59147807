// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A DialogService for window tests: it answers each dialog from a queue that the test fills
// as a user would answer (a file chosen, a cancel, a text typed), and records every dialog as
// it was shown and every message. A dialog with no answer left, or with an answer of the
// wrong kind, fails the running test and is cancelled.

#include "foundation/controls/CommonDialog.h"
#include "foundation/controls/DialogService.h"

#include <QList>
#include <QStringList>
#include <QTest>

class ScriptedDialogService : public DialogService {
public:
    enum class Kind { Open, Save, Input, Question };

    // A dialog as the window showed it: for a file dialog `Filter`, the `FileName` preset,
    // `DefaultExt` and the folder it opened in; for an InputBox the prompt and the default;
    // for a question its text as the prompt.
    struct Shown {
        Kind kind;
        QString Filter, FileName, DefaultExt, prompt, defaultText, Folder;
    };

    // The next file dialog ends with OK and this `FileName` (a full path, as Qt gives).
    void answerFile(const QString& fileName) { m_answers.append({false, false, fileName}); }
    // The next file dialog ends with OK on what it proposed: its `FileName` in its folder.
    void answerProposal() { m_answers.append({false, false, {}, true}); }
    // The next question is answered Yes or No.
    void answerQuestion(bool yes) { m_answers.append({!yes, true, QStringLiteral("question")}); }
    // The next dialog, a file dialog or an InputBox, ends with Cancel.
    void answerCancel() { m_answers.append({true, false, {}}); }
    // The next InputBox ends with OK and this text.
    void answerInput(const QString& typed) { m_answers.append({false, true, typed}); }

    const QStringList& messages() const { return m_messages; } // every MsgBox text, in order
    const QList<Shown>& shown() const { return m_shown; }      // every dialog shown, in order
    const Shown& lastShown() const // the program stops when no dialog was shown
    {
        if (m_shown.isEmpty())
            qFatal("ScriptedDialogService: lastShown() asked, but no dialog was shown");
        return m_shown.last();
    }
    qsizetype pendingAnswers() const { return m_answers.size(); } // scripted, not yet used
    // Forgets messages, dialogs shown, answers left and the folder of the last pick.
    void reset() { *this = ScriptedDialogService(); }

    bool ShowOpen(CommonDialog& dialog) override { return showFile(Kind::Open, dialog); }
    bool ShowSave(CommonDialog& dialog) override { return showFile(Kind::Save, dialog); }
    void MsgBox(const QString& text) override { m_messages.append(text); }
    QString InputBox(const QString& prompt, const QString& defaultText) override
    {
        m_shown.append({Kind::Input, {}, {}, {}, prompt, defaultText, {}});
        return take(true).text;
    }
    bool AskYesNo(const QString& question) override
    {
        m_shown.append({Kind::Question, {}, {}, {}, question, {}, {}});
        return !take(true).cancel;
    }

private:
    struct Answer {
        bool cancel;
        bool input; // typed text for an InputBox or a question, else a file
        QString text;
        bool proposal = false; // the file the dialog proposed
    };

    bool showFile(Kind kind, CommonDialog& dialog)
    {
        m_shown.append(
            {kind, dialog.Filter, dialog.FileName, dialog.DefaultExt, {}, {}, dialog.Folder()});
        const Answer answer = take(false);
        if (!answer.cancel)
            dialog.FileName = answer.proposal ? dialog.Folder() + dialog.FileName : answer.text;
        return !answer.cancel;
    }
    // The next answer when it fits; otherwise the test fails and it reads as a cancel.
    Answer take(bool input)
    {
        if (!m_answers.isEmpty() && (m_answers.first().cancel || m_answers.first().input == input))
            return m_answers.takeFirst();
        const QByteArray message =
            QByteArray("ScriptedDialogService: ") + (input ? "InputBox " : "file dialog ") +
            (m_answers.isEmpty() ? "with no answer scripted" : "with the wrong kind of answer");
        if (!m_answers.isEmpty())
            m_answers.removeFirst();
        QTest::qFail(message.constData(), __FILE__, __LINE__);
        return {true, input, {}};
    }

    QList<Answer> m_answers;
    QStringList m_messages;
    QList<Shown> m_shown;
};
