// SPDX-License-Identifier: GPL-3.0-or-later
// The stage plan of frmMainSSF: the scene drawn from above in a window of its own, which
// follows every edit and selects a record's row when its mark is clicked.

#include "foundation/controls/ListBox.h"
#include "plan/frmStagePlan.h"
#include "stage/frmMainSSF.h"

#include <QTabWidget>

void frmMainSSF::menStagePlan_Click()
{
    if (!m_plan) {
        m_plan = std::make_unique<frmStagePlan>();
        connect(m_plan.get(), &frmStagePlan::RecordClicked, this,
                [this](PlanRecord::Kind kind, qint16 index) { SelectRecordOfMark(kind, index); });
        ShowSceneInPlan();
    } else {
        m_plan->Refresh(); // the edits made while it was closed
    }
    m_plan->show();
    m_plan->raise();
    m_plan->activateWindow();
}

void frmMainSSF::ShowSceneInPlan()
{
    if (m_plan)
        m_plan->SetScene(objSSF.get(), strCurrentFile);
}

void frmMainSSF::RefreshPlan()
{
    if (m_plan && m_plan->isVisible())
        m_plan->Refresh();
}

void frmMainSSF::SelectRecordOfMark(int kind, qint16 index)
{
    const bool puppet = kind == PlanRecord::Puppet;
    pageTabs->setCurrentIndex(puppet ? 0 : 2);
    // Its Click shows the record in the page's boxes, as a pick of the row does.
    (puppet ? lstPuppets : lstCameras)->setListIndex(index);
    raise();
    activateWindow();
}
