// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/PlanPainter.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPainter>

#include <array>
#include <cmath>

namespace {

// Sizes in pixels, whatever the zoom.
constexpr double LabelGap = 10;      // from a mark's place to its label
constexpr double PickReach = 12;     // a click this near a mark's place picks it
constexpr double MinGridPixels = 60; // grid lines stand at least this far apart
constexpr double DotSize = 4;        // a mark among too many to draw whole
constexpr double Padding = 8;
// A mark off screen is left out; one this near an edge may still show a part.
constexpr double Reach = MarkPainter::FanLength;

QString LabelOf(const PlanMark& mark)
{
    QString label = mark.name;
    if (mark.main)
        label += QStringLiteral(" (main)");
    if (!mark.height.isEmpty())
        label += QStringLiteral(", y ") + mark.height;
    return label;
}

// Whether the closed outline passes through the rectangle, tried at a few points along each of
// its sides: the rectangles are labels, larger than the gaps between those points.
bool Crosses(const QPolygonF& outline, const QRectF& rect)
{
    for (qsizetype side = 0; side < outline.size(); ++side) {
        const QLineF line(outline[side], outline[(side + 1) % outline.size()]);
        for (int i = 0; i <= 8; ++i) {
            if (rect.contains(line.pointAt(i / 8.0)))
                return true;
        }
    }
    return false;
}

// Where a label of that height may stand, in the order tried: the distance of its near edge
// from its spot (negative to the left) and its top below the spot. Beside the spot first, then
// beyond the reach of an arrow; right, then left; level with the spot, then below, then above.
std::array<std::pair<double, double>, 12> LabelPlaces(double height)
{
    constexpr double arrowReach = MarkPainter::ArrowLength + MarkPainter::ArrowHead / 2 + 2;
    constexpr double disc = MarkPainter::PuppetRadius + 1;
    std::array<std::pair<double, double>, 12> places;
    size_t next = 0;
    for (const double gap : {LabelGap, arrowReach})
        for (const double side : {1.0, -1.0})
            for (const double top : {-height / 2, disc, -disc - height})
                places[next++] = {side * gap, top};
    return places;
}

double GridStep(const PlanView& view) { return PlanView::NiceStep(MinGridPixels / view.Scale()); }

// A grid value: 0.30000000000000004 reads as 0.3, and a zero has no sign.
QString GridNumber(double value) { return QString::number(value == 0 ? 0 : value, 'g', 12); }

class LabelSpace {
public:
    explicit LabelSpace(const QSizeF& viewport)
        : m_viewport(QPointF(0, 0), viewport), m_columns(int(viewport.width() / Cell) + 1),
          m_rows(int(viewport.height() / Cell) + 1), m_taken(size_t(m_columns) * size_t(m_rows))
    {
    }
    bool isFree(const QRectF& rect) const
    {
        bool free = m_viewport.contains(rect);
        forCells(rect, [&](size_t cell) { free = free && !m_taken[cell]; });
        return free;
    }
    void take(const QRectF& rect)
    {
        forCells(rect, [&](size_t cell) { m_taken[cell] = true; });
    }

private:
    static constexpr double Cell = 4;

    template <class Step> void forCells(const QRectF& rect, Step step) const
    {
        const int left = std::max(0, int(rect.left() / Cell));
        const int right = std::min(m_columns - 1, int(rect.right() / Cell));
        const int top = std::max(0, int(rect.top() / Cell));
        const int bottom = std::min(m_rows - 1, int(rect.bottom() / Cell));
        for (int row = top; row <= bottom; ++row)
            for (int column = left; column <= right; ++column)
                step(size_t(row) * size_t(m_columns) + size_t(column));
    }

    QRectF m_viewport;
    int m_columns;
    int m_rows;
    std::vector<bool> m_taken;
};

} // namespace

PlanPainter::PlanPainter(const QPalette& palette, const QFont& font)
    : m_palette(palette), m_font(font), m_marks(palette)
{
}

