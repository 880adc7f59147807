// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/PlanPicture.h"

#include "plan/PlanPainter.h"

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace {

// The plan's part of the picture; the list of records not placed stands to its right.
constexpr QSizeF PlanSize(960, 720);

} // namespace

namespace PlanPicture {

QString Write(const clsSSF& scene, const QString& title, const QString& file,
              const QPalette& palette, const QFont& font)
{
    const QString format = QFileInfo(file).suffix().toLower();
    if (format != u"svg" && format != u"png")
        return file + QStringLiteral(": a plan is written as .svg or .png");

    const StagePlan plan(scene);
    const PlanPainter painter(palette, font);
    PlanView view;
    view.SetViewport(PlanSize);
    view.Fit(plan.Bounds(), PlanPainter::FitMargins());
    const QSizeF list = plan.Unplaced().isEmpty() ? QSizeF(0, 0) : painter.UnplacedSize(plan);
    const QSize size =
        QSizeF(PlanSize.width() + list.width(), std::max(PlanSize.height(), list.height()))
            .toSize();
    const auto paint = [&](QPainter& on, PlanPainter::Output output) {
        on.fillRect(QRect(QPoint(0, 0), size), palette.color(QPalette::Window));
        painter.PaintPlan(on, plan, view, output);
        if (!plan.Unplaced().isEmpty())
            painter.PaintUnplaced(on, plan, QRectF(QPointF(PlanSize.width(), 0), list));
    };

    // Written whole or not at all: a failed write leaves any earlier picture in place.
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly))
        return file + QStringLiteral(": cannot be written (") + out.errorString() + u')';
    if (format == u"svg") {
        QSvgGenerator svg;
        svg.setOutputDevice(&out);
        svg.setSize(size);
        svg.setViewBox(QRect(QPoint(0, 0), size));
        svg.setResolution(96); // as a QImage has it, so text stands as large as in a PNG
        svg.setTitle(title);
        QPainter on(&svg);
        paint(on, PlanPainter::Output::Vector);
    } else {
        QImage image(size, QImage::Format_RGB32);
        QPainter on(&image);
        paint(on, PlanPainter::Output::Raster);
        on.end();
        if (!image.save(&out, "PNG"))
            return file + QStringLiteral(": the picture could not be encoded");
    }
    if (!out.commit())
        return file + QStringLiteral(": cannot be written (") + out.errorString() + u')';
    return {};
}

} // namespace PlanPicture
