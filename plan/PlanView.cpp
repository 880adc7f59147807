// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/PlanView.h"

#include <algorithm>
#include <cmath>
#include <limits>

void PlanView::Fit(const QRectF& bounds, const QMarginsF& margins)
{
    const QRectF room = QRectF(QPointF(0, 0), m_viewport).marginsRemoved(margins);
    const double width = std::max(room.width(), 1.0);
    const double height = std::max(room.height(), 1.0);
    // A side of zero length does not limit the scale; with both zero the fit shows a spot.
    constexpr double unlimited = std::numeric_limits<double>::infinity();
    double scale = std::min(bounds.width() > 0 ? width / bounds.width() : unlimited,
                            bounds.height() > 0 ? height / bounds.height() : unlimited);
    if (scale == unlimited)
        scale = std::min(width, height) / SpotExtent;
    m_scale = std::clamp(scale, MinScale, MaxScale);
    // The bounds' centre goes to the centre of the room, which margins may move off the
    // viewport's centre.
    const QPointF offset = room.center() - QPointF(m_viewport.width(), m_viewport.height()) / 2;
    m_centre = bounds.center() + QPointF(-offset.x(), offset.y()) / m_scale;
}

void PlanView::ZoomAbout(const QPointF& screen, double factor)
{
    const QPointF anchor = ToWorld(screen);
    m_scale = std::clamp(m_scale * factor, MinScale, MaxScale);
    m_centre += anchor - ToWorld(screen);
}

void PlanView::Pan(const QPointF& pixels)
{
    m_centre += QPointF(-pixels.x(), pixels.y()) / m_scale;
}

QPointF PlanView::ToScreen(const QPointF& world) const
{
    return {(world.x() - m_centre.x()) * m_scale + m_viewport.width() / 2,
            m_viewport.height() / 2 - (world.y() - m_centre.y()) * m_scale};
}

QPointF PlanView::ToWorld(const QPointF& screen) const
{
    return {m_centre.x() + (screen.x() - m_viewport.width() / 2) / m_scale,
            m_centre.y() - (screen.y() - m_viewport.height() / 2) / m_scale};
}

QRectF PlanView::VisibleWorld() const
{
    const QPointF topLeft = ToWorld({0, 0});
    const QPointF bottomRight = ToWorld({m_viewport.width(), m_viewport.height()});
    return QRectF(QPointF(topLeft.x(), bottomRight.y()), QPointF(bottomRight.x(), topLeft.y()));
}

double PlanView::NiceStep(double atLeast)
{
    if (!(atLeast > 0) || !std::isfinite(atLeast))
        return 1;
    const double power = std::pow(10.0, std::floor(std::log10(atLeast)));
    // Negative powers of ten are not exact in binary, so 5 * 10^-6 falls a rounding short
    // of an asked 5e-6; a little slack keeps the 5. A log10 a rounding short ends at 10.
    for (const double multiple : {1.0, 2.0, 5.0}) {
        if (multiple * power >= atLeast * (1 - 1e-12))
            return multiple * power;
    }
    return 10 * power;
}
