// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/ShowCheck.h"

#include "foundation/FileAccess.h"
#include "foundation/Number.h"
#include "foundation/mdlGeneral.h"
#include "rig/LtaScanner.h"
#include "rig/clsRBT.h"
#include "show/clsTSL.h"
#include "stage/clsSSF.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

// "1 error", "2 errors".
QString Counted(qsizetype count, const QString& thing)
{
    return u"%1 %2%3"_s.arg(count).arg(thing, count == 1 ? u""_s : u"s"_s);
}

// A record by kind and Id, as the findings name it: "puppet 1".
QString Record(const QString& kind, const QString& id)
{
    return id.isEmpty() ? kind + u" without an Id"_s : kind + u' ' + id;
}

// A path as a finding shows it: without "." or ".." steps, with native separators.
QString Shown(const QString& path) { return QDir::toNativeSeparators(QDir::cleanPath(path)); }

} // namespace

bool ShowCheck::CheckFile(const QString& path, QString* why)
{
    const QString absolute = Shown(QFileInfo(path).absoluteFilePath());
    const QString suffix = QFileInfo(absolute).suffix().toLower();
    const std::optional<Kind> kind = suffix == u"tsl"   ? std::optional(Kind::TSL)
                                     : suffix == u"ssf" ? std::optional(Kind::SSF)
                                     : suffix == u"rbt" ? std::optional(Kind::RBT)
                                                        : std::nullopt;
    const ShowFiles::Found found = m_files.Find(absolute);
    if (!kind || !found) {
        if (why)
            *why = kind ? u"there is no such file"_s : u"it is no .tsl, .ssf or .rbt file"_s;
        return false;
    }
    return CheckOnce(*kind, found, QFileInfo(found.path).absolutePath() + QDir::separator(), why);
}

void ShowCheck::CheckDocument(const clsTSL& tsl, const QString& name, const QString& baseDir)
{
    ++m_filesChecked;
    CheckTSL(tsl, name, baseDir);
}

void ShowCheck::CheckDocument(const clsSSF& ssf, const QString& name, const QString& baseDir)
{
    ++m_filesChecked;
    CheckSSF(ssf, name, baseDir);
}

void ShowCheck::CheckDocument(const clsRBT& rbt, const QString& name, const QString&)
{
    ++m_filesChecked; // its paths were joined to the base folder as it was read
    CheckRBT(rbt, name);
}

int ShowCheck::Count(Finding::Severity severity) const
{
    return int(std::count_if(m_findings.cbegin(), m_findings.cend(),
                             [severity](const Finding& f) { return f.severity == severity; }));
}

QString ShowCheck::Summary() const
{
    return u"%1 checked: %2, %3"_s.arg(Counted(m_filesChecked, u"file"_s),
                                       Counted(Count(Finding::Severity::Error), u"error"_s),
                                       Counted(Count(Finding::Severity::Warning), u"warning"_s));
}

void ShowCheck::Error(const QString& file, const QString& record, const QString& message)
{
    m_findings.append({file, record, Finding::Severity::Error, message});
}

void ShowCheck::Warning(const QString& file, const QString& record, const QString& message)
{
    m_findings.append({file, record, Finding::Severity::Warning, message});
}

bool ShowCheck::CheckOnce(Kind kind, const ShowFiles::Found& found, const QString& baseDir,
                          QString* why)
{
    // A rig binding's model lies relative to the base folder, so the base is part of the key.
    const std::pair key(found.identity, baseDir);
    if (m_checked.contains(key))
        return true;
    clsTSL tsl;
    clsSSF ssf;
    clsRBT rbt;
    QString reason;
    bool loaded = false;
    {
        QFile file;
        if (!FileAccess::OpenForReading(file, found.path, &reason)) {
            if (why) {
                *why = reason;
                return false;
            }
        } else {
            loaded = kind == Kind::TSL   ? tsl.Read(file, &reason)
                     : kind == Kind::SSF ? ssf.Read(file, &reason)
                                         : rbt.Read(file, baseDir, &reason);
        }
    }
    m_checked.insert(key);
    ++m_filesChecked;
    if (!loaded)
        Error(found.path, {}, u"the file does not load: "_s + reason);
    else if (kind == Kind::TSL)
        CheckTSL(tsl, found.path, baseDir);
    else if (kind == Kind::SSF)
        CheckSSF(ssf, found.path, baseDir);
    else
        CheckRBT(rbt, found.path);
    return true;
}

