// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/FuzzWorkspace.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

const FuzzWorkspace& FuzzWorkspace::instance()
{
    static const FuzzWorkspace workspace;
    return workspace;
}

FuzzWorkspace::FuzzWorkspace()
{
    // Lower case and fixed in form, so a path made relative to it never meets a case
    // difference of its own making; one per process, so parallel runs stay apart.
    const QString directory =
        QDir::tempPath() +
        QStringLiteral("/troupe-fuzz-%1").arg(QCoreApplication::applicationPid());
    if (!QDir().mkpath(directory))
        FuzzFailure("cannot make the workspace", directory);
    m_directory = directory + QLatin1Char('/');
}

FuzzWorkspace::~FuzzWorkspace() { QDir(m_directory).removeRecursively(); }

QString FuzzWorkspace::write(const QString& name, const std::uint8_t* data, std::size_t size) const
{
    const QString file = path(name);
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        out.write(reinterpret_cast<const char*>(data), qint64(size)) != qint64(size))
        FuzzFailure("cannot write the input", file);
    return file;
}

QByteArray FuzzWorkspace::read(const QString& file)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly))
        FuzzFailure("cannot read back a saved file", file);
    return in.readAll();
}

void FuzzFailure(const char* what, const QString& detail)
{
    std::fprintf(stderr, "\n*** %s\n%s\n", what, qUtf8Printable(detail));
    std::abort();
}

void FuzzExpect(bool condition, const char* what)
{
    if (!condition)
        FuzzFailure(what);
}

void FuzzExpectSame(const QStringList& first, const QStringList& second, const char* what)
{
    if (first == second)
        return;
    const auto [a, b] = std::mismatch(first.begin(), first.end(), second.begin(), second.end());
    const QString firstText = a == first.end() ? QStringLiteral("(none)") : *a;
    const QString secondText = b == second.end() ? QStringLiteral("(none)") : *b;
    FuzzFailure(what, QStringLiteral("field %1: \"%2\" against \"%3\"")
                          .arg(a - first.begin())
                          .arg(firstText.toHtmlEscaped(), secondText.toHtmlEscaped()));
}

namespace {

// The bytes as text, with every byte outside printable ASCII shown as \xNN.
QString Printable(const QByteArray& bytes)
{
    QString text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += byte >= 0x20 && byte < 0x7f
                    ? QString(QLatin1Char(c))
                    : QStringLiteral("\\x%1").arg(byte, 2, 16, QLatin1Char('0'));
    }
    return text;
}

} // namespace

void FuzzExpectSame(const QByteArray& first, const QByteArray& second, const char* what)
{
    if (first != second)
        FuzzFailure(what, Printable(first) + QLatin1Char('\n') + Printable(second));
}
