// SPDX-License-Identifier: GPL-3.0-or-later
// The `.ssf` file: the scene read from and written to a device through the XML document
// service. `rbt` and `file` have their backslashes doubled in the file; `world` keeps them
// single.

#include "foundation/DOMDocument.h"
#include "foundation/FileAccess.h"
#include "foundation/Triple.h"
#include "foundation/mdlGeneral.h"
#include "stage/clsSSF.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// `File` from the undoubled `file` attribute: a dialog line gets its ".wav" back, not its
// digits.
QString LoadedSoundFile(const clsSound& s)
{
    if (s.TypeSound == u"sound")
        return s.File;
    return s.File + u".wav"_s;
}

// Each record needs every attribute of its kind, read in the order they are written; a
// triple with fewer than two commas fails too. The record is appended only when all are read,
// with its Id as the file has it.
bool ReadPuppet(const XmlNode& element, RecordList<clsPuppet>& puppets, QString* why)
{
    const auto p = std::make_shared<clsPuppet>();
    if (!element.readAttribute(u"id", p->Id, why) || !element.readAttribute(u"rbt", p->RBT, why) ||
        !element.readTriple(u"position", p->PositionX, p->PositionY, p->PositionZ, why) ||
        !element.readTriple(u"scale", p->ScaleX, p->ScaleY, p->ScaleZ, why) ||
        !element.readTriple(u"orientation", p->OrientationX, p->OrientationY, p->OrientationZ, why))
        return false;
    p->RBT = mdlGeneral::UndoubleBackslashes(p->RBT);
    return AppendRead(puppets, p, element, why);
}

bool ReadSound(const XmlNode& element, RecordList<clsSound>& sounds, QString* why)
{
    const auto s = std::make_shared<clsSound>();
    if (!element.readAttribute(u"id", s->Id, why) ||
        !element.readAttribute(u"name", s->Name, why) ||
        !element.readAttribute(u"type", s->TypeSound, why) ||
        !element.readAttribute(u"file", s->File, why))
        return false;
    s->File = mdlGeneral::UndoubleBackslashes(s->File);
    s->File = LoadedSoundFile(*s);
    return AppendRead(sounds, s, element, why);
}

// A camera's name is taken and written unchanged, like a sound's, so it round-trips.
bool ReadCamera(const XmlNode& element, RecordList<clsCamera>& cameras, QString* why)
{
    const auto c = std::make_shared<clsCamera>();
    if (!element.readAttribute(u"id", c->Id, why) ||
        !element.readAttribute(u"name", c->Name, why) ||
        !element.readTriple(u"position", c->PositionX, c->PositionY, c->PositionZ, why) ||
        !element.readTriple(u"orientation", c->OrientationX, c->OrientationY, c->OrientationZ, why))
        return false;
    return AppendRead(cameras, c, element, why);
}

} // namespace

QString StoredSoundFile(const clsSound& s)
{
    if (s.TypeSound == u"sound")
        return s.File;
    // The cut is at the last "." of the whole text, the directory part too.
    qsizetype k = s.File.lastIndexOf(u'.'); // characters in front of the dot; -1 when none
    while (k >= 1 && s.File.at(k - 1) >= u'0' && s.File.at(k - 1) <= u'9')
        --k;
    return k > 0 ? s.File.left(k) : QString();
}

bool clsSSF::Read(QIODevice& device, QString* why)
{
    // An ill-formed text has no root, which fails at once. The root's name is not looked at;
    // `world` is the one required attribute, the other four read empty when absent.
    DOMDocument objDOM;
    if (!objDOM.read(device, why))
        return false;
    const XmlNode objRoot = objDOM.documentElement();
    // A scene of its own replaces this one only when the whole file was read.
    clsSSF read;
    if (!objRoot.readAttribute(u"world", read.World, why))
        return false;
    read.MainCamera = NullToEmpty(objRoot.getAttribute(u"maincamera"));
    read.Nickname = NullToEmpty(objRoot.getAttribute(u"nickname"));
    read.Server = NullToEmpty(objRoot.getAttribute(u"server"));
    read.Port = NullToEmpty(objRoot.getAttribute(u"port"));

    // The three kinds in any order and mix, by exact name; any other element is passed over.
    const bool whole = ReadChildElements(objRoot, why, [&](const XmlNode& child) {
        if (child.tagName() == u"puppet")
            return ReadPuppet(child, read.m_puppets, why);
        if (child.tagName() == u"sound")
            return ReadSound(child, read.m_sounds, why);
        if (child.tagName() == u"camera")
            return ReadCamera(child, read.m_cameras, why);
        return true;
    });
    if (whole)
        *this = std::move(read);
    return whole;
}

bool clsSSF::Write(QIODevice& device, QString* why) const
{
    // A new tree from the literal root pair: what Load read is not reused. All five root
    // attributes are written, an empty field as an empty attribute.
    DOMDocument objDOM;
    objDOM.loadXML(u"<scene></scene>"_s);
    XmlNode objRoot = objDOM.documentElement();
    objRoot.setAttribute(u"world"_s, World);
    objRoot.setAttribute(u"maincamera"_s, MainCamera);
    objRoot.setAttribute(u"nickname"_s, Nickname);
    objRoot.setAttribute(u"server"_s, Server);
    objRoot.setAttribute(u"port"_s, Port);

    // Puppets, then sounds, then cameras, each in list order. `File` itself keeps its text.
    for (const std::shared_ptr<clsPuppet>& p : m_puppets) {
        XmlNode objElement = objDOM.createElement(u"puppet"_s);
        objElement.setAttribute(u"id"_s, p->Id);
        objElement.setAttribute(u"rbt"_s, mdlGeneral::DoubleBackslashes(p->RBT));
        objElement.setAttribute(u"position"_s,
                                JoinTriple(p->PositionX, p->PositionY, p->PositionZ));
        objElement.setAttribute(u"scale"_s, JoinTriple(p->ScaleX, p->ScaleY, p->ScaleZ));
        objElement.setAttribute(u"orientation"_s,
                                JoinTriple(p->OrientationX, p->OrientationY, p->OrientationZ));
        objRoot.appendChild(objElement);
    }
    for (const std::shared_ptr<clsSound>& s : m_sounds) {
        XmlNode objElement = objDOM.createElement(u"sound"_s);
        objElement.setAttribute(u"id"_s, s->Id);
        objElement.setAttribute(u"name"_s, s->Name);
        objElement.setAttribute(u"type"_s, s->TypeSound);
        objElement.setAttribute(u"file"_s, mdlGeneral::DoubleBackslashes(StoredSoundFile(*s)));
        objRoot.appendChild(objElement);
    }
    for (const std::shared_ptr<clsCamera>& c : m_cameras) {
        XmlNode objElement = objDOM.createElement(u"camera"_s);
        objElement.setAttribute(u"id"_s, c->Id);
        objElement.setAttribute(u"name"_s, c->Name);
        objElement.setAttribute(u"position"_s,
                                JoinTriple(c->PositionX, c->PositionY, c->PositionZ));
        objElement.setAttribute(u"orientation"_s,
                                JoinTriple(c->OrientationX, c->OrientationY, c->OrientationZ));
        objRoot.appendChild(objElement);
    }

    return objDOM.write(device, why);
}

bool clsSSF::Load(const QString& strFile)
{
    QFile file;
    return FileAccess::OpenForReading(file, strFile) && Read(file);
}

bool clsSSF::Save(const QString& strFile, QString* why) const
{
    return FileAccess::SaveWhole(
        strFile, [&](QIODevice& file) { return Write(file, why); }, why);
}
