// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the plan's world stands on screen: a centre in world X and Z, a scale in pixels per
// world unit and the viewport's size. X grows to the right and Z up the screen, so the screen's
// y runs against Z. Zooming and fitting change only the scale and the centre: marks and labels
// keep their pixel size whatever the zoom.

#include <QMarginsF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

class PlanView {
public:
    // The smallest and largest scale, in pixels per world unit: a whole single-precision world
    // fits in a viewport, and zooming in stops where a pixel is a millionth of a unit.
    static constexpr double MinScale = 1e-40;
    static constexpr double MaxScale = 1e6;
    // The world units a fit shows around marks that all stand on one spot, or around the origin
    // when there are none: a small stage.
    static constexpr double SpotExtent = 100;

    // A resize keeps the centre and the scale.
    void SetViewport(const QSizeF& size) { m_viewport = size; }
    const QSizeF& Viewport() const { return m_viewport; }
    double Scale() const { return m_scale; }

    // Centres `bounds` in the viewport less `margins` and scales it to fill that room.
    void Fit(const QRectF& bounds, const QMarginsF& margins);
    // Zooms by `factor`, keeping the world point under `screen` where it is.
    void ZoomAbout(const QPointF& screen, double factor);
    // Moves the world with the mouse by a distance in pixels.
    void Pan(const QPointF& pixels);

    QPointF ToScreen(const QPointF& world) const;
    QPointF ToWorld(const QPointF& screen) const;
    // The world shown, in the terms of StagePlan::Bounds: its top is the least Z.
    QRectF VisibleWorld() const;

    // The least of 1, 2 or 5 times a power of ten that is `atLeast` or more.
    static double NiceStep(double atLeast);

private:
    QPointF m_centre;
    QSizeF m_viewport{1, 1};
    double m_scale = 1;
};
