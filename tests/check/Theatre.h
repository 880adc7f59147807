// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A small show in a temporary folder laid out as a theatre keeps it: rez/ is the base folder,
// with sounds/, models/ and worlds/ in it. As written it is clean: the show check finds nothing.
// Edits plant faults.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

// A text replaced in a file under rez/, or the file written whole, removed or made a FIFO.
struct Edit {
    enum Kind { Replace, Write, Remove, Fifo } kind;
    QString file;
    QByteArray from, to;
};
Q_DECLARE_METATYPE(Edit)

inline Edit Replace(const QString& file, const QByteArray& from, const QByteArray& to)
{
    return {Edit::Replace, file, from, to};
}
inline Edit Write(const QString& file, const QByteArray& bytes)
{
    return {Edit::Write, file, {}, bytes};
}
inline Edit Remove(const QString& file) { return {Edit::Remove, file, {}, {}}; }
inline Edit Fifo(const QString& file) { return {Edit::Fifo, file, {}, {}}; }

class Theatre {
public:
    // clang-format off
    static inline const QByteArray Rbt = R"(<rbt name="Hero" type="model" model="models\\hero.ltb" texture="" icon=""><joint id="0" node="Hip" min="-45.0" max="45.0" vector="0.0,1.0,0.0" action="rotate" desc="Sway"/><joint id="1" node="Arm" min="-90.0" max="90.0" vector="1.0,0.0,0.0" action="rotate" desc="Wave"/><animation id="0" name="Walk"/><animation id="1" name="Run"/></rbt>)";

    explicit Theatre(const QList<Edit>& edits = {})
    {
        QList<Edit> files{
            Write(u"show.tsl"_s, R"(<play title="Night" mainworld="..\rez\worlds\town"><scene id="0" name="One" ssf="..\\rez\\act1.ssf"/><scene id="1" name="Two" ssf="..\\rez\\act2.ssf"/></play>)"),
            Write(u"act1.ssf"_s, R"(<scene world="..\rez\worlds\park" maincamera="0" nickname="" server="" port="27888"><puppet id="0" rbt="..\\rez\\hero.rbt" position="1.0,0.0,2.0" scale="1.0,1.0,1.0" orientation="0.0,90.0,0.0"/><sound id="0" name="Door" type="sound" file="..\\rez\\sounds\\door.wav"/><sound id="1" name="Hello" type="dialog" file="..\\rez\\sounds\\hello"/><camera id="0" name="Wide" position="0.0,10.0,-5.0" orientation="0.0,0.0,0.0"/><camera id="1" name="Close" position="0.0,2.0,-1.0" orientation="5.0,0.0,0.0"/></scene>)"),
            Write(u"act2.ssf"_s, R"(<scene world="..\rez\worlds\park" maincamera="0" port="80"><puppet id="0" rbt="..\\rez\\hero.rbt" position="0,0,0" scale="1,1,1" orientation="0,0,0"/><camera id="0" name="Only" position="0,0,0" orientation="0,0,0"/></scene>)"),
            Write(u"hero.rbt"_s, Rbt),
            // The model's name differs in case from the stored path, as on a disk written on Windows.
            Write(u"models/Hero.lta"_s, R"m((lt-model-0 (on-load-cmds ( (anim-bindings ( (anim-binding (name "walk")) (anim-binding (name "run")))) (set-node-flags ( ("Hip" 0) ("Arm" 0))))))m")};
        // clang-format on
        for (const char* empty : {"models/Hero.ltb", "sounds/door.wav", "sounds/hello01.wav",
                                  "worlds/park.dat", "worlds/town.dat"})
            files << Write(QString::fromLatin1(empty), {});
        for (const Edit& edit : files + edits)
            Apply(edit);
    }

    QString root() const { return m_dir.path(); }
    QString path(const QString& file) const { return m_dir.filePath(u"rez/"_s + file); }

    // Every file's name, size and time of change: a check must leave them as they were.
    QStringList Snapshot() const
    {
        QStringList files;
        QDirIterator it(root(), QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QFileInfo info = it.nextFileInfo();
            files << u"%1 %2 %3"_s.arg(info.filePath(), QString::number(info.size()),
                                       info.lastModified().toString(Qt::ISODateWithMs));
        }
        return files;
    }

private:
    void Apply(const Edit& edit)
    {
        QFile file(path(edit.file));
        QByteArray bytes = edit.to;
        if (edit.kind == Edit::Replace) {
            if (!file.open(QIODevice::ReadOnly) || !(bytes = file.readAll()).contains(edit.from))
                qFatal("%s holds no %s", qPrintable(edit.file), edit.from.constData());
            file.close();
            bytes.replace(edit.from, edit.to);
        }
        QDir().mkpath(QFileInfo(file).path());
        file.remove();
        bool ok = true;
        if (edit.kind == Edit::Fifo)
            ok = mkfifo(QFile::encodeName(file.fileName()), 0600) == 0;
        else if (edit.kind != Edit::Remove)
            ok = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
        if (!ok)
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

    QTemporaryDir m_dir;
};
