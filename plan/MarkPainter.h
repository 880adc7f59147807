// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Draws one mark of the stage plan: a puppet as a disc with an arrow in its heading, a camera as
// a fan opening in its heading, the main camera's fan filled. On a vector picture each mark is
// drawn as shapes; on a raster one it is copied from a sprite drawn once for its kind and its
// heading to the nearest few degrees, since thousands of marks stroked one by one would take
// longer than a frame.

#include "plan/StagePlan.h"

#include <QHash>
#include <QImage>
#include <QPalette>
#include <QPolygonF>

class QPainter;

class MarkPainter {
public:
    // Sizes in pixels, whatever the zoom.
    static constexpr double PuppetRadius = 5;
    static constexpr double ArrowLength = 22;
    static constexpr double ArrowHead = 7;
    static constexpr double FanLength = 40;
    static constexpr double FanHalfAngle = 22; // degrees: drawn the same for every camera
    // Sprites are drawn for headings this many degrees apart.
    static constexpr int SpriteDegrees = 3;

    explicit MarkPainter(const QPalette& palette) : m_palette(palette) {}

    // `from` moved towards `to` by `share` (0 to 1): the plan's tints of the palette's colours.
    static QColor Mix(const QColor& from, const QColor& to, double share);

    // The outline of the mark standing at `at`, which labels keep off: a puppet's arrow from
    // its place to its tip and round its head; a camera's fan.
    static QPolygonF Outline(const PlanMark& mark, const QPointF& at);

    void DrawShapes(QPainter& painter, const PlanMark& mark, const QPointF& at) const;
    void DrawSprite(QPainter& painter, const PlanMark& mark, const QPointF& at) const;
    // The colour of the mark's kind, for a mark drawn as a dot among too many to draw whole.
    QColor Colour(const PlanMark& mark) const;

private:
    struct Sprite {
        QImage image;
        QPoint offset; // from the mark's place to the image's top left
    };
    // The mark at the origin, facing `heading`.
    void drawAtOrigin(QPainter& painter, const PlanMark& mark, double heading) const;

    QPalette m_palette;
    mutable QHash<int, Sprite> m_sprites; // by kind, main or not, and heading
    mutable qreal m_spriteRatio = 0;      // the device pixel ratio they are drawn for
};
