// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The product reads documents and models by path, so every fuzz input is written to a file
// first. The workspace is one private directory per fuzzing process, made at the first
// input and removed when the process ends normally.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

class FuzzWorkspace {
public:
    static const FuzzWorkspace& instance();

    // The directory, ending in a separator.
    const QString& directory() const { return m_directory; }
    QString path(const QString& name) const { return m_directory + name; }

    // Writes the input to the named file of the workspace and gives its full path.
    QString write(const QString& name, const std::uint8_t* data, std::size_t size) const;
    static QByteArray read(const QString& file);

    FuzzWorkspace(const FuzzWorkspace&) = delete;
    FuzzWorkspace& operator=(const FuzzWorkspace&) = delete;

private:
    FuzzWorkspace();
    ~FuzzWorkspace();

    QString m_directory;
};

// A broken promise of the product: the reason goes to standard error and the process aborts,
// so libFuzzer keeps the input that caused it.
[[noreturn]] void FuzzFailure(const char* what, const QString& detail = {});
void FuzzExpect(bool condition, const char* what);
void FuzzExpectSame(const QStringList& first, const QStringList& second, const char* what);
void FuzzExpectSame(const QByteArray& first, const QByteArray& second, const char* what);
