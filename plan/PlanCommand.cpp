// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/PlanCommand.h"

#include "foundation/FileAccess.h"
#include "foundation/mdlGeneral.h"
#include "plan/PlanPicture.h"
#include "stage/clsSSF.h"

#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <cstdio>

int RunPlanCommand(const QString& file, const QString& picture)
{
    QFile device;
    QString why;
    clsSSF scene;
    QString failure;
    if (!FileAccess::OpenForReading(device, file, &why))
        failure = file + QStringLiteral(": ") + why;
    else if (!scene.Read(device, &why))
        failure = file + QStringLiteral(": it is no stage scene: ") + why;
    else
        failure = PlanPicture::Write(
            scene, QStringLiteral("Stage Plan - ") + mdlGeneral::GetFileName(file), picture,
            QGuiApplication::palette(), QGuiApplication::font());
    if (failure.isEmpty())
        return 0;
    std::fprintf(stderr, "troupe: %s\n", qPrintable(failure));
    return 1;
}
