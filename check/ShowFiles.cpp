// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/ShowFiles.h"

#include "foundation/mdlGeneral.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

// What lies at the path, its name matched without regard to case where it does not exist as
// given.
QFileInfo Resolved(const QString& path)
{
    const QFileInfo asGiven(path);
    return asGiven.exists() ? asGiven : QFileInfo(mdlGeneral::ResolveFileCase(path));
}

} // namespace

QString ShowFiles::RunTimePath(const QString& baseDir, const QString& stored)
{
    return QDir::toNativeSeparators(
        QDir::cleanPath(baseDir + u'/' + QString(stored).replace(u'\\', u'/')));
}

QString ShowFiles::ManagersPath(const QString& baseDir, const QString& stored)
{
    return RunTimePath(baseDir, mdlGeneral::GetFileName(stored));
}

ShowFiles::Found ShowFiles::Find(const QString& path)
{
    const auto known = m_found.constFind(path);
    if (known != m_found.cend())
        return *known;
    Found found;
    if (const QFileInfo info = Resolved(path); info.exists())
        found = {info.filePath(), info.canonicalFilePath()};
    return *m_found.insert(path, found);
}

bool ShowFiles::IsFile(const QString& path)
{
    const auto known = m_isFile.constFind(path);
    return known != m_isFile.cend() ? *known : *m_isFile.insert(path, Resolved(path).isFile());
}

ShowFiles::Reference ShowFiles::Locate(const QString& baseDir, const QString& stored)
{
    // A show names a few rig bindings from many puppets: each text is located once.
    const std::pair key(baseDir, stored);
    const auto known = m_references.constFind(key);
    if (known != m_references.cend())
        return *known;
    Reference reference{RunTimePath(baseDir, stored), ManagersPath(baseDir, stored), {}, {}};
    reference.runTime = Find(reference.runTimePath);
    reference.managers = Find(reference.managersPath);
    return *m_references.insert(key, reference);
}

bool ShowFiles::HasTake(const QString& folder, const QString& stem)
{
    auto names = m_folders.constFind(folder);
    if (names == m_folders.cend()) {
        const QDir dir(mdlGeneral::ResolveFileCase(folder));
        names = m_folders.insert(folder, dir.entryList(QDir::Files | QDir::Hidden | QDir::System));
    }
    const QLatin1StringView wav(".wav");
    for (const QString& name : *names) {
        if (name.size() < stem.size() + wav.size() || !name.startsWith(stem, Qt::CaseInsensitive) ||
            !name.endsWith(wav, Qt::CaseInsensitive))
            continue;
        const QStringView digits =
            QStringView(name).sliced(stem.size(), name.size() - stem.size() - wav.size());
        if (std::all_of(digits.begin(), digits.end(),
                        [](QChar c) { return c >= u'0' && c <= u'9'; }))
            return true;
    }
    return false;
}
