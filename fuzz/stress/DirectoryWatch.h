// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Tells when a save writes: the moments a file in the directory is created, opened, closed
// after writing or renamed into place, whether that is its temporary file or the file itself.

#include <QString>

class DirectoryWatch {
public:
    explicit DirectoryWatch(const QString& directory);
    ~DirectoryWatch();
    DirectoryWatch(const DirectoryWatch&) = delete;
    DirectoryWatch& operator=(const DirectoryWatch&) = delete;

    bool isValid() const { return m_fd >= 0; }
    // Forgets what happened so far, such as the checker's own reads and writes.
    void drain();
    // True when a file was created, opened, written or renamed within `timeoutMs`.
    bool waitForWrite(int timeoutMs);

private:
    int m_fd = -1;
};
