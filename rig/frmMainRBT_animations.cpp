// SPDX-License-Identifier: GPL-3.0-or-later
// `frmMainRBT`: animations. `lstAnims` shows every animation of the model, in the model's
// order, so a row's index is the animation's Id; `lstAnimations` shows those the document
// offers, each under a name of the author's choosing. An animation has no editor controls:
// its name is all that changes, and the two lists do not react to each other.

#include "foundation/controls/DialogService.h"
#include "foundation/controls/ListBox.h"
#include "rig/frmMainRBT.h"

namespace {

const QString AnimationPrompt = QStringLiteral("Name of the animation");

} // namespace

QString frmMainRBT::AnimationRowText(const clsAnimation& animation)
{
    return animation.Name + QStringLiteral(" (") + animation.Anim + u')';
}

void frmMainRBT::lstAnimations_KeyDown(int KeyCode)
{
    if (KeyCode == ListBox::KeyCodeDelete)
        menDeleteAnimation_Click();
    else if (KeyCode == ListBox::KeyCodeF2)
        menRenameAnimation_Click();
}

void frmMainRBT::enableAnimation()
{
    const int index = lstAnims->ListIndex();
    if (!objRBT || index == -1 || !roomForOneMore(objRBT->NumAnimations()))
        return;
    auto a = std::make_shared<clsAnimation>();
    a->Id = QString::number(index);
    a->Anim = lstAnims->List(index);
    // An empty answer is taken as it is: Cancel offers the animation without a name.
    a->Name = m_dialogs.InputBox(AnimationPrompt, a->Anim);
    objRBT->AddAnimation(a);
    lstAnimations->AddItem(AnimationRowText(*a));
}

void frmMainRBT::menRenameAnimation_Click()
{
    const int index = lstAnimations->ListIndex();
    const std::shared_ptr<clsAnimation> animation =
        objRBT && index != -1 ? objRBT->Animations(index) : nullptr;
    if (!animation)
        return;
    const QString answer = m_dialogs.InputBox(AnimationPrompt, animation->Name);
    // Cancel and an emptied box both leave the animation as it was.
    if (answer.isEmpty())
        return;
    animation->Name = answer;
    lstAnimations->setList(index, AnimationRowText(*animation));
}

void frmMainRBT::menDeleteAnimation_Click()
{
    const int index = lstAnimations->ListIndex();
    if (!objRBT || index == -1)
        return;
    // No question is asked; the others keep their rows and Ids.
    objRBT->DeleteAnimation(index);
    lstAnimations->RemoveItem(index);
    lstAnimations->setListIndex(index - 1);
}
