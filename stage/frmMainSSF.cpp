// SPDX-License-Identifier: GPL-3.0-or-later
// The File commands of the stage scene window, its general information and the main camera
// list. A command that needs a document does nothing while the window has none, and a failed
// New or open leaves the window with the document it had.

#include "stage/frmMainSSF.h"

#include "foundation/controls/ComboBox.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/Menu.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"

#include <QTabWidget>

namespace {

// A camera whose Id is no 32-bit integer keeps its Id text in its row of the main camera
// list under this role, beside the integer ItemData the others carry.
constexpr int IdTextRole = Qt::UserRole + 1;

} // namespace

void frmMainSSF::connectEvents()
{
    connect(txtWorld, &TextBox::Change, this,
            [this] { writeGeneralField(&clsSSF::World, *txtWorld); });
    connect(txtNickname, &TextBox::Change, this,
            [this] { writeGeneralField(&clsSSF::Nickname, *txtNickname); });
    connect(txtServer, &TextBox::Change, this,
            [this] { writeGeneralField(&clsSSF::Server, *txtServer); });
    connect(txtPort, &TextBox::Change, this,
            [this] { writeGeneralField(&clsSSF::Port, *txtPort); });
    connect(worldChooser, &CommandButton::Click, this, &frmMainSSF::chooseWorld);
    connect(txtMainCamera, &ComboBox::DropDown, this, &frmMainSSF::txtMainCamera_DropDown);
    connect(txtMainCamera, &ComboBox::Click, this, &frmMainSSF::txtMainCamera_Click);
    ConnectFileCommands(&frmMainSSF::menNewSSF_Click, &frmMainSSF::menOpenSSF_Click,
                        &frmMainSSF::menSaveSSF_Click);
    connectPuppetPage();
    connectSoundPage();
    connectCameraPage();
}

bool frmMainSSF::OpenSSF(const QString& strFileName)
{
    // The file is read into a new document, which replaces the shown one only when the whole
    // file was read: a failed open keeps the document, its rows and the caption.
    auto loaded = std::make_unique<clsSSF>();
    if (!loaded->Load(mdlGeneral::strCurrentDir + strFileName)) {
        ReportOpenFailure(strFileName);
        return false;
    }
    objSSF = std::move(loaded);
    strCurrentFile = strFileName;
    ShowSceneInPlan();
    RefreshWindow();
    generalFrame->setEnabled(true);
    pageTabs->setEnabled(true);
    DocumentOpened(strCurrentFile);
    return true;
}

void frmMainSSF::RefreshWindow()
{
    // Each write raises Change, which writes the same text back.
    txtWorld->setText(objSSF->World);
    txtNickname->setText(objSSF->Nickname);
    txtServer->setText(objSSF->Server);
    txtPort->setText(objSSF->Port);

    // No row is selected afterwards; the detail controls keep what they show, which now
    // belongs to no record.
    for (Frame* detail : {puppetDetail, soundDetail, cameraDetail})
        detail->ShowOrphaned(true);
    lstPuppets->Clear();
    for (qint16 index = 0; index < objSSF->NumPuppets(); ++index)
        lstPuppets->AddItem(PuppetRowText(index));
    lstSounds->Clear();
    for (qint16 index = 0; index < objSSF->NumSounds(); ++index)
        lstSounds->AddItem(SoundRowText(index));

    // The main camera list holds the main camera alone, selected; its Click writes the Id
    // back. A MainCamera that names no camera leaves the list empty and keeps its text.
    lstCameras->Clear();
    txtMainCamera->Clear();
    for (qint16 index = 0; index < objSSF->NumCameras(); ++index) {
        lstCameras->AddItem(CameraRowText(index));
        const std::shared_ptr<clsCamera> camera = objSSF->Cameras(index);
        if (camera->Id == objSSF->MainCamera && txtMainCamera->ListCount() == 0) {
            addMainCameraItem(*camera);
            txtMainCamera->setListIndex(0);
        }
    }
}

void frmMainSSF::FillMainCameraList()
{
    txtMainCamera->Clear();
    if (!objSSF)
        return;
    for (qint16 index = 0; index < objSSF->NumCameras(); ++index)
        addMainCameraItem(*objSSF->Cameras(index));
}

void frmMainSSF::addMainCameraItem(const clsCamera& camera)
{
    txtMainCamera->AddItem(camera.Name);
    const int row = txtMainCamera->ListCount() - 1;
    bool isNumber = false;
    const int id = camera.Id.toInt(&isNumber);
    if (isNumber)
        txtMainCamera->setItemData(row, id);
    else
        txtMainCamera->QComboBox::setItemData(row, camera.Id, IdTextRole);
}

void frmMainSSF::txtMainCamera_DropDown() { FillMainCameraList(); }

void frmMainSSF::txtMainCamera_Click()
{
    const int row = txtMainCamera->ListIndex();
    if (row == -1 || !objSSF)
        return;
    // A number Id is stored as the decimal text of its integer, any other as it stands.
    const QVariant idText = txtMainCamera->itemData(row, IdTextRole);
    objSSF->MainCamera =
        idText.isValid() ? idText.toString() : QString::number(txtMainCamera->ItemData(row));
    RefreshPlan();
}

void frmMainSSF::writeGeneralField(QString clsSSF::*field, const TextBox& box)
{
    if (objSSF)
        (*objSSF).*field = box.Text();
}

// --- the File commands ---

void frmMainSSF::menNewSSF_Click()
{
    objSSF = std::make_unique<clsSSF>();
    RefreshWindow();
    DocumentIsNew();
    strCurrentFile.clear();
    ShowSceneInPlan();
    generalFrame->setEnabled(true);
    pageTabs->setEnabled(true);
    txtWorld->SetFocus();
}

void frmMainSSF::menOpenSSF_Click()
{
    if (const std::optional<QString> strFileName = ChooseDocument())
        OpenSSF(*strFileName);
}

void frmMainSSF::menSaveSSF_Click()
{
    if (!objSSF)
        return; // nothing to save, no dialog
    // The full path of the dialog; the base directory is not touched.
    SaveDocument(strCurrentFile,
                 [this](const QString& file, QString* why) { return objSSF->Save(file, why); });
}

void frmMainSSF::chooseWorld() { PickWorld(*worldChooser, *txtWorld); }