ShowFiles::Found ShowCheck::Reach(Kind kind, const QString& stored, const QString& file,
                                  const QString& record, const QString& baseDir)
{
    const QString what = kind == Kind::SSF ? u"stage scene"_s : u"rig binding"_s;
    if (stored.isEmpty()) {
        Error(file, record, u"it names no "_s + what);
        return {};
    }
    const QString named = u"the %1 %2"_s.arg(what, stored);
    const ShowFiles::Reference where = m_files.Locate(baseDir, stored);
    if (!where.runTime && !where.managers) {
        const QString paths = where.runTimePath == where.managersPath
                                  ? where.runTimePath
                                  : where.runTimePath + u" and "_s + where.managersPath;
        Error(file, record, u"%1 is missing (looked for %2)"_s.arg(named, paths));
    } else if (!where.runTime) {
        Error(file, record,
              u"%1 is missing where the run-time looks for it (%2); the managers open %3"_s.arg(
                  named, where.runTimePath, where.managers.path));
    } else if (!where.managers) {
        Warning(file, record,
                u"the managers cannot open %1: it is not in the base folder (looked for %2); "
                u"the run-time plays %3"_s.arg(named, where.managersPath, where.runTime.path));
    } else if (where.runTime.identity != where.managers.identity) {
        Warning(file, record,
                u"%1 is two files: the run-time plays %2, the managers open %3"_s.arg(
                    named, where.runTime.path, where.managers.path));
    }
    return where.runTime ? where.runTime : where.managers;
}

const ShowCheck::ModelLists& ShowCheck::Scan(const QString& ltaPath)
{
    const auto known = m_models.constFind(ltaPath);
    if (known != m_models.cend())
        return *known;
    ModelLists model;
    LtaScanner scanner;
    QFile file;
    QString why;
    if (!m_files.Find(ltaPath)) {
        model.why = u"the model's text file %1 is missing"_s.arg(ltaPath);
    } else if (scanner.ScanModel(ltaPath)) {
        model.animations = scanner.strAnimations.size();
        for (qsizetype i = 0; i < scanner.strNodes.size(); ++i)
            model.nodes.insert(scanner.strNodes.at(i));
    } else if (!FileAccess::OpenForReading(file, ltaPath, &why)) {
        model.why = u"the model's text file %1 cannot be read: %2"_s.arg(ltaPath, why);
    } else {
        model.why = u"the model's text file %1 cannot be scanned: a list of more than 32767 names, "
                    u"or brackets nested too deep"_s.arg(ltaPath);
    }
    return *m_models.insert(ltaPath, std::move(model));
}

void ShowCheck::CheckWorld(const QString& world, const QString& what, const QString& file,
                           const QString& baseDir)
{
    if (world.isEmpty())
        return Warning(file, {}, u"it names no "_s + what);
    const QString dat = ShowFiles::RunTimePath(baseDir, world + u".dat"_s);
    if (!m_files.IsFile(dat))
        Warning(file, {},
                u"the %1 %2 has no world file (looked for %3); fine if the game brings it"_s.arg(
                    what, world, dat));
}

void ShowCheck::CheckTSL(const clsTSL& tsl, const QString& file, const QString& baseDir)
{
    if (tsl.Title.isEmpty())
        Warning(file, {}, u"the show has no title"_s);
    CheckWorld(tsl.MainWorld, u"main world"_s, file, baseDir);

    QHash<QString, QString> sceneOf; // the first scene on each stage scene file
    QList<ShowFiles::Found> reached;
    for (qint16 i = 0; i < tsl.NumScenes(); ++i) {
        const clsScene& scene = *tsl.Scenes(i);
        const QString record = Record(u"scene"_s, scene.Id);
        // The run-time numbers the scenes by their place, from 0.
        if (scene.Id != QString::number(i))
            Warning(file, record, u"its Id should be %1, its place in the show"_s.arg(i));
        // Paths that differ in case alone lead to one file on the run-time's machine.
        const QString played = ShowFiles::RunTimePath(baseDir, scene.SSF).toLower();
        if (const auto first = sceneOf.constFind(played); first != sceneOf.cend())
            Warning(file, record, u"%1 plays the stage scene %2 too"_s.arg(*first, scene.SSF));
        else if (!scene.SSF.isEmpty())
            sceneOf.insert(played, record);
        reached.append(Reach(Kind::SSF, scene.SSF, file, record, baseDir));
    }
    for (const ShowFiles::Found& found : std::as_const(reached)) {
        if (found)
            CheckOnce(Kind::SSF, found, baseDir);
    }
}

