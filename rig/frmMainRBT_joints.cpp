// SPDX-License-Identifier: GPL-3.0-or-later
// `frmMainRBT`: joints. A node picked in `lstNodes` becomes a joint through `enableJointButton`,
// with the settings of the controls between the two lists (action, limits, axis). With a row of
// `lstJoints` selected the same controls show that joint and every change goes straight into
// it; with none they are merely the settings for the next joint. Selecting in one list
// clears the other.

#include "foundation/controls/CheckBox.h"
#include "foundation/controls/DialogService.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/OptionButton.h"
#include "foundation/controls/TextBox.h"
#include "rig/frmMainRBT.h"

namespace {

const QString JointPrompt = QStringLiteral("Name of the joint");

// True when the number at the head of `text` is not 0. Blanks in front are skipped, then a
// sign, and digits with at most one decimal point are read as far as they go; a text that
// does not start with a number, the empty text too, counts as 0.
bool HeadNumberIsNonZero(const QString& text)
{
    qsizetype i = 0;
    while (i < text.size() && text[i] == u' ')
        ++i;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-'))
        ++i;
    bool point = false;
    for (; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'.' && !point)
            point = true;
        else if (c >= u'1' && c <= u'9')
            return true;
        else if (c != u'0')
            break;
    }
    return false;
}

QString VectorComponent(const CheckBox& box)
{
    return box.Value() == 1 ? QStringLiteral("1.0") : QStringLiteral("0.0");
}

} // namespace

QString frmMainRBT::JointRowText(const clsJoint& joint)
{
    return joint.Description + QStringLiteral(" (") + joint.Node + u')';
}

std::shared_ptr<clsJoint> frmMainRBT::SelectedJoint() const
{
    const int index = lstJoints->ListIndex();
    return objRBT && index != -1 ? objRBT->Joints(index) : nullptr;
}

void frmMainRBT::ShowJoint(qint16 index)
{
    const std::shared_ptr<clsJoint> j = objRBT ? objRBT->Joints(index) : nullptr;
    if (!j)
        return;
    // The controls' own events run and write into the joint shown: for texts the window
    // wrote they change nothing, while a hand-made file's other action becomes "translate"
    // and a component such as 0.5 becomes "1.0" when its box turns on.
    if (j->Action == u"rotate") {
        chkRotate->setValue(true);
        chkTranslate->setValue(false);
    } else {
        chkTranslate->setValue(true);
        chkRotate->setValue(false);
    }
    txtMax->setText(j->Max);
    txtMin->setText(j->Min);
    chkX->setValue(HeadNumberIsNonZero(j->VectorX) ? 1 : 0);
    chkY->setValue(HeadNumberIsNonZero(j->VectorY) ? 1 : 0);
    chkZ->setValue(HeadNumberIsNonZero(j->VectorZ) ? 1 : 0);
}

void frmMainRBT::lstNodes_Click()
{
    if (lstNodes->ListIndex() != -1)
        lstJoints->setListIndex(-1);
}

void frmMainRBT::lstJoints_Click()
{
    const int index = lstJoints->ListIndex();
    if (index == -1)
        return;
    lstNodes->setListIndex(-1);
    ShowJoint(index);
}

void frmMainRBT::lstJoints_KeyDown(int KeyCode)
{
    if (KeyCode == ListBox::KeyCodeDelete)
        menDeleteJoint_Click();
    else if (KeyCode == ListBox::KeyCodeF2)
        menRenameJoint_Click();
}

// --- the editor controls, on the selected joint ---

void frmMainRBT::chkRotate_Click()
{
    if (const std::shared_ptr<clsJoint> joint = SelectedJoint(); joint && chkRotate->Value())
        joint->Action = QStringLiteral("rotate");
}

void frmMainRBT::chkTranslate_Click()
{
    if (const std::shared_ptr<clsJoint> joint = SelectedJoint(); joint && chkTranslate->Value())
        joint->Action = QStringLiteral("translate");
}

void frmMainRBT::chkX_Click() { writeVector(&clsJoint::VectorX, *chkX); }
void frmMainRBT::chkY_Click() { writeVector(&clsJoint::VectorY, *chkY); }
void frmMainRBT::chkZ_Click() { writeVector(&clsJoint::VectorZ, *chkZ); }

void frmMainRBT::writeVector(QString clsJoint::*component, const CheckBox& box)
{
    if (const std::shared_ptr<clsJoint> joint = SelectedJoint())
        (*joint).*component = VectorComponent(box);
}

void frmMainRBT::txtMin_Change()
{
    if (const std::shared_ptr<clsJoint> joint = SelectedJoint())
        joint->Min = txtMin->Text();
}

void frmMainRBT::txtMax_Change()
{
    if (const std::shared_ptr<clsJoint> joint = SelectedJoint())
        joint->Max = txtMax->Text();
}

// --- the commands ---

void frmMainRBT::enableJoint()
{
    // A node and an action must be chosen; the same node may become any number of joints.
    if (!objRBT || lstNodes->ListIndex() == -1 || !(chkRotate->Value() || chkTranslate->Value()))
        return;
    if (!roomForOneMore(objRBT->NumJoints()))
        return;
    auto j = std::make_shared<clsJoint>();
    j->Node = lstNodes->List(lstNodes->ListIndex());
    j->Action = chkRotate->Value() ? QStringLiteral("rotate") : QStringLiteral("translate");
    j->Max = txtMax->Text();
    j->Min = txtMin->Text();
    j->VectorX = VectorComponent(*chkX);
    j->VectorY = VectorComponent(*chkY);
    j->VectorZ = VectorComponent(*chkZ);
    j->Description = m_dialogs.InputBox(JointPrompt, j->Action + u' ' + j->Node);
    // Cancel does not stop the command: the joint comes under a name of its own.
    if (j->Description.isEmpty())
        j->Description = QStringLiteral("No Name");
    objRBT->AddJoint(j);
    lstJoints->AddItem(JointRowText(*j));
}

void frmMainRBT::menRenameJoint_Click()
{
    const int index = lstJoints->ListIndex();
    const std::shared_ptr<clsJoint> joint = SelectedJoint();
    if (!joint)
        return;
    const QString answer = m_dialogs.InputBox(JointPrompt, joint->Description);
    // Cancel and an emptied box both leave the joint as it was.
    if (answer.isEmpty())
        return;
    joint->Description = answer;
    lstJoints->setList(index, JointRowText(*joint));
}

void frmMainRBT::menDeleteJoint_Click()
{
    const int index = lstJoints->ListIndex();
    if (!objRBT || index == -1)
        return;
    // No question is asked. The joints behind are renumbered by the document; the row above
    // becomes selected and shown, or none when the first row went.
    objRBT->DeleteJoint(index);
    lstJoints->RemoveItem(index);
    lstJoints->setListIndex(index - 1);
}
