// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/FileAccess.h"

#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstring>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

bool Fail(QString* why, const QString& reason)
{
    if (why)
        *why = reason;
    return false;
}

const QString TooLarge = QStringLiteral("it is larger than %1 MiB").arg(Limits::MaxFileBytes >> 20);

#ifdef Q_OS_UNIX
QString WhatItIs(mode_t mode)
{
    if (S_ISDIR(mode))
        return QStringLiteral("it is a folder");
    if (S_ISFIFO(mode))
        return QStringLiteral("it is a FIFO");
    if (S_ISSOCK(mode))
        return QStringLiteral("it is a socket");
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return QStringLiteral("it is a device");
    return QStringLiteral("it is no regular file");
}

QString WhyNotOpened(int error)
{
    switch (error) {
    case ENOENT:
        return QStringLiteral("there is no such file");
    case ENOTDIR:
        return QStringLiteral("a folder on its path is a file");
    case ELOOP:
        return QStringLiteral("its symbolic links lead round in a loop");
    case EACCES:
    case EPERM:
        return QStringLiteral("you may not read it");
    case ENAMETOOLONG:
        return QStringLiteral("its name is too long");
    default:
        return QStringLiteral("it cannot be opened: ") +
               QString::fromLocal8Bit(std::strerror(error));
    }
}
#endif

} // namespace

bool FileAccess::OpenForReading(QFile& file, const QString& path, QString* why)
{
    file.setFileName(mdlGeneral::ResolveFileCase(path));
#ifdef Q_OS_UNIX
    // Opened without blocking and looked at before a byte is read: a FIFO without a writer
    // cannot hang the read, nor /dev/zero fill the memory.
    const int fd =
        ::open(QFile::encodeName(file.fileName()).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return Fail(why, WhyNotOpened(errno));
    struct stat status {};
    if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > Limits::MaxFileBytes) {
        const QString reason = !S_ISREG(status.st_mode) ? WhatItIs(status.st_mode) : TooLarge;
        ::close(fd);
        return Fail(why, reason);
    }
    if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        return Fail(why, QStringLiteral("it cannot be opened: ") + file.errorString());
    }
    return true;
#else
    const QFileInfo info(file);
    if (!info.exists())
        return Fail(why, QStringLiteral("there is no such file"));
    if (!info.isFile())
        return Fail(why, info.isDir() ? QStringLiteral("it is a folder")
                                      : QStringLiteral("it is no regular file"));
    if (info.size() > Limits::MaxFileBytes)
        return Fail(why, TooLarge);
    if (!file.open(QIODevice::ReadOnly))
        return Fail(why, QStringLiteral("it cannot be opened: ") + file.errorString());
    return true;
#endif
}

bool FileAccess::SaveWhole(const QString& path, const std::function<bool(QIODevice&)>& write,
                           QString* why)
{
    QSaveFile file(path);
    // Qt cannot always say why its temporary twin was not made or put in place.
    const auto failed = [&] {
        const QString reason = !QFileInfo(QFileInfo(path).absolutePath()).isDir()
                                   ? QStringLiteral("its folder does not exist")
                               : file.error() == QFileDevice::UnspecifiedError
                                   ? QStringLiteral("no file can be made in its folder")
                                   : file.errorString();
        return Fail(why, path + QStringLiteral(": ") + reason);
    };
    if (!file.open(QIODevice::WriteOnly))
        return failed();
    if (!write(file)) {
        file.cancelWriting();
        return false;
    }
    return file.commit() || failed();
}
