// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/CommonDialog.h"

#include "foundation/controls/DialogService.h"
#include "foundation/mdlGeneral.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QWidget>

bool CommonDialog::ShowOpen() { return picked(m_service->ShowOpen(*this)); }

bool CommonDialog::ShowSave()
{
    // As a desktop's own dialog does: a No brings the dialog back.
    for (;;) {
        if (!m_service->ShowSave(*this))
            return false;
        if (mayReplace())
            return picked(true);
    }
}

bool CommonDialog::mayReplace() const
{
    const QFileInfo chosen(FileName);
    if (!chosen.exists() || (!OwnFile.isEmpty() &&
                             chosen.canonicalFilePath() == QFileInfo(OwnFile).canonicalFilePath()))
        return true;
    return m_service->AskYesNo(chosen.fileName() +
                               QStringLiteral(" already exists.\nDo you want to replace it?"));
}

QString CommonDialog::PickFile(const QString& filter, QWidget& button)
{
    FileName.clear();
    Filter = filter;
    ShowOpen();
    if (!FileName.isEmpty()) {
        // The next control that takes the Tab key, as Tab would find it.
        QWidget* next = button.nextInFocusChain();
        while (next != &button &&
               !(next->isEnabled() && next->isVisible() && (next->focusPolicy() & Qt::TabFocus)))
            next = next->nextInFocusChain();
        next->setFocus(Qt::TabFocusReason);
    }
    return FileName;
}

bool CommonDialog::picked(bool ok)
{
    if (ok) {
        const QString folder = mdlGeneral::GetDirectory(FileName);
        if (!folder.isEmpty())
            m_service->m_lastFolder = folder;
    }
    return ok;
}

QString CommonDialog::Folder() const
{
    if (!OwnFile.isEmpty())
        return mdlGeneral::GetDirectory(OwnFile);
    if (!m_service->m_lastFolder.isEmpty())
        return m_service->m_lastFolder;
    if (!mdlGeneral::strCurrentDir.isEmpty())
        return mdlGeneral::strCurrentDir;
    QString working = QDir::toNativeSeparators(QDir::currentPath());
    if (!working.endsWith(QDir::separator()))
        working += QDir::separator();
    return working;
}

QString CommonDialog::QtFilter(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString& description = parts[i];
        const QString pattern = i + 1 < parts.size() ? parts[i + 1] : QString();
        if (description.isEmpty() && pattern.isEmpty())
            continue;
        // Qt takes the patterns from the parentheses at the end of the description; ours
        // are separated by ';', Qt's by blanks.
        if (description.trimmed().endsWith(u')') || pattern.isEmpty())
            filters << description;
        else
            filters << description + QStringLiteral(" (") + QString(pattern).replace(u';', u' ') +
                           u')';
    }
    return filters.join(QStringLiteral(";;"));
}

QString CommonDialog::QtDefaultSuffix(const QString& defaultExt)
{
    return defaultExt.startsWith(u'.') ? defaultExt.mid(1) : defaultExt;
}
