#pragma once
// Shared by the tests of Part 4.1: the example file, a scene record, and a fixture that gives
// each test function a fresh QTemporaryDir with the helpers that write, read, load and save
// files in it.

#include "show/clsScene.h"
#include "show/clsTSL.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace TslTest {

// The one-line file of Part 4.1.
inline constexpr char ExampleFile[] = R"(<play title="Opening" mainworld="..\rez\worlds\park">)"
                                      R"(<scene id="0" name="Act one" ssf="..\\rez\\act1.ssf"/></play>)";

inline std::shared_ptr<clsScene> makeScene(const QString& name, const QString& ssf) {
    auto scene = std::make_shared<clsScene>();
    scene->Name = name;
    scene->SSF = ssf;
    return scene;
}

// The second base of a test class, beside QObject: its init() calls makeFreshDir() and its
// cleanup() dropDir().
class DirFixture {
protected:
    std::unique_ptr<QTemporaryDir> m_dir;

    // False when the directory could not be made.
    bool makeFreshDir() {
        m_dir = std::make_unique<QTemporaryDir>();
        return m_dir->isValid();
    }
    void dropDir() { m_dir.reset(); }

    QString path(const QString& name) const { return m_dir->filePath(name); }

    static void writeFile(const QString& file, const QByteArray& bytes) {
        QFile f(file);
        QVERIFY2(f.open(QIODevice::WriteOnly), qPrintable(file));
        QCOMPARE(f.write(bytes), bytes.size());
    }

    static QByteArray readFile(const QString& file) {
        QFile f(file);
        if (!f.open(QIODevice::ReadOnly))
            return "<unreadable>";
        return f.readAll();
    }

    // Loads `bytes` written to a fresh file into `tsl`.
    bool loadText(clsTSL& tsl, const QByteArray& bytes, const QString& name = "in.tsl") {
        writeFile(path(name), bytes);
        return tsl.Load(path(name));
    }

    // The bytes `tsl.Save` writes, or "<failed>".
    QByteArray savedText(const clsTSL& tsl, const QString& name = "out.tsl") {
        if (!tsl.Save(path(name)))
            return "<failed>";
        return readFile(path(name));
    }

    static QStringList ids(const clsTSL& tsl) {
        QStringList result;
        for (qint16 i = 0; i < tsl.NumScenes(); ++i)
            result << tsl.Scenes(i)->Id;
        return result;
    }
};

} // namespace TslTest
