// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `frmStagePlan`, the stage plan: one stage scene drawn from above in a window of its own,
// beside the stage manager. It reads the scene and never changes it; the records whose numbers
// do not read are listed beside the plan. A click on a mark, or on a listed record, reports
// that record, so the manager can select its row.

#include "plan/StagePlan.h"

#include <QWidget>

class PlanCanvas;
class QLabel;
class QListWidget;
class QPushButton;
class clsSSF;

class frmStagePlan : public QWidget {
    Q_OBJECT

public:
    explicit frmStagePlan(QWidget* parent = nullptr);

    // The scene shown from now on, fitted. The window holds it by reference and never owns
    // or edits it: pass nullptr before the scene goes. `fileName` is its bare file name,
    // empty for a scene never saved.
    void SetScene(const clsSSF* scene, const QString& fileName);
    // Reads the scene again; the manager calls it after every edit. The place and zoom stay.
    void Refresh();

signals:
    void RecordClicked(PlanRecord::Kind kind, qint16 index);

private:
    const clsSSF* m_scene = nullptr;
    PlanCanvas* picPlan;
    QPushButton* cmdFit;
    QWidget* fraNotPlaced;
    QLabel* lblNotPlaced;
    QListWidget* lstNotPlaced;
};
