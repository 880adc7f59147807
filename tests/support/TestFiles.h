// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One temporary directory for a test, removed with it, and the few things tests do with files
// in it. Made the base directory of the run, it is also strCurrentDir until the test ends.

#include "foundation/mdlGeneral.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class TestFiles {
public:
    enum Base { NotBase, AsCurrentDir };

    explicit TestFiles(Base base = NotBase) : m_base(base == AsCurrentDir)
    {
        if (m_base)
            mdlGeneral::strCurrentDir = m_dir.path() + QDir::separator();
    }
    ~TestFiles()
    {
        if (m_base)
            mdlGeneral::strCurrentDir.clear(); // process-wide: no test leaves it to the next
    }

    QString path(const QString& name) const { return m_dir.filePath(name); }

    // Writes `bytes` as the file `name` and gives its path.
    QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test file %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }

    // Reads `file` into a new Document and writes it again, through memory, with `base` (the
    // base folder, for a rig binding) given to both: the bytes written, or "fails: " and the
    // reason the read gave.
    template <class Document, class... Base>
    static QByteArray readThenWrite(QByteArray file, const Base&... base)
    {
        QBuffer in(&file);
        in.open(QIODevice::ReadOnly);
        Document document;
        QString why;
        if (!document.Read(in, base..., &why))
            return "fails: " + why.toUtf8();
        QByteArray written;
        QBuffer out(&written);
        out.open(QIODevice::WriteOnly);
        return document.Write(out, base..., &why) ? written : "write fails: " + why.toUtf8();
    }

private:
    QTemporaryDir m_dir;
    bool m_base;
};
