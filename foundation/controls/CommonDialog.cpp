#include "foundation/controls/CommonDialog.h"

#include "foundation/controls/DialogService.h"

#include <QStringList>

bool CommonDialog::ShowOpen() { return m_service->ShowOpen(*this); }

bool CommonDialog::ShowSave() { return m_service->ShowSave(*this); }

QString CommonDialog::QtFilter(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString& description = parts[i];
        const QString pattern = i + 1 < parts.size() ? parts[i + 1] : QString();
        if (description.isEmpty() && pattern.isEmpty())
            continue;
        // Qt takes the patterns from the parentheses at the end of the description; the
        // original's patterns are separated by ';', Qt's by blanks.
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
