// SPDX-License-Identifier: GPL-3.0-or-later
#include "plan/frmStagePlan.h"

#include "plan/PlanCanvas.h"
#include "plan/PlanPainter.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

frmStagePlan::frmStagePlan(QWidget* parent)
    : QWidget(parent, Qt::Window), picPlan(new PlanCanvas(this)),
      cmdFit(new QPushButton(QStringLiteral("Fit"), this)), fraNotPlaced(new QWidget(this)),
      lblNotPlaced(new QLabel(fraNotPlaced)), lstNotPlaced(new QListWidget(fraNotPlaced))
{
    setObjectName(QStringLiteral("frmStagePlan"));
    picPlan->setObjectName(QStringLiteral("picPlan"));
    cmdFit->setObjectName(QStringLiteral("cmdFit"));
    cmdFit->setToolTip(QStringLiteral("Show every mark (F or Home)"));
    fraNotPlaced->setObjectName(QStringLiteral("fraNotPlaced"));
    lblNotPlaced->setObjectName(QStringLiteral("lblNotPlaced"));
    lstNotPlaced->setObjectName(QStringLiteral("lstNotPlaced"));
    lstNotPlaced->setWordWrap(true);
    resize(900, 640);

    auto* hint = new QLabel(QStringLiteral("Wheel: zoom   Drag: move   Click: select the record"));
    hint->setForegroundRole(QPalette::PlaceholderText);
    auto* top = new QHBoxLayout;
    top->addWidget(cmdFit);
    top->addWidget(hint, 1);
    // The records not placed, beside the plan; hidden while there are none.
    auto* side = new QVBoxLayout(fraNotPlaced);
    side->setContentsMargins(0, 0, 0, 0);
    side->addWidget(lblNotPlaced);
    side->addWidget(lstNotPlaced, 1);
    fraNotPlaced->setFixedWidth(280);
    picPlan->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* body = new QHBoxLayout;
    body->addWidget(picPlan, 1);
    body->addWidget(fraNotPlaced);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(body, 1);

    connect(cmdFit, &QPushButton::clicked, picPlan, &PlanCanvas::Fit);
    for (const Qt::Key key : {Qt::Key_F, Qt::Key_Home})
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, picPlan,
                &PlanCanvas::Fit);
    connect(picPlan, &PlanCanvas::MarkClicked, this,
            [this](PlanRecord record) { emit RecordClicked(record.kind, record.index); });
    connect(lstNotPlaced, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const PlanRecord record = picPlan->Plan().Unplaced().at(lstNotPlaced->row(item)).record;
        emit RecordClicked(record.kind, record.index);
    });
    SetScene(nullptr, {});
}

void frmStagePlan::SetScene(const clsSSF* scene, const QString& fileName)
{
    m_scene = scene;
    setWindowTitle(QStringLiteral("Stage Plan - ") +
                   (fileName.isEmpty() ? QStringLiteral("<no name>") : fileName));
    picPlan->Fit();
    Refresh();
}

void frmStagePlan::Refresh()
{
    picPlan->SetPlan(m_scene ? StagePlan(*m_scene) : StagePlan());
    const auto& unplaced = picPlan->Plan().Unplaced();
    lstNotPlaced->clear();
    for (const PlanUnplaced& record : unplaced)
        lstNotPlaced->addItem(record.text);
    lblNotPlaced->setText(PlanPainter::UnplacedHeading(picPlan->Plan()));
    fraNotPlaced->setVisible(!unplaced.isEmpty());
}
