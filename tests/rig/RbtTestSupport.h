#pragma once
// Shared by the tests of Part 2.2: the example file, small pieces of file text, and a fixture
// that gives each test function a fresh QTemporaryDir as strCurrentDir with the helpers that
// write, read, load and save files in it. Raw strings show the file's characters as they
// stand, so `\\` in a text is the two backslashes of the file.

#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace RbtTest {

// The small file of Part 2.2, as written.
inline constexpr char exampleFile[] =
    R"(<rbt name="Hero" type="model" model="models\\hero.ltb" texture="" icon="">)"
    R"(<joint id="0" node="Head" min="-90.0" max="90.0" vector="0.0,1.0,0.0" action="rotate" desc="Nod"/>)"
    R"(<animation id="3" name="Wave"/></rbt>)";

// A root with its two required attributes, around the given children.
inline QByteArray rbtWith(const QByteArray& children) {
    return R"(<rbt name="Hero" model="hero.ltb">)" + children + "</rbt>";
}

inline QByteArray jointWithVector(const QByteArray& vector) {
    return R"(<joint id="0" node="Head" min="-90.0" max="90.0" vector=")" + vector +
           R"(" action="rotate" desc="Nod"/>)";
}

// The second base of a test class, beside QObject: its init() calls enterFreshDir() and its
// cleanup() leaveDir().
class DirFixture {
protected:
    // A new directory, made strCurrentDir: native, with its trailing separator (design 4.3).
    // False when the directory could not be made.
    bool enterFreshDir() {
        m_dir = std::make_unique<QTemporaryDir>();
        if (!m_dir->isValid())
            return false;
        mdlGeneral::strCurrentDir = m_dir->path() + QDir::separator();
        return true;
    }

    void leaveDir() {
        // strCurrentDir is process-wide: no test may leave it to the next.
        mdlGeneral::strCurrentDir.clear();
        m_dir.reset();
    }

    QString path(const QString& name) const { return m_dir->filePath(name); }
    static QString base() { return mdlGeneral::strCurrentDir; }

    // Writes `text` as the file `name` of the directory and gives its path.
    QString write(const QString& name, const QByteArray& text) const {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write the test file %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    static QByteArray read(const QString& file) {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("<unreadable>");
    }

    // Loads `text` into `rbt` from a file.
    bool loadText(clsRBT& rbt, const QByteArray& text) const {
        return rbt.Load(write(QStringLiteral("in.rbt"), text));
    }

    // Saves `rbt` and gives the bytes written.
    QByteArray saved(const clsRBT& rbt) const {
        const QString out = path(QStringLiteral("out.rbt"));
        if (!rbt.Save(out))
            return "<save failed>";
        return read(out);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

} // namespace RbtTest
