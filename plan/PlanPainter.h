// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Draws a stage plan with QPainter: the grid with its scale, each mark with its label, and the
// list of records not placed. The window and the picture files draw through this one class, in
// the colours of the palette they are given, so the plan follows the desktop's theme. Marks and
// labels keep their pixel size at any zoom; only their places scale.

#include "plan/MarkPainter.h"
#include "plan/PlanView.h"
#include "plan/StagePlan.h"

#include <QFont>
#include <QPalette>
#include <QVarLengthArray>

#include <optional>
#include <vector>

class QPainter;

class PlanPainter {
public:
    // A raster picture is seen at its size: a label that would cover another is left out, and
    // past OverviewMarks marks in view each is a dot, the main camera apart. A vector picture
    // is zoomed and searched in its viewer: it keeps every mark and every label.
    enum class Output { Raster, Vector };
    static constexpr int OverviewMarks = 3000;

    // The list of records not placed stops after this many lines and counts the rest.
    static constexpr int MaxUnplacedLines = 500;
    // A raster label of marks on one spot names this many, the last line counting the rest.
    static constexpr int MaxSpotLines = 4;

    PlanPainter(const QPalette& palette, const QFont& font);

    // The room a fit leaves round the marks: the grid's numbers stand at the left and bottom
    // edges, and labels to the right of their marks.
    static QMarginsF FitMargins() { return {56, 40, 160, 56}; }

    // The plan over the whole viewport of `view`, from the painter's origin.
    void PaintPlan(QPainter& painter, const StagePlan& plan, const PlanView& view,
                   Output output) const;
    // The records not placed under a heading, one line each, from the top left of `area`.
    void PaintUnplaced(QPainter& painter, const StagePlan& plan, const QRectF& area) const;
    // The heading over the list, which counts them.
    static QString UnplacedHeading(const StagePlan& plan);
    // The size PaintUnplaced draws in.
    QSizeF UnplacedSize(const StagePlan& plan) const;

    // The record whose mark is nearest to `screen`, if one is within reach of a click.
    static std::optional<PlanRecord> MarkAt(const StagePlan& plan, const PlanView& view,
                                            const QPointF& screen);

private:
    // Marks standing on one pixel, which share one label.
    struct Spot {
        QPointF at;
        QVarLengthArray<const PlanMark*, 2> marks;
    };

    void paintGrid(QPainter& painter, const PlanView& view) const;
    // The axes' names and the scale.
    void paintKey(QPainter& painter, const PlanView& view) const;
    // `overview`: too many marks in view to draw whole; each is a dot.
    void paintMarks(QPainter& painter, const std::vector<Spot>& spots, Output output,
                    bool overview) const;
    void paintLabels(QPainter& painter, const std::vector<Spot>& spots, const QSizeF& viewport,
                     Output output, bool overview) const;
    QStringList unplacedLines(const StagePlan& plan) const;

    QPalette m_palette;
    QFont m_font;
    MarkPainter m_marks;
};