void PlanPainter::PaintPlan(QPainter& painter, const StagePlan& plan, const PlanView& view,
                            Output output) const
{
    painter.save();
    const QRectF viewport(QPointF(0, 0), view.Viewport());
    painter.setClipRect(viewport);
    painter.fillRect(viewport, m_palette.color(QPalette::Base));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(m_font);
    paintGrid(painter, view);

    // Marks on one pixel share a spot, so that records placed on one spot all show.
    const QRectF reach = viewport.adjusted(-Reach, -Reach, Reach, Reach);
    std::vector<Spot> spots;
    QHash<QPoint, size_t> spotAt;
    for (const PlanMark& mark : plan.Marks()) {
        const QPointF at = view.ToScreen(mark.position);
        if (!reach.contains(at))
            continue;
        const size_t index = spotAt.value(at.toPoint(), spots.size());
        if (index == spots.size()) {
            spotAt.insert(at.toPoint(), index);
            spots.push_back({at, {}});
        }
        spots[index].marks.append(&mark);
    }
    qsizetype count = 0;
    for (const Spot& spot : spots)
        count += spot.marks.size();
    const bool overview = output == Output::Raster && count > OverviewMarks;
    paintMarks(painter, spots, output, overview);
    paintLabels(painter, spots, view.Viewport(), output, overview);
    paintKey(painter, view);
    painter.restore();
}

void PlanPainter::paintMarks(QPainter& painter, const std::vector<Spot>& spots, Output output,
                             bool overview) const
{
    // Dots gathered by colour and filled in one call each; the main camera is drawn whole.
    QHash<QRgb, std::vector<QRectF>> dots;
    for (const Spot& spot : spots) {
        for (const PlanMark* mark : spot.marks) {
            if (overview && !mark->main)
                dots[m_marks.Colour(*mark).rgba()].emplace_back(
                    spot.at - QPointF(DotSize, DotSize) / 2, QSizeF(DotSize, DotSize));
            else if (output == Output::Raster)
                m_marks.DrawSprite(painter, *mark, spot.at);
            else
                m_marks.DrawShapes(painter, *mark, spot.at);
        }
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Qt::NoPen);
    for (auto colour = dots.cbegin(); colour != dots.cend(); ++colour) {
        painter.setBrush(QColor::fromRgba(colour.key()));
        painter.drawRects(colour->data(), int(colour->size()));
    }
    painter.setRenderHint(QPainter::Antialiasing);
}

void PlanPainter::paintLabels(QPainter& painter, const std::vector<Spot>& spots,
                              const QSizeF& viewport, Output output, bool overview) const
{
    // A label keeps off the marks' places and other labels, and off the lines of its own marks;
    // it tries each side of its spot in turn. Where none is free, a raster picture leaves it
    // out and a vector picture puts it where it crosses no line of its own.
    LabelSpace space(viewport);
    constexpr double disc = MarkPainter::PuppetRadius;
    for (const Spot& spot : spots)
        space.take(QRectF(spot.at - QPointF(disc, disc), QSizeF(2 * disc, 2 * disc)));
    const QFontMetricsF metrics(m_font);
    const double line = metrics.height();
    painter.setPen(m_palette.color(QPalette::Text));
    for (const Spot& spot : spots) {
        const qsizetype shown = output == Output::Raster && spot.marks.size() > MaxSpotLines
                                    ? MaxSpotLines
                                    : spot.marks.size();
        const double height = shown * line;
        QStringList lines; // made once a place looks free
        double width = 0;
        const auto makeLines = [&] {
            for (qsizetype i = 0; i < shown; ++i)
                lines << LabelOf(*spot.marks[i]);
            if (shown < spot.marks.size())
                lines.last() = QStringLiteral("and %1 more").arg(spot.marks.size() - shown + 1);
            for (const QString& text : lines)
                width = std::max(width, metrics.horizontalAdvance(text));
        };
        std::optional<QRectF> place;
        std::optional<QRectF> fallback;
        for (const auto& [gap, top] : LabelPlaces(height)) {
            // The label's edge nearest to its spot, one pixel wide: a cheap first look.
            const QRectF edge(spot.at.x() + gap - (gap < 0 ? 1 : 0), spot.at.y() + top, 1, height);
            if (!space.isFree(edge))
                continue;
            if (lines.isEmpty())
                makeLines();
            const QRectF rect(gap > 0 ? edge.left() : edge.right() - width, edge.top(), width,
                              height);
            const auto crossesOwn = [&] {
                if (overview) // dots, no lines
                    return false;
                for (const PlanMark* mark : spot.marks)
                    if (Crosses(MarkPainter::Outline(*mark, spot.at), rect))
                        return true;
                return false;
            };
            if (crossesOwn())
                continue;
            fallback = fallback.value_or(rect);
            if (space.isFree(rect)) {
                place = rect;
                break;
            }
        }
        if (!place && output == Output::Vector) {
            if (lines.isEmpty())
                makeLines();
            place = fallback.value_or(
                QRectF(spot.at.x() + LabelGap, spot.at.y() - height / 2, 0, height));
        }
        if (!place)
            continue;
        space.take(*place);
        QPointF baseline = place->topLeft() + QPointF(0, metrics.ascent());
        for (const QString& text : lines) {
            painter.drawText(baseline, text);
            baseline.ry() += line;
        }
    }
}

