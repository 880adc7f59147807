// SPDX-License-Identifier: GPL-3.0-or-later
// The routines and events of `frmMainTSL`. A command that needs a document does nothing
// while the window has none, and a failed open leaves the window with the document it had.

#include "foundation/Limits.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "show/frmMainTSL.h"

namespace {

// SceneRowText: the name is cut to 32 characters and padded to 33, the file follows.
constexpr qsizetype NameWidth = 32;
constexpr qsizetype NameColumnWidth = 33;

} // namespace

// --- routines ---

QString frmMainTSL::SceneRowText(qint16 index) const
{
    const std::shared_ptr<clsScene> scene = objTSL ? objTSL->Scenes(index) : nullptr;
    if (!scene)
        return {}; // a row without a record shows nothing
    // At least one blank stands between the two, also behind a name of 32 characters or
    // more; nothing is cut from SSF.
    return scene->Name.left(NameWidth).leftJustified(NameColumnWidth, u' ') + scene->SSF;
}

void frmMainTSL::UpdateSceneRow(qint16 index)
{
    lstScenes->setList(index, SceneRowText(index)); // the selection stays
}

void frmMainTSL::ShowScene(qint16 index)
{
    const std::shared_ptr<clsScene> scene = objTSL ? objTSL->Scenes(index) : nullptr;
    if (!scene)
        return;
    // Each write raises Change, which writes the same text back and rewrites the row.
    txtSSF->setText(scene->SSF);
    txtName->setText(scene->Name);
}

void frmMainTSL::RefreshWindow()
{
    txtTitle->setText(objTSL->Title);
    txtWorld->setText(objTSL->MainWorld);
    // No row is selected afterwards; the detail controls keep the last scene's texts, which
    // now belong to no scene.
    sceneDetail->ShowOrphaned(true);
    lstScenes->Clear();
    for (qint16 index = 0; index < objTSL->NumScenes(); ++index)
        lstScenes->AddItem(SceneRowText(index));
}

// --- events ---

void frmMainTSL::txtTitle_Change()
{
    if (!objTSL)
        return; // no document, nothing to write into
    objTSL->Title = txtTitle->Text();
}

void frmMainTSL::txtWorld_Change()
{
    if (!objTSL)
        return;
    objTSL->MainWorld = txtWorld->Text();
}

void frmMainTSL::txtName_Change() { writeSelectedScene(&clsScene::Name, *txtName); }

void frmMainTSL::txtSSF_Change() { writeSelectedScene(&clsScene::SSF, *txtSSF); }

void frmMainTSL::writeSelectedScene(QString clsScene::*field, const TextBox& box)
{
    // With no row selected nothing happens; otherwise the field of that scene takes the
    // box's text and its row is written again.
    const int index = lstScenes->ListIndex();
    if (index == -1 || !objTSL)
        return;
    if (const std::shared_ptr<clsScene> scene = objTSL->Scenes(index)) {
        (*scene).*field = box.Text();
        UpdateSceneRow(index);
    }
}

void frmMainTSL::lstScenes_Click()
{
    const int index = lstScenes->ListIndex();
    if (index == -1)
        return;
    ShowScene(index);
    sceneDetail->setEnabled(true);
    sceneDetail->ShowOrphaned(false);
}

void frmMainTSL::lstScenes_KeyDown(int KeyCode)
{
    if (KeyCode == ListBox::KeyCodeDelete)
        menDeleteScene_Click();
}

void frmMainTSL::menDeleteScene_Click()
{
    if (!objTSL || lstScenes->ListIndex() == -1)
        return;
    // No question is asked. The detail controls keep the deleted scene's texts.
    objTSL->DeleteScene(lstScenes->ListIndex());
    lstScenes->RemoveItem(lstScenes->ListIndex());
    sceneDetail->ShowOrphaned(true);
}

// --- the File commands ---

void frmMainTSL::menNewTSL_Click()
{
    objTSL = std::make_unique<clsTSL>();
    RefreshWindow();
    DocumentIsNew();
    strCurrentFile.clear();
    generalFrame->setEnabled(true);
    scenesFrame->setEnabled(true);
}

void frmMainTSL::menOpenTSL_Click()
{
    if (const std::optional<QString> strFileName = ChooseDocument())
        OpenTSL(*strFileName);
}

bool frmMainTSL::OpenTSL(const QString& strFileName)
{
    // The file is read into a new document, which replaces the open one only when the load
    // succeeds; a failed open keeps the document, rows and caption the window had.
    auto loaded = std::make_unique<clsTSL>();
    if (!loaded->Load(mdlGeneral::strCurrentDir + strFileName)) {
        ReportOpenFailure(strFileName);
        return false;
    }
    objTSL = std::move(loaded);
    strCurrentFile = strFileName;
    RefreshWindow();
    generalFrame->setEnabled(true);
    scenesFrame->setEnabled(true);
    DocumentOpened(strCurrentFile);
    return true;
}

void frmMainTSL::menSaveTSL_Click()
{
    if (!objTSL)
        return; // nothing to save, no dialog
    // The full path of the dialog; strCurrentDir is not touched.
    SaveDocument(strCurrentFile,
                 [this](const QString& file, QString* why) { return objTSL->Save(file, why); });
}

// --- the other managers ---

void frmMainTSL::menEditSSF_Click()
{
    // Only the bare name goes across; the other manager looks for it in the base directory.
    const int index = lstScenes->ListIndex();
    const std::shared_ptr<clsScene> scene = index != -1 && objTSL ? objTSL->Scenes(index) : nullptr;
    HandOver(Manager::SSF,
             scene ? std::optional(mdlGeneral::GetFileName(scene->SSF)) : std::nullopt);
}

// --- the buttons ---

void frmMainTSL::addScene()
{
    // A listing of more scenes would not load again.
    if (!objTSL || objTSL->NumScenes() >= Limits::MaxRecords)
        return;
    objTSL->AddScene(std::make_shared<clsScene>());
    lstScenes->AddItem(SceneRowText(lstScenes->ListCount()));
    // The Click this raises shows the new, empty scene and enables sceneDetail.
    lstScenes->setListIndex(lstScenes->ListCount() - 1);
}

void frmMainTSL::chooseSSF()
{
    const QString file =
        CommonDialog1.PickFile(QStringLiteral("Stage Scene Files (*.ssf)|*.ssf"), *ssfChooser);
    if (file.isEmpty()) // a cancel
        return;
    // Change carries it into the selected scene and its row, if there is one.
    txtSSF->setText(QStringLiteral("..\\rez\\") + mdlGeneral::GetFileName(file));
    // A scene's file may be the first pick of the run, which sets the base directory.
    mdlGeneral::TakeCurrentDirFrom(file);
}

void frmMainTSL::chooseWorld() { PickWorld(*worldChooser, *txtWorld); }
