// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/PlanCanvas.h"

#include "plan/PlanPainter.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace {

// A notch of the wheel (120 eighths of a degree) zooms by this factor.
constexpr double ZoomPerNotch = 1.25;
// A press that moves farther than this, in pixels, is a drag, not a click.
constexpr double DragDistance = 4;

} // namespace

PlanCanvas::PlanCanvas(QWidget* parent)
    : QWidget(parent), m_painter(std::make_unique<PlanPainter>(palette(), font()))
{
    setMinimumSize(240, 180);
    setCursor(Qt::OpenHandCursor);
}

PlanCanvas::~PlanCanvas() = default;

void PlanCanvas::SetPlan(StagePlan plan)
{
    m_plan = std::move(plan);
    if (m_fitted)
        m_view.Fit(m_plan.Bounds(), PlanPainter::FitMargins());
    update();
}

void PlanCanvas::Fit()
{
    m_fitted = true;
    m_view.Fit(m_plan.Bounds(), PlanPainter::FitMargins());
    update();
}

void PlanCanvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_painter->PaintPlan(painter, m_plan, m_view, PlanPainter::Output::Raster);
}

void PlanCanvas::changeEvent(QEvent* event)
{
    // A new theme or font: the marks drawn ahead in the old colours go.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        m_painter = std::make_unique<PlanPainter>(palette(), font());
    QWidget::changeEvent(event);
}

void PlanCanvas::resizeEvent(QResizeEvent*)
{
    m_view.SetViewport(size());
    if (m_fitted)
        m_view.Fit(m_plan.Bounds(), PlanPainter::FitMargins());
}

void PlanCanvas::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0)
        return;
    m_fitted = false;
    m_view.ZoomAbout(event->position(), std::pow(ZoomPerNotch, notches));
    update();
}

void PlanCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressedAt = m_draggedTo = event->position();
    m_dragging = false;
}

void PlanCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    if (!m_dragging && QLineF(m_pressedAt, event->position()).length() <= DragDistance)
        return;
    m_dragging = true;
    m_fitted = false;
    setCursor(Qt::ClosedHandCursor);
    m_view.Pan(event->position() - m_draggedTo);
    m_draggedTo = event->position();
    update();
}

void PlanCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setCursor(Qt::OpenHandCursor);
    if (m_dragging)
        return;
    if (const auto record = PlanPainter::MarkAt(m_plan, m_view, event->position()))
        emit MarkClicked(*record);
}
