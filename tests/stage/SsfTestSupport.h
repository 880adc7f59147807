#pragma once
// Shared by the tests of Part 3.2: the example file, small complete children, a dump of the
// whole model and a temporary directory that writes the files the tests load.

#include "stage/clsSSF.h"

#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

namespace SsfTest {

// The one-line example of Part 3.2.
inline constexpr char ExampleFile[] =
    R"ssf(<scene world="..\rez\worlds\theatre" maincamera="0" nickname="" server="" port="">)ssf"
    R"ssf(<puppet id="0" rbt="..\\rez\\bear.rbt" position="0.0,0.0,0.0" scale="1.0,1.0,1.0" orientation="0.0,90.0,0.0"/>)ssf"
    R"ssf(<sound id="0" name="hello" type="dialog" file="..\\rez\\sounds\\hello"/>)ssf"
    R"ssf(<sound id="1" name="door" type="sound" file="..\\rez\\sounds\\door.wav"/>)ssf"
    R"ssf(<camera id="0" name="front" position="0.0,10.0,-5.0" orientation="0.0,0.0,0.0"/>)ssf"
    R"ssf(</scene>)ssf";

// Smallest complete children, for files whose records don't matter.
inline constexpr char Puppet[] = R"(<puppet id="0" rbt="" position=",," scale=",," orientation=",,"/>)";
inline constexpr char Sound[] = R"(<sound id="0" name="" type="sound" file=""/>)";
inline constexpr char Camera[] = R"(<camera id="0" name="" position=",," orientation=",,"/>)";

// Every field of the model, one line per record, fields apart by "|".
inline QStringList dump(const clsSSF& ssf)
{
    QStringList lines;
    lines << QStringList{"scene", ssf.World, ssf.MainCamera, ssf.Nickname, ssf.Server, ssf.Port}
                 .join(u'|');
    for (qint16 i = 0; i < ssf.NumPuppets(); ++i) {
        const auto p = ssf.Puppets(i);
        lines << QStringList{"puppet", p->Id, p->RBT, p->PositionX, p->PositionY, p->PositionZ,
                             p->ScaleX, p->ScaleY, p->ScaleZ,
                             p->OrientationX, p->OrientationY, p->OrientationZ}
                     .join(u'|');
    }
    for (qint16 i = 0; i < ssf.NumSounds(); ++i) {
        const auto s = ssf.Sounds(i);
        lines << QStringList{"sound", s->Id, s->File, s->Name, s->TypeSound}.join(u'|');
    }
    for (qint16 i = 0; i < ssf.NumCameras(); ++i) {
        const auto c = ssf.Cameras(i);
        lines << QStringList{"camera", c->Id, c->Name, c->PositionX, c->PositionY, c->PositionZ,
                             c->OrientationX, c->OrientationY, c->OrientationZ}
                     .join(u'|');
    }
    return lines;
}

inline QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArrayLiteral("<unreadable>");
    return file.readAll();
}

inline QByteArray repeated(const char* element, int count)
{
    return QByteArray(element).repeated(count);
}

// A temporary directory for the files of one test program.
class Files {
public:
    bool isValid() const { return m_dir.isValid(); }
    QString filePath(const QString& name) const { return m_dir.filePath(name); }

    // A new file holding these bytes.
    QString with(const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(QStringLiteral("in%1.ssf").arg(++m_count));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    // The bytes Save writes for this model, or a text no golden holds.
    QByteArray saved(const clsSSF& ssf)
    {
        const QString path = m_dir.filePath(QStringLiteral("out%1.ssf").arg(++m_count));
        if (!ssf.Save(path))
            return QByteArrayLiteral("<Save gave False>");
        return readBytes(path);
    }

private:
    QTemporaryDir m_dir;
    int m_count = 0;
};

} // namespace SsfTest
