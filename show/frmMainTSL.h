// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `frmMainTSL`, the show listing window, the manager of `.tsl` files. It holds the logic of
// its events (frmMainTSL_events.cpp); its controls and menus, each carrying its name as
// objectName, are laid out in frmMainTSL.cpp.

#include "foundation/controls/ManagerFrame.h"
#include "show/clsTSL.h"

#include <memory>

class CommandButton;
class Frame;
class ListBox;
class QLabel;
class TextBox;

class frmMainTSL : public ManagerFrame {
    Q_OBJECT

public:
    // The standard dialogs go through `dialogs`; the other managers are reached through
    // `links`, and without links the Tools entries and the hand-over do nothing. The window
    // keeps both references.
    explicit frmMainTSL(DialogService& dialogs, SuiteLinks* links = nullptr);

    // Opens the file of that bare name in `strCurrentDir` as the window's document; True when
    // it opened. A failure shows the open message and leaves the window as it was. The
    // window is not shown.
    bool OpenTSL(const QString& strFileName);

    // The open document as it stands, saved or not; nullptr until the first New or Open.
    const clsTSL* Document() const { return objTSL.get(); }

private:
    // --- layout (frmMainTSL.cpp) ---
    void createControls();
    void createMenus();
    void connectEvents();
    void alignColumnHeads();

    // --- routines and events (frmMainTSL_events.cpp) ---
    QString SceneRowText(qint16 index) const;
    void UpdateSceneRow(qint16 index);
    void ShowScene(qint16 index);
    void RefreshWindow();

    void txtTitle_Change();
    void txtWorld_Change();
    void txtName_Change();
    void txtSSF_Change();
    void lstScenes_Click();
    void lstScenes_KeyDown(int KeyCode);
    void menDeleteScene_Click();

    void menNewTSL_Click();
    void menOpenTSL_Click();
    void menSaveTSL_Click();

    void menEditSSF_Click();

    void addScene();
    void chooseSSF();
    void chooseWorld();

    // txtName and txtSSF Change: the box's text into a field of the selected scene.
    void writeSelectedScene(QString clsScene::*field, const TextBox& box);

    // --- state ---
    std::unique_ptr<clsTSL> objTSL; // none until the first New or open
    QString strCurrentFile;

    // --- controls, owned by the window through their Qt parents (the labels that only name a
    // box belong to the layout) ---
    Frame* generalFrame = nullptr;
    TextBox* txtTitle = nullptr;
    TextBox* txtWorld = nullptr;
    CommandButton* worldChooser = nullptr;
    Frame* scenesFrame = nullptr;
    QLabel* nameHead = nullptr;
    QLabel* fileHead = nullptr;
    ListBox* lstScenes = nullptr;
    CommandButton* addSceneButton = nullptr;
    Frame* sceneDetail = nullptr;
    TextBox* txtName = nullptr;
    TextBox* txtSSF = nullptr;
    CommandButton* ssfChooser = nullptr;

    Menu* menDeleteScene = nullptr;
    Menu* menEditSSF = nullptr;
};