void PlanPainter::paintGrid(QPainter& painter, const PlanView& view) const
{
    const QColor base = m_palette.color(QPalette::Base);
    const QColor text = m_palette.color(QPalette::Text);
    const QColor lineColour = MarkPainter::Mix(base, text, 0.12);
    const QColor axisColour = MarkPainter::Mix(base, text, 0.4);
    const QColor numberColour = MarkPainter::Mix(base, text, 0.65);
    const double width = view.Viewport().width();
    const double height = view.Viewport().height();
    const double step = GridStep(view);
    const QRectF world = view.VisibleWorld();
    const QFontMetricsF metrics(m_font);

    // Lines at whole steps, counted in steps, so that a far world cannot loop for ever.
    const auto eachLine = [step](double from, double to, const auto& draw) {
        const double first = std::ceil(from / step);
        const double count = std::floor(to / step) - first;
        for (int i = 0; count < 1000 && i <= count; ++i)
            draw((first + i) * step);
    };
    double numbersEnd = -1; // where the last number on the bottom edge ends
    eachLine(world.left(), world.right(), [&](double x) {
        const double at = view.ToScreen({x, 0}).x();
        painter.setPen(QPen(x == 0 ? axisColour : lineColour, x == 0 ? 1.5 : 1));
        painter.drawLine(QPointF(at, 0), QPointF(at, height));
        const QString number = GridNumber(x);
        if (at + 3 > numbersEnd) {
            painter.setPen(numberColour);
            painter.drawText(QPointF(at + 3, height - Padding), number);
            numbersEnd = at + 3 + metrics.horizontalAdvance(number) + Padding;
        }
    });
    eachLine(world.top(), world.bottom(), [&](double z) {
        const double at = view.ToScreen({0, z}).y();
        painter.setPen(QPen(z == 0 ? axisColour : lineColour, z == 0 ? 1.5 : 1));
        painter.drawLine(QPointF(0, at), QPointF(width, at));
        if (at < height - metrics.height() - Padding) { // clear of the bottom edge's numbers
            painter.setPen(numberColour);
            painter.drawText(QPointF(Padding / 2, at - 3), GridNumber(z));
        }
    });
}

