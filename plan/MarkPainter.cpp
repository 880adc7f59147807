// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/MarkPainter.h"

#include <QPainter>
#include <QtMath>

#include <cmath>

namespace {

// The screen direction of a heading: 0 up the page, 90 to the right.
QPointF Facing(double degrees)
{
    const double radians = qDegreesToRadians(degrees);
    return {std::sin(radians), -std::cos(radians)};
}

// A puppet's arrow: its tip, then the two back corners of its head.
QPolygonF Arrow(double heading)
{
    const QPointF facing = Facing(heading);
    const QPointF tip = facing * MarkPainter::ArrowLength;
    const QPointF back = tip - facing * MarkPainter::ArrowHead;
    const QPointF side = QPointF(-facing.y(), facing.x()) * MarkPainter::ArrowHead / 2;
    return {tip, back + side, back - side};
}

// A camera's fan: its place, then points along the arc of its view.
QPolygonF Fan(double heading)
{
    QPolygonF fan{QPointF(0, 0)};
    for (int step = -2; step <= 2; ++step)
        fan << Facing(heading + step * MarkPainter::FanHalfAngle / 2) * MarkPainter::FanLength;
    return fan;
}

} // namespace

QColor MarkPainter::Mix(const QColor& from, const QColor& to, double share)
{
    return QColor::fromRgbF(float(from.redF() + (to.redF() - from.redF()) * share),
                            float(from.greenF() + (to.greenF() - from.greenF()) * share),
                            float(from.blueF() + (to.blueF() - from.blueF()) * share));
}

QPolygonF MarkPainter::Outline(const PlanMark& mark, const QPointF& at)
{
    if (mark.record.kind == PlanRecord::Camera)
        return Fan(mark.heading).translated(at);
    const QPolygonF arrow = Arrow(mark.heading);
    return QPolygonF{QPointF(0, 0), arrow[0], arrow[1], arrow[2], arrow[0]}.translated(at);
}

QColor MarkPainter::Colour(const PlanMark& mark) const
{
    if (mark.record.kind == PlanRecord::Puppet)
        return m_palette.color(QPalette::Text);
    return m_palette.color(mark.main ? QPalette::Highlight : QPalette::Link);
}

void MarkPainter::DrawShapes(QPainter& painter, const PlanMark& mark, const QPointF& at) const
{
    painter.save();
    painter.translate(at);
    drawAtOrigin(painter, mark, mark.heading);
    painter.restore();
}

void MarkPainter::drawAtOrigin(QPainter& painter, const PlanMark& mark, double heading) const
{
    const QColor colour = Colour(mark);
    if (mark.record.kind == PlanRecord::Puppet) {
        const QPolygonF arrow = Arrow(heading);
        painter.setPen(QPen(colour, 1.5));
        painter.setBrush(Mix(m_palette.color(QPalette::Base), colour, 0.25));
        painter.drawEllipse(QPointF(0, 0), PuppetRadius, PuppetRadius);
        painter.drawLine(Facing(heading) * PuppetRadius, arrow[0]);
        painter.setBrush(colour);
        painter.drawPolygon(arrow);
        return;
    }
    // The main camera's fan is filled, the others' only tinted.
    QColor fill = colour;
    fill.setAlphaF(mark.main ? 0.7f : 0.2f);
    painter.setPen(QPen(colour, mark.main ? 2 : 1.5));
    painter.setBrush(fill);
    painter.drawPolygon(Fan(heading));
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(0, 0), 3.5, 3.5);
}

void MarkPainter::DrawSprite(QPainter& painter, const PlanMark& mark, const QPointF& at) const
{
    const qreal ratio = painter.device()->devicePixelRatio();
    if (ratio != m_spriteRatio) {
        m_sprites.clear();
        m_spriteRatio = ratio;
    }
    const int steps = 360 / SpriteDegrees;
    const int step = ((qRound(mark.heading / SpriteDegrees) % steps) + steps) % steps;
    const int key = (step * 2 + int(mark.record.kind)) * 2 + int(mark.main);
    auto sprite = m_sprites.constFind(key);
    if (sprite == m_sprites.cend()) {
        PlanMark turned = mark;
        turned.heading = step * SpriteDegrees;
        // Room for the pen's width and the smoothing round the outline and the disc, in whole
        // pixels, so the sprite is copied, not resampled.
        const QRect bounds =
            Outline(turned, {})
                .boundingRect()
                .united(QRectF(-PuppetRadius, -PuppetRadius, 2 * PuppetRadius, 2 * PuppetRadius))
                .adjusted(-3, -3, 3, 3)
                .toAlignedRect();
        QImage image((QSizeF(bounds.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter onSprite(&image);
        onSprite.setRenderHint(QPainter::Antialiasing);
        onSprite.translate(-bounds.topLeft());
        drawAtOrigin(onSprite, turned, turned.heading);
        sprite = m_sprites.insert(key, {image, bounds.topLeft()});
    }
    painter.drawImage(at.toPoint() + sprite->offset, sprite->image);
}