void ShowCheck::CheckNumbers(const QString& file, const QString& record, const QString& what,
                             const QString& x, const QString& y, const QString& z)
{
    const QString* const values[] = {&x, &y, &z};
    for (int axis = 0; axis < 3; ++axis) {
        const QString& text = *values[axis];
        const QChar name = QChar(u'X' + axis);
        const std::optional<double> value = ReadNumber(text);
        if (!value)
            Error(file, record,
                  u"the %1 of its %2, \"%3\", is no number"_s.arg(name).arg(what, text));
        else if (*value == 0 && what == u"scale")
            Warning(file, record, u"the %1 of its scale is 0, which flattens it"_s.arg(name));
    }
}

void ShowCheck::CheckSSF(const clsSSF& ssf, const QString& file, const QString& baseDir)
{
    CheckWorld(ssf.World, u"world"_s, file, baseDir);
    QSet<QString> cameraIds;
    for (qint16 i = 0; i < ssf.NumCameras(); ++i)
        cameraIds.insert(ssf.Cameras(i)->Id);
    if (ssf.MainCamera.isEmpty())
        Warning(file, {}, u"it names no main camera"_s);
    else if (!cameraIds.contains(ssf.MainCamera))
        Error(file, {}, u"the main camera %1 is no camera of the scene"_s.arg(ssf.MainCamera));
    bool portOk = false;
    const int port = ssf.Port.trimmed().toInt(&portOk);
    if (!portOk || port < 1 || port > 65535)
        Warning(file, {}, u"the port \"%1\" is no number from 1 to 65535"_s.arg(ssf.Port));

    QList<ShowFiles::Found> reached;
    for (qint16 i = 0; i < ssf.NumPuppets(); ++i) {
        const clsPuppet& p = *ssf.Puppets(i);
        const QString record = Record(u"puppet"_s, p.Id);
        CheckNumbers(file, record, u"position"_s, p.PositionX, p.PositionY, p.PositionZ);
        CheckNumbers(file, record, u"scale"_s, p.ScaleX, p.ScaleY, p.ScaleZ);
        CheckNumbers(file, record, u"orientation"_s, p.OrientationX, p.OrientationY,
                     p.OrientationZ);
        reached.append(Reach(Kind::RBT, p.RBT, file, record, baseDir));
    }
    for (qint16 i = 0; i < ssf.NumSounds(); ++i)
        CheckSound(*ssf.Sounds(i), file, baseDir);
    QSet<QString> seen;
    for (qint16 i = 0; i < ssf.NumCameras(); ++i) {
        const clsCamera& c = *ssf.Cameras(i);
        const QString record = Record(u"camera"_s, c.Id);
        if (seen.contains(c.Id))
            Warning(file, record, u"another camera has this Id too"_s);
        seen.insert(c.Id);
        CheckNumbers(file, record, u"position"_s, c.PositionX, c.PositionY, c.PositionZ);
        CheckNumbers(file, record, u"orientation"_s, c.OrientationX, c.OrientationY,
                     c.OrientationZ);
    }
    for (const ShowFiles::Found& found : std::as_const(reached)) {
        if (found)
            CheckOnce(Kind::RBT, found, baseDir);
    }
}

