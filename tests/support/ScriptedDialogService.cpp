#include "tests/support/ScriptedDialogService.h"

#include "foundation/controls/CommonDialog.h"

#include <QtTest>

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

ScriptedDialogService::Answer ScriptedDialogService::take(Kind kind)
{
    QByteArray problem;
    if (m_answers.isEmpty())
        problem = "shown with no answer scripted";
    else if (const Answer answer = m_answers.takeFirst();
             answer.cancel || (answer.kind == Kind::Input) == (kind == Kind::Input))
        return answer;
    else
        problem = "answered with the wrong kind of answer";
    const QByteArray message =
        "ScriptedDialogService: " + QByteArray(kind == Kind::Input ? "InputBox " : "file dialog ") +
        problem;
    qWarning("%s", message.constData());
    QTest::qFail(message.constData(), __FILE__, __LINE__);
    return {kind, {}, true};
}

bool ScriptedDialogService::showFile(Kind kind, CommonDialog& dialog)
{
    m_shown.append(
        {kind, dialog.Filter, dialog.FileName, dialog.DefaultExt, {}, {}, dialog.Folder()});
    const Answer answer = take(kind);
    if (answer.cancel)
        return false;
    dialog.FileName = answer.text;
    return true;
}

QString ScriptedDialogService::InputBox(const QString& prompt, const QString& defaultText)
{
    m_shown.append({Kind::Input, {}, {}, {}, prompt, defaultText, {}});
    return take(Kind::Input).text;
}
