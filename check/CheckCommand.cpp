// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/CheckCommand.h"

#include "check/ShowCheck.h"

#include <QDir>

#include <cstdio>

namespace {

QString RelativeToHere(const QString& path)
{
    const QString relative = QDir::current().relativeFilePath(path);
    return QDir::toNativeSeparators(relative.startsWith(u"../") || relative == u".." ||
                                            QDir::isAbsolutePath(relative)
                                        ? path
                                        : relative);
}

void Print(std::FILE* stream, const QString& line)
{
    std::fputs((line + u'\n').toUtf8().constData(), stream);
}

} // namespace

int RunCheckCommand(const QStringList& files)
{
    if (files.isEmpty()) {
        Print(stderr, QStringLiteral("troupe: --check needs a file to check"));
        return 2;
    }
    ShowCheck check;
    bool unreadable = false;
    for (const QString& file : files) {
        QString why;
        if (!check.CheckFile(file, &why)) {
            Print(stderr, QStringLiteral("troupe: cannot check %1: %2").arg(file, why));
            unreadable = true;
        }
    }
    for (const Finding& finding : check.Findings())
        Print(stdout, RelativeToHere(finding.file) + QStringLiteral(": ") + finding.severityName() +
                          QStringLiteral(": ") + finding.text());
    Print(stdout, check.Summary());
    if (unreadable)
        return 2;
    return check.Count(Finding::Severity::Error) > 0 ? 1 : 0;
}
