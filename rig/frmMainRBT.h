// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `frmMainRBT`, the rig binding manager: the window in which a `.rbt` document is made,
// opened and saved, and its joints and animations chosen from its model's lists. It holds
// the logic of its events, by topic: files and general information (frmMainRBT.cpp), joints
// (frmMainRBT_joints.cpp), animations (frmMainRBT_animations.cpp); its controls and menus
// are laid out in frmMainRBT_layout.cpp.
//
// The model's nodes and animations stand on the left (`lstNodes`, `lstAnims`), what the
// document enables on the right (`lstJoints`, `lstAnimations`). Row i of an enabled list is
// record i of its document list, so a list's `ListIndex` is the record index; no other
// variable says which record is under edit.

#include "foundation/controls/ManagerFrame.h"
#include "rig/LtaScanner.h"
#include "rig/clsRBT.h"

#include <memory>

class CheckBox;
class CommandButton;
class Frame;
class ListBox;
class OptionButton;
class QLabel;
class TextBox;
class frmNewRBT;

class frmMainRBT : public ManagerFrame {
    Q_OBJECT

public:
    // The standard dialogs go through `dialogs`; `links` reaches the other managers (none
    // leaves the Tools entries without effect). The window keeps both references.
    explicit frmMainRBT(DialogService& dialogs, SuiteLinks* links = nullptr);
    ~frmMainRBT() override;

    // Opens the file of that bare name in `strCurrentDir` as the window's document; shows
    // its own message on failure and never shows the window. True when the document opened,
    // also when its model could not be scanned.
    bool OpenRBT(const QString& strFileName);

    // The open document as it stands, saved or not; nullptr until the first New or Open.
    const clsRBT* Document() const { return objRBT.get(); }

private:
    // --- layout (frmMainRBT_layout.cpp) ---
    void createControls();
    void createMenus();
    void connectEvents();

    // --- files and general information (frmMainRBT.cpp) ---
    void FillModelLists();
    void FillDocument();
    void menNewRBT_Click();
    void menOpenRBT_Click();
    void menSaveRBT_Click();
    void chooseTexture();
    void chooseBitmap();
    // textureChooser and bitmapChooser: a file picked in the open dialog goes into `box`.
    void chooseInto(const QString& filter, CommandButton& chooser, TextBox& box);
    void txtTexture_Change();
    void txtBitmap_Change();
    // The message of an open whose animations do not match the model.
    void reportModelChanged(const QString& strFileName, const QString& description);
    // False when one more record would not fit: the list already holds `listCount` records,
    // its most, or the document as many records as its file can carry.
    bool roomForOneMore(qint16 listCount) const;

    // --- joints (frmMainRBT_joints.cpp) ---
    static QString JointRowText(const clsJoint& joint);
    std::shared_ptr<clsJoint> SelectedJoint() const;
    void ShowJoint(qint16 index);
    void lstNodes_Click();
    void lstJoints_Click();
    void lstJoints_KeyDown(int KeyCode);
    void chkRotate_Click();
    void chkTranslate_Click();
    void chkX_Click();
    void chkY_Click();
    void chkZ_Click();
    void txtMin_Change();
    void txtMax_Change();
    void enableJoint();
    void menRenameJoint_Click();
    void menDeleteJoint_Click();
    // chkX, chkY and chkZ Click: the axis component of the selected joint follows its box.
    void writeVector(QString clsJoint::*component, const CheckBox& box);

    // --- animations (frmMainRBT_animations.cpp) ---
    static QString AnimationRowText(const clsAnimation& animation);
    void lstAnimations_KeyDown(int KeyCode);
    void enableAnimation();
    void menRenameAnimation_Click();
    void menDeleteAnimation_Click();

    // --- state ---
    std::unique_ptr<clsRBT> objRBT; // none until the first New or Open
    QString strRBTFile;
    QString strModelFile;
    // What the last successful scan found: `strAnimations` and `strNodes`.
    LtaScanner m_model;
    // Made at the first New; thrown away when refused, so the next New starts empty.
    std::unique_ptr<frmNewRBT> m_newRBT;

    // --- controls, owned by the window through their Qt parents ---
    Frame* generalFrame = nullptr;
    QLabel* nameLabel = nullptr;
    TextBox* txtName = nullptr;
    QLabel* modelLabel = nullptr;
    TextBox* txtModel = nullptr;
    QLabel* textureLabel = nullptr;
    TextBox* txtTexture = nullptr;
    CommandButton* textureChooser = nullptr;
    QLabel* bitmapLabel = nullptr;
    TextBox* txtBitmap = nullptr;
    CommandButton* bitmapChooser = nullptr;

    Frame* listsFrame = nullptr;
    QLabel* nodesLabel = nullptr;
    ListBox* lstNodes = nullptr;
    CommandButton* enableJointButton = nullptr;
    QLabel* jointsLabel = nullptr;
    ListBox* lstJoints = nullptr;
    Frame* actionFrame = nullptr;
    OptionButton* chkRotate = nullptr;
    OptionButton* chkTranslate = nullptr;
    Frame* limitsFrame = nullptr;
    QLabel* minLabel = nullptr;
    TextBox* txtMin = nullptr;
    QLabel* maxLabel = nullptr;
    TextBox* txtMax = nullptr;
    Frame* vectorFrame = nullptr;
    CheckBox* chkX = nullptr;
    CheckBox* chkY = nullptr;
    CheckBox* chkZ = nullptr;
    QLabel* animsLabel = nullptr;
    ListBox* lstAnims = nullptr;
    CommandButton* enableAnimationButton = nullptr;
    QLabel* animationsLabel = nullptr;
    ListBox* lstAnimations = nullptr;

    Menu* menRenameJoint = nullptr;
    Menu* menDeleteJoint = nullptr;
    Menu* menRenameAnimation = nullptr;
    Menu* menDeleteAnimation = nullptr;
};
