// SPDX-License-Identifier: GPL-3.0-or-later
// The puppet page: each puppet of the scene with its rig binding file, position, scale and
// orientation, on the page mechanism of frmMainSSF_pages.cpp.

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/Menu.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "stage/frmMainSSF.h"

frmMainSSF::Page<clsPuppet> frmMainSSF::PuppetPage()
{
    return {
        lstPuppets,       puppetDetail,        &clsSSF::AddPuppet,         &clsSSF::DeletePuppet,
        &clsSSF::Puppets, &clsSSF::NumPuppets, &frmMainSSF::PuppetRowText, &frmMainSSF::ShowPuppet};
}

void frmMainSSF::connectPuppetPage()
{
    connectPage(PuppetPage(), addPuppetButton, menDeletePuppet,
                {{txtRBT, &clsPuppet::RBT},
                 {txtPosX, &clsPuppet::PositionX},
                 {txtPosY, &clsPuppet::PositionY},
                 {txtPosZ, &clsPuppet::PositionZ},
                 {txtScaleX, &clsPuppet::ScaleX},
                 {txtScaleY, &clsPuppet::ScaleY},
                 {txtScaleZ, &clsPuppet::ScaleZ},
                 {txtOrienX, &clsPuppet::OrientationX},
                 {txtOrienY, &clsPuppet::OrientationY},
                 {txtOrienZ, &clsPuppet::OrientationZ}});
    connect(rbtChooser, &CommandButton::Click, this, &frmMainSSF::chooseRBT);
    connect(menEditRBT, &Menu::Click, this, &frmMainSSF::menEditRBT_Click);
}

void frmMainSSF::ShowPuppet(qint16 index)
{
    const std::shared_ptr<clsPuppet> puppet = objSSF ? objSSF->Puppets(index) : nullptr;
    if (!puppet)
        return;
    txtRBT->setText(puppet->RBT);
    txtPosX->setText(puppet->PositionX);
    txtPosY->setText(puppet->PositionY);
    txtPosZ->setText(puppet->PositionZ);
    txtScaleX->setText(puppet->ScaleX);
    txtScaleY->setText(puppet->ScaleY);
    txtScaleZ->setText(puppet->ScaleZ);
    txtOrienX->setText(puppet->OrientationX);
    txtOrienY->setText(puppet->OrientationY);
    txtOrienZ->setText(puppet->OrientationZ);
}

void frmMainSSF::chooseRBT()
{
    // A rig binding file is stored as "..\rez\" and its bare name. The first one picked
    // also sets the base directory of the run, where the binding manager looks for it.
    const QString file = ChooseFile(QStringLiteral("Rig Binding Tool Files (*.rbt)|*.rbt"),
                                    *rbtChooser, QStringLiteral("..\\rez\\"), *txtRBT);
    if (!file.isEmpty())
        mdlGeneral::TakeCurrentDirFrom(file);
}

void frmMainSSF::menEditRBT_Click()
{
    // Only the bare name goes across; the binding manager looks for it in the base
    // directory and comes up whether or not it opened.
    const int index = lstPuppets->ListIndex();
    const std::shared_ptr<clsPuppet> puppet =
        objSSF && index != -1 ? objSSF->Puppets(static_cast<qint16>(index)) : nullptr;
    HandOver(Manager::RBT,
             puppet ? std::optional(mdlGeneral::GetFileName(puppet->RBT)) : std::nullopt);
}
