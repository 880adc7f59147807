#pragma once
// One temporary directory for a test, removed with it, and the few things tests do with files
// in it. Made the base directory of the run, it is also strCurrentDir until the test ends.

#include "foundation/mdlGeneral.h"

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

    // Loads `file` into a new Document and saves it again: the bytes saved, or nothing when
    // the load failed.
    template <class Document> QByteArray loadThenSave(const QByteArray& file) const
    {
        Document document;
        if (!document.Load(write(QStringLiteral("in.xml"), file)))
            return {};
        const QString out = path(QStringLiteral("out.xml"));
        return document.Save(out) ? read(out) : QByteArray("<save failed>");
    }

private:
    QTemporaryDir m_dir;
    bool m_base;
};