void ShowCheck::CheckSound(const clsSound& s, const QString& file, const QString& baseDir)
{
    const QString record = Record(u"sound"_s, s.Id);
    if (s.TypeSound == u"sound") {
        const QString path = ShowFiles::RunTimePath(baseDir, s.File);
        if (s.File.isEmpty())
            Error(file, record, u"it names no sound file"_s);
        else if (!m_files.IsFile(path))
            Error(file, record,
                  u"the sound file %1 is missing (looked for %2)"_s.arg(s.File, path));
    } else if (s.TypeSound == u"dialog") {
        // The run-time plays the stem's takes: stem.wav, or the stem, digits and .wav.
        const QString stem = StoredSoundFile(s);
        const QString folder = ShowFiles::RunTimePath(baseDir, mdlGeneral::GetDirectory(stem));
        const QString name = mdlGeneral::GetFileName(stem);
        if (stem.isEmpty())
            Error(file, record, u"the dialog line names no file"_s);
        else if (!m_files.HasTake(folder, name))
            Error(file, record,
                  u"the dialog line %1 has no take (looked for %2.wav, or %2 with digits and "
                  u".wav, in %3)"_s.arg(stem, name, folder));
    } else {
        Error(file, record,
              u"its type \"%1\" is neither \"sound\" nor \"dialog\""_s.arg(s.TypeSound));
    }
}

void ShowCheck::CheckRBT(const clsRBT& rbt, const QString& file)
{
    // The model's lists decide which nodes and animations exist; without them those go
    // unchecked.
    const ModelLists* model = nullptr;
    if (mdlGeneral::GetFileName(rbt.Model).isEmpty()) {
        Error(file, {}, u"it names no model"_s);
    } else {
        model = &Scan(Shown(rbt.Model.chopped(1) + u'a'));
        if (!model->why.isEmpty()) {
            Error(file, {}, model->why);
            model = nullptr;
        } else if (!m_files.IsFile(rbt.Model)) {
            Warning(
                file, {},
                u"the compiled model %1 is missing beside its text file"_s.arg(Shown(rbt.Model)));
        }
    }
    if (!rbt.Texture.isEmpty() && !m_files.IsFile(rbt.Texture))
        Error(file, {}, u"the texture %1 is missing"_s.arg(Shown(rbt.Texture)));
    if (!rbt.Icon.isEmpty() && !m_files.IsFile(rbt.Icon))
        Error(file, {}, u"the bitmap %1 is missing"_s.arg(Shown(rbt.Icon)));

    QHash<QString, QString> jointOn;
    for (qint16 i = 0; i < rbt.NumJoints(); ++i) {
        const clsJoint& j = *rbt.Joints(i);
        const QString record = Record(u"joint"_s, j.Id);
        if (model && !model->nodes.contains(j.Node))
            Error(file, record, u"the node \"%1\" is not in the model"_s.arg(j.Node));
        if (const auto first = jointOn.constFind(j.Node); first != jointOn.cend())
            Warning(file, record, u"%1 is on the node \"%2\" too"_s.arg(*first, j.Node));
        else
            jointOn.insert(j.Node, record);
        const std::optional<double> min = ReadNumber(j.Min);
        const std::optional<double> max = ReadNumber(j.Max);
        if (!min)
            Error(file, record, u"its lower limit \"%1\" is no number"_s.arg(j.Min));
        if (!max)
            Error(file, record, u"its upper limit \"%1\" is no number"_s.arg(j.Max));
        if (min && max && *min > *max)
            Warning(file, record,
                    u"its lower limit %1 is above its upper limit %2"_s.arg(j.Min, j.Max));
        const auto on = [](const QString& component) {
            return ReadNumber(component).value_or(0) != 0;
        };
        if (!on(j.VectorX) && !on(j.VectorY) && !on(j.VectorZ))
            Warning(file, record,
                    u"its vector %1,%2,%3 has no component on, so it moves about no axis"_s.arg(
                        j.VectorX, j.VectorY, j.VectorZ));
    }

    QHash<QString, QString> animationNamed;
    for (qint16 i = 0; i < rbt.NumAnimations(); ++i) {
        const clsAnimation& a = *rbt.Animations(i);
        const QString record = Record(u"animation"_s, a.Id);
        bool ok = false;
        const int index = a.Id.toInt(&ok);
        if (model && (!ok || index < 0 || index >= model->animations))
            Error(file, record,
                  model->animations == 0
                      ? u"the model has no animations"_s
                      : u"the model has no animation %1: its animations are 0 to %2"_s.arg(
                            a.Id, QString::number(model->animations - 1)));
        if (const auto first = animationNamed.constFind(a.Name); first != animationNamed.cend())
            Warning(file, record, u"%1 is named \"%2\" too"_s.arg(*first, a.Name));
        else
            animationNamed.insert(a.Name, record);
    }
}
