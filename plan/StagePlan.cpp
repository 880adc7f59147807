// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/StagePlan.h"

#include "foundation/Number.h"
#include "foundation/mdlGeneral.h"
#include "stage/clsSSF.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// "puppet 3", the way a record without a name of its own is told.
QString RecordWord(PlanRecord record)
{
    return (record.kind == PlanRecord::Puppet ? QStringLiteral("puppet ")
                                              : QStringLiteral("camera ")) +
           QString::number(record.index);
}

} // namespace

bool StagePlan::ReadNumber(const QString& text, double& value)
{
    const std::optional<double> read = ::ReadNumber(text);
    if (!read || std::abs(*read) > std::numeric_limits<float>::max())
        return false;
    value = *read;
    return true;
}

StagePlan::StagePlan(const clsSSF& scene)
{
    m_marks.reserve(scene.NumPuppets() + scene.NumCameras());
    for (qint16 i = 0; i < scene.NumPuppets(); ++i) {
        const auto puppet = scene.Puppets(i);
        place({PlanRecord::Puppet, i}, mdlGeneral::GetFileName(puppet->RBT), puppet->PositionX,
              puppet->PositionY, puppet->PositionZ, puppet->OrientationY, false);
    }
    // An empty MainCamera names no camera, even one whose Id is empty too.
    bool mainFound = scene.MainCamera.isEmpty();
    for (qint16 i = 0; i < scene.NumCameras(); ++i) {
        const auto camera = scene.Cameras(i);
        const bool main = !mainFound && camera->Id == scene.MainCamera;
        mainFound = mainFound || main;
        place({PlanRecord::Camera, i}, camera->Name, camera->PositionX, camera->PositionY,
              camera->PositionZ, camera->OrientationY, main);
    }
}

void StagePlan::place(PlanRecord record, const QString& name, const QString& x, const QString& y,
                      const QString& z, const QString& heading, bool main)
{
    PlanMark mark{record, {}, 0, name.isEmpty() ? RecordWord(record) : name, {}, main};
    double worldX = 0;
    double worldZ = 0;
    QStringList unread;
    const auto read = [&unread](const QString& label, const QString& text, double& value) {
        if (!ReadNumber(text, value))
            unread << label + QStringLiteral(" \"") + text + u'"';
    };
    read(QStringLiteral("X"), x, worldX);
    read(QStringLiteral("Z"), z, worldZ);
    read(QStringLiteral("heading"), heading, mark.heading);
    if (!unread.isEmpty()) {
        const QString who =
            name.isEmpty() ? mark.name : name + QStringLiteral(" (") + RecordWord(record) + u')';
        m_unplaced.append(
            {record, who + QStringLiteral(": no number in ") + unread.join(QStringLiteral(", "))});
        return;
    }

    // The height does not move a mark; a text that does not read is shown as typed.
    double height = 0;
    if (!ReadNumber(y, height) || height != 0)
        mark.height = y.trimmed();
    mark.position = {worldX, worldZ};
    // Not QRectF::united: it passes over rectangles of zero size, and one mark is one.
    if (m_marks.isEmpty())
        m_bounds = QRectF(mark.position, QSizeF(0, 0));
    else
        m_bounds.setCoords(std::min(m_bounds.left(), worldX), std::min(m_bounds.top(), worldZ),
                           std::max(m_bounds.right(), worldX), std::max(m_bounds.bottom(), worldZ));
    m_marks.append(mark);
}