void PlanPainter::paintKey(QPainter& painter, const PlanView& view) const
{
    // The axes' names, top right; the scale, bottom right, one grid step long. Both stand on
    // a patch of the background, over any mark or label.
    const QColor base = m_palette.color(QPalette::Base);
    const QColor text = m_palette.color(QPalette::Text);
    const QFontMetricsF metrics(m_font);
    const double width = view.Viewport().width();
    const double height = view.Viewport().height();
    const double step = GridStep(view);
    const QString scale = GridNumber(step) + QStringLiteral(" units");
    const double stepPixels = step * view.Scale();
    const QPointF barEnd(width - 2 * Padding, height - 3.5 * Padding);
    const QPointF barStart = barEnd - QPointF(stepPixels, 0);
    const QPointF origin(width - 6 * Padding, 5 * Padding);
    const QPointF zTip = origin - QPointF(0, 3 * Padding);
    const QPointF xTip = origin + QPointF(3 * Padding, 0);

    QColor patch = base;
    patch.setAlphaF(0.85f);
    painter.setPen(Qt::NoPen);
    painter.setBrush(patch);
    painter.drawRoundedRect(
        QRectF(zTip.x() - 2 * Padding, zTip.y() - 3 * Padding, 6 * Padding, 6.5 * Padding), 4, 4);
    const double scaleLeft = std::min(barStart.x(), barEnd.x() - metrics.horizontalAdvance(scale));
    painter.drawRoundedRect(QRectF(scaleLeft - Padding / 2, barEnd.y() - 5 - metrics.height(),
                                   barEnd.x() - scaleLeft + Padding, metrics.height() + 10),
                            4, 4);

    painter.setPen(QPen(MarkPainter::Mix(base, text, 0.5), 1.5));
    painter.drawPolyline(QPolygonF{zTip + QPointF(-3, 4), zTip, zTip + QPointF(3, 4)});
    painter.drawPolyline(QPolygonF{xTip + QPointF(-4, -3), xTip, xTip + QPointF(-4, 3)});
    painter.drawPolyline(QPolygonF{zTip, origin, xTip});
    painter.setPen(MarkPainter::Mix(base, text, 0.65));
    painter.drawText(zTip + QPointF(-3, -4), QStringLiteral("Z"));
    painter.drawText(xTip + QPointF(-4, metrics.ascent() + 2), QStringLiteral("X"));
    painter.setPen(QPen(text, 2));
    painter.drawLine(barStart, barEnd);
    painter.drawLine(barStart - QPointF(0, 3), barStart + QPointF(0, 3));
    painter.drawLine(barEnd - QPointF(0, 3), barEnd + QPointF(0, 3));
    painter.drawText(barEnd - QPointF(metrics.horizontalAdvance(scale), 5), scale);
}

QStringList PlanPainter::unplacedLines(const StagePlan& plan) const
{
    const auto& unplaced = plan.Unplaced();
    QStringList lines{UnplacedHeading(plan)};
    for (const PlanUnplaced& record :
         unplaced.first(std::min<qsizetype>(unplaced.size(), MaxUnplacedLines)))
        lines << record.text;
    if (unplaced.size() > MaxUnplacedLines)
        lines << QStringLiteral("and %1 more").arg(unplaced.size() - MaxUnplacedLines);
    return lines;
}

QString PlanPainter::UnplacedHeading(const StagePlan& plan)
{
    return QStringLiteral("Not placed (%1):").arg(plan.Unplaced().size());
}

QSizeF PlanPainter::UnplacedSize(const StagePlan& plan) const
{
    const QFontMetricsF metrics(m_font);
    double width = 0;
    const QStringList lines = unplacedLines(plan);
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    return {width + 2 * Padding, lines.size() * metrics.lineSpacing() + 2 * Padding};
}

void PlanPainter::PaintUnplaced(QPainter& painter, const StagePlan& plan, const QRectF& area) const
{
    painter.save();
    painter.setClipRect(area);
    painter.fillRect(area, m_palette.color(QPalette::Window));
    painter.setPen(m_palette.color(QPalette::WindowText));
    const QFontMetricsF metrics(m_font);
    QPointF baseline = area.topLeft() + QPointF(Padding, Padding + metrics.ascent());
    QFont heading = m_font;
    heading.setBold(true);
    painter.setFont(heading);
    for (const QString& line : unplacedLines(plan)) {
        painter.drawText(baseline, line);
        painter.setFont(m_font);
        baseline.ry() += metrics.lineSpacing();
    }
    painter.restore();
}

std::optional<PlanRecord> PlanPainter::MarkAt(const StagePlan& plan, const PlanView& view,
                                              const QPointF& screen)
{
    std::optional<PlanRecord> nearest;
    double nearestDistance = PickReach;
    for (const PlanMark& mark : plan.Marks()) {
        const double distance = QLineF(view.ToScreen(mark.position), screen).length();
        if (distance <= nearestDistance) {
            nearest = mark.record;
            nearestDistance = distance;
        }
    }
    return nearest;
}
