// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `frmMainSSF`, the Stage Scene File Manager: the window in which a `.ssf` stage scene is made
// and changed. Its files are split by topic:
//   frmMainSSF.cpp          the File commands, the general information and the main camera
//   frmMainSSF_layout.cpp   the controls and menus, named and captioned, and their layout
//   frmMainSSF_pages.cpp    the page mechanism that the three pages share
//   frmMainSSF_puppets.cpp, frmMainSSF_sounds.cpp, frmMainSSF_cameras.cpp   one page each
//   frmMainSSF_rows.cpp     the fixed-pitch row texts of the three lists
//   frmMainSSF_plan.cpp     the stage plan beside the window, following the scene

#include "foundation/controls/ManagerFrame.h"
#include "stage/clsSSF.h"

#include <initializer_list>
#include <memory>
#include <utility>

class ComboBox;
class CommandButton;
class Frame;
class ListBox;
class OptionButton;
class QLabel;
class QTabWidget;
class TextBox;
class frmStagePlan;

class frmMainSSF : public ManagerFrame {
    Q_OBJECT

public:
    // The standard dialogs go through `dialogs`; `links` reaches the other managers (none:
    // the Tools entries and the hand-over do nothing). The window keeps both references.
    explicit frmMainSSF(DialogService& dialogs, SuiteLinks* links = nullptr);
    ~frmMainSSF() override;

    // Opens the file of that bare name in `strCurrentDir` as the window's document. On
    // failure it shows its own message and keeps the document it had. Never shows the
    // window. True when the file was opened.
    bool OpenSSF(const QString& strFileName);

    // The open document as it stands, saved or not; nullptr until the first New or Open.
    const clsSSF* Document() const { return objSSF.get(); }

private:
    // What one page of the tab control is made of: its controls and the document
    // operations on its kind of record. The page mechanism works on these alone.
    template <class Record> struct Page {
        ListBox* List;
        Frame* DetailFrame;
        void (clsSSF::*DocumentAdd)(const std::shared_ptr<Record>&);
        void (clsSSF::*DocumentDelete)(qint16);
        std::shared_ptr<Record> (clsSSF::*RecordByIndex)(qint16) const;
        qint16 (clsSSF::*Count)() const;
        QString (frmMainSSF::*RowText)(qint16) const;
        void (frmMainSSF::*DetailFill)(qint16);
    };
    template <class Record> using FieldBox = std::pair<TextBox*, QString Record::*>;

    // --- layout (frmMainSSF_layout.cpp) ---
    void createControls();
    QWidget* createGeneralInformation();
    QWidget* createPuppetPage();
    QWidget* createSoundPage();
    QWidget* createCameraPage();
    void createMenus();
    void connectEvents();

    // --- files, general information, main camera (frmMainSSF.cpp) ---
    void RefreshWindow();
    void FillMainCameraList();
    void menNewSSF_Click();
    void menOpenSSF_Click();
    void menSaveSSF_Click();
    void chooseWorld();
    void txtMainCamera_DropDown();
    void txtMainCamera_Click();
    void writeGeneralField(QString clsSSF::*field, const TextBox& box);
    void addMainCameraItem(const clsCamera& camera);

    // --- the page mechanism (frmMainSSF_pages.cpp) ---
    template <class Record>
    void connectPage(const Page<Record>& page, CommandButton* addButton, Menu* deleteEntry,
                     std::initializer_list<FieldBox<Record>> fields);
    template <class Record> void AddRecord(const Page<Record>& page);
    template <class Record> void SelectRow(const Page<Record>& page);
    template <class Record>
    void WriteField(const Page<Record>& page, QString Record::*field, const TextBox& box);
    template <class Record> void DeleteRow(const Page<Record>& page);
    template <class Record> void UpdateRow(const Page<Record>& page, qint16 index);
    // The file dialog of a "..." button; the target box gets the prefix and the bare name.
    // The file picked, or empty on a cancel.
    QString ChooseFile(const QString& filter, CommandButton& chooser, const QString& prefix,
                       TextBox& target);

    // --- the puppet page (frmMainSSF_puppets.cpp) ---
    Page<clsPuppet> PuppetPage();
    void connectPuppetPage();
    void ShowPuppet(qint16 index);
    void chooseRBT();
    void menEditRBT_Click();

    // --- the sound page (frmMainSSF_sounds.cpp) ---
    Page<clsSound> SoundPage();
    void connectSoundPage();
    void ShowSound(qint16 index);
    void chooseSoundFile();
    void chkType_Click();

    // --- the camera page (frmMainSSF_cameras.cpp) ---
    Page<clsCamera> CameraPage();
    void connectCameraPage();
    void ShowCamera(qint16 index);

    // --- the stage plan (frmMainSSF_plan.cpp) ---
    void menStagePlan_Click();
    // The plan follows the scene: after every edit, and when New or Open replaces it.
    void RefreshPlan();
    void ShowSceneInPlan();
    // A mark clicked in the plan: its record's page comes to the front with its row selected.
    void SelectRecordOfMark(int kind, qint16 index);

    // --- row texts (frmMainSSF_rows.cpp) ---
    QString PuppetRowText(qint16 index) const;
    QString SoundRowText(qint16 index) const;
    QString CameraRowText(qint16 index) const;

    // --- state ---
    std::unique_ptr<clsSSF> objSSF; // none until the first New or open
    QString strCurrentFile;
    std::unique_ptr<frmStagePlan> m_plan; // made when first asked for

    // --- controls, owned by the window through their Qt parents ---
    Frame* generalFrame = nullptr;
    TextBox* txtWorld = nullptr;
    CommandButton* worldChooser = nullptr;
    ComboBox* txtMainCamera = nullptr;
    TextBox* txtNickname = nullptr;
    TextBox* txtServer = nullptr;
    TextBox* txtPort = nullptr;
    QTabWidget* pageTabs = nullptr;

    ListBox* lstPuppets = nullptr;
    CommandButton* addPuppetButton = nullptr;
    Frame* puppetDetail = nullptr;
    TextBox* txtRBT = nullptr;
    CommandButton* rbtChooser = nullptr;
    TextBox* txtPosX = nullptr;
    TextBox* txtPosY = nullptr;
    TextBox* txtPosZ = nullptr;
    TextBox* txtScaleX = nullptr;
    TextBox* txtScaleY = nullptr;
    TextBox* txtScaleZ = nullptr;
    TextBox* txtOrienX = nullptr;
    TextBox* txtOrienY = nullptr;
    TextBox* txtOrienZ = nullptr;

    ListBox* lstSounds = nullptr;
    CommandButton* addSoundButton = nullptr;
    Frame* soundDetail = nullptr;
    TextBox* txtNameSound = nullptr;
    TextBox* txtFileSound = nullptr;
    CommandButton* soundFileChooser = nullptr;
    OptionButton* chkSound = nullptr;
    OptionButton* chkDialog = nullptr;

    ListBox* lstCameras = nullptr;
    CommandButton* addCameraButton = nullptr;
    Frame* cameraDetail = nullptr;
    TextBox* txtCamera = nullptr;
    TextBox* txtPosXCam = nullptr;
    TextBox* txtPosYCam = nullptr;
    TextBox* txtPosZCam = nullptr;
    TextBox* txtOriXCam = nullptr;
    TextBox* txtOriYCam = nullptr;
    TextBox* txtOriZCam = nullptr;

    Menu* menDeletePuppet = nullptr;
    Menu* menEditRBT = nullptr;
    Menu* menDeleteSound = nullptr;
    Menu* menDeleteCamera = nullptr;
    Menu* menStagePlan = nullptr;
};
