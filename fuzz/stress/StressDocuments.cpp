// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/stress/StressDocuments.h"

#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"
#include "show/clsTSL.h"
#include "stage/clsSSF.h"

#include <memory>

namespace {

constexpr int MaxRecords = 32767;
constexpr int Puppets = 10000;

std::shared_ptr<clsRBT> MakeRBT(const QString& version, int joints)
{
    auto rbt = std::make_shared<clsRBT>();
    rbt->Name = QStringLiteral("Hero ") + version;
    rbt->Model = mdlGeneral::strCurrentDir + QStringLiteral("models/hero_%1.ltb").arg(version);
    for (int i = 0; i < joints; ++i) {
        auto joint = std::make_shared<clsJoint>();
        joint->Node = QStringLiteral("node %1 %2").arg(i).arg(version);
        joint->Min = QStringLiteral("-90.0");
        joint->Max = QStringLiteral("90.0");
        joint->VectorX = QStringLiteral("0.0");
        joint->VectorY = QStringLiteral("1.0");
        joint->VectorZ = QStringLiteral("0.0");
        joint->Action = QStringLiteral("rotate");
        joint->Description = QStringLiteral("joint %1 of the %2 binding").arg(i).arg(version);
        rbt->AddJoint(joint);
    }
    return rbt;
}

std::shared_ptr<clsSSF> MakeSSF(const QString& version, int puppets)
{
    auto ssf = std::make_shared<clsSSF>();
    ssf->World = QStringLiteral("..\\rez\\worlds\\") + version;
    ssf->MainCamera = QStringLiteral("0");
    for (int i = 0; i < puppets; ++i) {
        auto puppet = std::make_shared<clsPuppet>();
        puppet->RBT = QStringLiteral("..\\rez\\%1_%2.rbt").arg(version).arg(i);
        puppet->PositionX = QString::number(i);
        ssf->AddPuppet(puppet);
    }
    return ssf;
}

std::shared_ptr<clsTSL> MakeTSL(const QString& version, int scenes)
{
    auto tsl = std::make_shared<clsTSL>();
    tsl->Title = QStringLiteral("Show ") + version;
    tsl->MainWorld = QStringLiteral("..\\rez\\worlds\\park");
    for (int i = 0; i < scenes; ++i) {
        auto scene = std::make_shared<clsScene>();
        scene->Name = QStringLiteral("scene %1 %2").arg(i).arg(version);
        scene->SSF = QStringLiteral("..\\rez\\%1_%2.ssf").arg(version).arg(i);
        tsl->AddScene(scene);
    }
    return tsl;
}

// A save of the document made now, kept for every later save.
template <class Document> std::function<bool(const QString&)> Saver(std::shared_ptr<Document> doc)
{
    return [doc](const QString& file) { return doc->Save(file); };
}

} // namespace

std::vector<StressFormat> MakeStressFormats()
{
    // The old document has half the records of the new one, so on a full disk the new one
    // cannot take the place of the old.
    const QString oldVersion = QStringLiteral("old");
    const QString newVersion = QStringLiteral("new");
    return {
        {QStringLiteral("rbt"), QStringLiteral("%1 joints").arg(MaxRecords),
         Saver(MakeRBT(oldVersion, MaxRecords / 2)), Saver(MakeRBT(newVersion, MaxRecords))},
        {QStringLiteral("ssf"), QStringLiteral("%1 puppets").arg(Puppets),
         Saver(MakeSSF(oldVersion, Puppets / 2)), Saver(MakeSSF(newVersion, Puppets))},
        {QStringLiteral("tsl"), QStringLiteral("%1 scenes").arg(MaxRecords),
         Saver(MakeTSL(oldVersion, MaxRecords / 2)), Saver(MakeTSL(newVersion, MaxRecords))},
    };
}
