// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/stress/DirectoryWatch.h"

#include <QFile>

#include <array>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

DirectoryWatch::DirectoryWatch(const QString& directory)
    : m_fd(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_fd >= 0 && inotify_add_watch(m_fd, QFile::encodeName(directory).constData(),
                                       IN_CREATE | IN_OPEN | IN_CLOSE_WRITE | IN_MOVED_TO) < 0) {
        close(m_fd);
        m_fd = -1;
    }
}

DirectoryWatch::~DirectoryWatch()
{
    if (m_fd >= 0)
        close(m_fd);
}

void DirectoryWatch::drain()
{
    std::array<char, 4096> events{};
    while (m_fd >= 0 && read(m_fd, events.data(), events.size()) > 0) {
    }
}

bool DirectoryWatch::waitForWrite(int timeoutMs)
{
    pollfd watch{m_fd, POLLIN, 0};
    if (m_fd < 0 || poll(&watch, 1, timeoutMs) <= 0)
        return false;
    drain();
    return true;
}
