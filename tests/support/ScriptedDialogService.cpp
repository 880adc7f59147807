#include "tests/support/ScriptedDialogService.h"

#include "foundation/controls/CommonDialog.h"

#include <QtTest>

void ScriptedDialogService::answerFile(const QString& fileName)
{
    m_answers.append({AnswerKind::File, fileName});
}

void ScriptedDialogService::answerCancel()
{
    m_answers.append({AnswerKind::Cancel, {}});
}

void ScriptedDialogService::answerInput(const QString& typed)
{
    m_answers.append({AnswerKind::Input, typed});
}

const ScriptedDialogService::Shown& ScriptedDialogService::lastShown() const
{
    if (m_shown.isEmpty())
        qFatal("ScriptedDialogService: lastShown() asked, but no dialog was shown");
    return m_shown.last();
}

void ScriptedDialogService::reset()
{
    m_answers.clear();
    m_messages.clear();
    m_shown.clear();
}

ScriptedDialogService::Answer ScriptedDialogService::take(const char* dialogName)
{
    if (m_answers.isEmpty()) {
        const QByteArray message =
            QByteArray("ScriptedDialogService: ") + dialogName + " shown with no answer scripted";
        qWarning("%s", message.constData());
        QTest::qFail(message.constData(), __FILE__, __LINE__);
        return {AnswerKind::Cancel, {}};
    }
    return m_answers.takeFirst();
}

bool ScriptedDialogService::showFile(Kind kind, CommonDialog& dialog)
{
    m_shown.append({kind, dialog.Filter, dialog.FileName, dialog.DefaultExt, {}, {}});
    const char* name = kind == Kind::Open ? "ShowOpen" : "ShowSave";
    const Answer answer = take(name);
    switch (answer.kind) {
    case AnswerKind::File:
        dialog.FileName = answer.text;
        return true;
    case AnswerKind::Cancel:
        return false;
    case AnswerKind::Input:
        break;
    }
    const QByteArray message =
        QByteArray("ScriptedDialogService: ") + name + " answered with a typed input";
    QTest::qFail(message.constData(), __FILE__, __LINE__);
    return false;
}

bool ScriptedDialogService::ShowOpen(CommonDialog& dialog)
{
    return showFile(Kind::Open, dialog);
}

bool ScriptedDialogService::ShowSave(CommonDialog& dialog)
{
    return showFile(Kind::Save, dialog);
}

void ScriptedDialogService::MsgBox(const QString& text)
{
    m_messages.append(text);
}

QString ScriptedDialogService::InputBox(const QString& prompt, const QString& defaultText)
{
    m_shown.append({Kind::Input, {}, {}, {}, prompt, defaultText});
    const Answer answer = take("InputBox");
    switch (answer.kind) {
    case AnswerKind::Input:
        return answer.text;
    case AnswerKind::Cancel:
        return {};
    case AnswerKind::File:
        break;
    }
    QTest::qFail("ScriptedDialogService: InputBox answered with a file", __FILE__, __LINE__);
    return {};
}
