// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The widget the stage plan window draws its plan in. The wheel zooms about the cursor, a
// drag moves the plan, and a click on a mark reports its record. Until the user zooms or
// drags, the plan stays fitted to the scene, through resizes and edits alike.

#include "plan/PlanView.h"
#include "plan/StagePlan.h"

#include <QWidget>

#include <memory>

class PlanPainter;

class PlanCanvas : public QWidget {
    Q_OBJECT

public:
    explicit PlanCanvas(QWidget* parent = nullptr);
    ~PlanCanvas() override;

    // The plan drawn from now on; the place and zoom stay unless the plan is fitted.
    void SetPlan(StagePlan plan);
    // Shows every mark, and keeps doing so until the next zoom or drag.
    void Fit();

    const StagePlan& Plan() const { return m_plan; }
    const PlanView& View() const { return m_view; }

signals:
    void MarkClicked(PlanRecord record);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    std::unique_ptr<PlanPainter> m_painter; // keeps the marks it has drawn ahead
    StagePlan m_plan;
    PlanView m_view;
    bool m_fitted = true;
    QPointF m_pressedAt; // where the left button went down
    QPointF m_draggedTo; // where the plan has been dragged to since then
    bool m_dragging = false;
};
