#include "tests/support/ScriptedDialogService.h"

#include "foundation/controls/CommonDialog.h"

#include <QtTest>

const ScriptedDialogService::Shown& ScriptedDialogService::lastShown() const
{
    if (m_shown.isEmpty())
        qFatal("ScriptedDialogService: lastShown() asked, but no dialog was shown");
    return m_shown.last();
}

ScriptedDialogService::Answer ScriptedDialogService::take(bool input)
{
    const char* problem = "with no answer scripted";
    if (!m_answers.isEmpty()) {
        const Answer answer = m_answers.takeFirst();
        if (answer.cancel || answer.input == input)
            return answer;
        problem = "with the wrong kind of answer";
    }
    const QByteArray message =
        QByteArray("ScriptedDialogService: ") + (input ? "InputBox " : "file dialog ") + problem;
    qWarning("%s", message.constData());
    QTest::qFail(message.constData(), __FILE__, __LINE__);
    return {true, input, {}};
}

bool ScriptedDialogService::showFile(Kind kind, CommonDialog& dialog)
{
    m_shown.append(
        {kind, dialog.Filter, dialog.FileName, dialog.DefaultExt, {}, {}, dialog.Folder()});
    const Answer answer = take(false);
    if (!answer.cancel)
        dialog.FileName = answer.text;
    return !answer.cancel;
}

QString ScriptedDialogService::InputBox(const QString& prompt, const QString& defaultText)
{
    m_shown.append({Kind::Input, {}, {}, {}, prompt, defaultText, {}});
    return take(true).text;
}
