// SPDX-License-Identifier: GPL-3.0-or-later
// The controls and menus of the stage scene window, each with its name as objectName, so
// tests and scripts find it, laid out by Qt layouts. The window has a fixed border: its size
// is the size its layout asks for.

#include "foundation/controls/ComboBox.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/Menu.h"
#include "foundation/controls/OptionButton.h"
#include "foundation/controls/TextBox.h"
#include "plan/frmStagePlan.h"
#include "stage/frmMainSSF.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QLabel* makeLabel(const QString& name, const QString& caption, QWidget* parent)
{
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    return label;
}

CommandButton* makeChooser(const QString& name, QWidget* parent)
{
    auto* chooser = new CommandButton(name, QStringLiteral("..."), parent);
    chooser->setFixedWidth(chooser->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
    return chooser;
}

// A head label over each column of a fixed-pitch list: a head stands where its column
// begins in the rows, so each is as wide as the characters up to the next column. Also
// makes the list wide enough for a typical row without scrolling.
struct Head {
    const char* name;
    const char* caption;
    int column; // counted from 1
};

QHBoxLayout* columnHeads(ListBox* list, std::initializer_list<Head> heads, QWidget* parent)
{
    const QFontMetrics metrics(list->font());
    const int textStart = list->frameWidth() +
                          list->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, list) +
                          1;
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    for (auto head = heads.begin(); head != heads.end(); ++head) {
        QLabel* label =
            makeLabel(QString::fromLatin1(head->name), QString::fromLatin1(head->caption), parent);
        const int start = head == heads.begin() ? textStart : 0;
        label->setContentsMargins(start, 0, 0, 0);
        if (std::next(head) != heads.end()) {
            const int width = std::next(head)->column - head->column;
            label->setFixedWidth(start + metrics.horizontalAdvance(QString(width, u' ')));
            row->addWidget(label);
        } else {
            row->addWidget(label, 1);
        }
    }
    list->setMinimumWidth(textStart * 2 + metrics.horizontalAdvance(QString(84, u'0')));
    return row;
}

// The list page: heads, list, the add button at the right and the detail frame below.
void layOutPage(QWidget* page, QHBoxLayout* heads, ListBox* list, CommandButton* addButton,
                Frame* detail)
{
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(addButton);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(heads);
    layout->addWidget(list, 1);
    layout->addLayout(buttons);
    layout->addWidget(detail);
}

// A label, a box and, where given, a "..." chooser, on one row of a grid.
void addFieldRow(QGridLayout* grid, int row, QLabel* label, QWidget* box,
                 CommandButton* chooser = nullptr)
{
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1, 1, chooser ? 1 : 2);
    if (chooser)
        grid->addWidget(chooser, row, 2);
    grid->setColumnStretch(1, 1);
}

// A frame of three number boxes, X, Y and Z, each behind its label.
struct Axis {
    const char* label;
    const char* box;
    TextBox*& member;
};

Frame* tripleFrame(const char* name, const char* caption, const QString& firstText,
                   std::initializer_list<Axis> axes, QWidget* parent)
{
    auto* frame = new Frame(QString::fromLatin1(name), QString::fromLatin1(caption), parent);
    auto* row = new QHBoxLayout(frame);
    const char* letters[] = {"X", "Y", "Z"};
    int letter = 0;
    for (const Axis& axis : axes) {
        row->addWidget(makeLabel(QString::fromLatin1(axis.label),
                                 QString::fromLatin1(letters[letter++]), frame));
        axis.member = new TextBox(QString::fromLatin1(axis.box), frame);
        axis.member->setText(firstText);
        // Room for a typical coordinate; longer texts scroll within the box.
        axis.member->setMaximumWidth(
            axis.member->fontMetrics().horizontalAdvance(QStringLiteral("-00000.000")) + 12);
        row->addWidget(axis.member, 1);
    }
    row->addStretch(1);
    return frame;
}

} // namespace

frmMainSSF::frmMainSSF(DialogService& dialogs, SuiteLinks* links)
    : ManagerFrame(Manager::SSF, dialogs, links)
{
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    createControls();
    createMenus();
    connectEvents();
    // A fixed border: the window keeps the size its layout asks for, menu bar included.
    QMainWindow::layout()->setSizeConstraint(QLayout::SetFixedSize);
    FinishSetUp({{Manager::RBT, QStringLiteral("RBT Manager")},
                 {Manager::TSL, QStringLiteral("TSL Manager")}});
    menStagePlan = AddTool(QStringLiteral("menStagePlan"), QStringLiteral("Stage Plan"));
    connect(menStagePlan, &Menu::Click, this, &frmMainSSF::menStagePlan_Click);
}

frmMainSSF::~frmMainSSF() = default;

void frmMainSSF::createControls()
{
    auto* central = new QWidget(this);
    setCentralWidget(central);
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(createGeneralInformation());

    pageTabs = new QTabWidget(central);
    pageTabs->setObjectName(QStringLiteral("SSTab1"));
    pageTabs->addTab(createPuppetPage(), QStringLiteral("Puppets"));
    pageTabs->addTab(createSoundPage(), QStringLiteral("Sounds"));
    pageTabs->addTab(createCameraPage(), QStringLiteral("Cameras"));
    layout->addWidget(pageTabs, 1);

    // The designed state: nothing can be used until New or an open.
    generalFrame->setEnabled(false);
    pageTabs->setEnabled(false);
    puppetDetail->setEnabled(false);
    soundDetail->setEnabled(false);
    cameraDetail->setEnabled(false);
}

QWidget* frmMainSSF::createGeneralInformation()
{
    generalFrame = new Frame(QStringLiteral("Frame4"), QStringLiteral("General information"), this);
    txtWorld = new TextBox(QStringLiteral("txtWorld"), generalFrame);
    txtWorld->setLocked(true); // changes only through worldChooser
    worldChooser = makeChooser(QStringLiteral("Command5"), generalFrame);
    txtMainCamera = new ComboBox(QStringLiteral("txtMainCamera"), generalFrame);
    txtNickname = new TextBox(QStringLiteral("txtNickname"), generalFrame);
    txtServer = new TextBox(QStringLiteral("txtServer"), generalFrame);
    txtPort = new TextBox(QStringLiteral("txtPort"), generalFrame);

    auto* grid = new QGridLayout(generalFrame);
    addFieldRow(grid, 0,
                makeLabel(QStringLiteral("Label7"), QStringLiteral("World Name"), generalFrame),
                txtWorld, worldChooser);
    addFieldRow(grid, 1,
                makeLabel(QStringLiteral("Label26"), QStringLiteral("Main camera"), generalFrame),
                txtMainCamera);
    addFieldRow(grid, 2,
                makeLabel(QStringLiteral("Label1"), QStringLiteral("Nickname"), generalFrame),
                txtNickname);
    addFieldRow(grid, 3,
                makeLabel(QStringLiteral("Label8"), QStringLiteral("Server"), generalFrame),
                txtServer);
    addFieldRow(grid, 4, makeLabel(QStringLiteral("Label2"), QStringLiteral("Port"), generalFrame),
                txtPort);
    return generalFrame;
}

QWidget* frmMainSSF::createPuppetPage()
{
    auto* page = new QWidget(this);
    lstPuppets = new ListBox(QStringLiteral("lstPuppets"), page);
    lstPuppets->setFixedPitch();
    QHBoxLayout* heads = columnHeads(lstPuppets,
                                     {{"Label9", "RBT File", 1},
                                      {"Label3", "Position", 31},
                                      {"Label4", "Scale", 47},
                                      {"Label5", "Orientation", 63}},
                                     page);
    addPuppetButton =
        new CommandButton(QStringLiteral("Command1"), QStringLiteral("Add puppet..."), page);

    puppetDetail = new Frame(QStringLiteral("Frame2"), QString(), page);
    txtRBT = new TextBox(QStringLiteral("txtRBT"), puppetDetail);
    txtRBT->setLocked(true); // changes only through rbtChooser
    rbtChooser = makeChooser(QStringLiteral("Command3"), puppetDetail);
    auto* fileRow = new QGridLayout;
    addFieldRow(fileRow, 0,
                makeLabel(QStringLiteral("Label6"), QStringLiteral("RBT File:"), puppetDetail),
                txtRBT, rbtChooser);
    auto* triples = new QHBoxLayout;
    triples->addWidget(tripleFrame("Frame6", "Position", QStringLiteral("0.0"),
                                   {{"Label11", "txtPosX", txtPosX},
                                    {"Label12", "txtPosY", txtPosY},
                                    {"Label13", "txtPosZ", txtPosZ}},
                                   puppetDetail));
    triples->addWidget(tripleFrame("Frame3", "Scale", QStringLiteral("1.0"),
                                   {{"Label10", "txtScaleX", txtScaleX},
                                    {"Label14", "txtScaleY", txtScaleY},
                                    {"Label15", "txtScaleZ", txtScaleZ}},
                                   puppetDetail));
    triples->addWidget(tripleFrame("Frame5", "Orientation", QStringLiteral("0.0"),
                                   {{"Label16", "txtOrienX", txtOrienX},
                                    {"Label17", "txtOrienY", txtOrienY},
                                    {"Label18", "txtOrienZ", txtOrienZ}},
                                   puppetDetail));
    auto* detail = new QVBoxLayout(puppetDetail);
    detail->addLayout(fileRow);
    detail->addLayout(triples);

    layOutPage(page, heads, lstPuppets, addPuppetButton, puppetDetail);
    return page;
}

QWidget* frmMainSSF::createSoundPage()
{
    auto* page = new QWidget(this);
    lstSounds = new ListBox(QStringLiteral("lstSounds"), page);
    lstSounds->setFixedPitch();
    QHBoxLayout* heads = columnHeads(
        lstSounds, {{"Label20", "Name", 1}, {"Label19", "File", 28}, {"Label22", "Type", 66}},
        page);
    addSoundButton =
        new CommandButton(QStringLiteral("Command4"), QStringLiteral("Add sound..."), page);

    soundDetail = new Frame(QStringLiteral("Frame8"), QString(), page);
    txtNameSound = new TextBox(QStringLiteral("txtNameSound"), soundDetail);
    txtFileSound = new TextBox(QStringLiteral("txtFileSound"), soundDetail);
    txtFileSound->setLocked(true); // changes only through soundFileChooser
    soundFileChooser = makeChooser(QStringLiteral("Command2"), soundDetail);
    auto* frame9 = new Frame(QStringLiteral("Frame9"), QStringLiteral("Type"), soundDetail);
    chkSound = new OptionButton(QStringLiteral("chkSound"), QStringLiteral("Sound"), frame9);
    chkDialog = new OptionButton(QStringLiteral("chkDialog"), QStringLiteral("Dialog"), frame9);
    auto* options = new QVBoxLayout(frame9);
    options->addWidget(chkSound);
    options->addWidget(chkDialog);

    auto* grid = new QGridLayout;
    addFieldRow(grid, 0, makeLabel(QStringLiteral("Label21"), QStringLiteral("Name:"), soundDetail),
                txtNameSound);
    addFieldRow(grid, 1, makeLabel(QStringLiteral("Label30"), QStringLiteral("File:"), soundDetail),
                txtFileSound, soundFileChooser);
    auto* detail = new QHBoxLayout(soundDetail);
    detail->addLayout(grid, 1);
    detail->addWidget(frame9);

    layOutPage(page, heads, lstSounds, addSoundButton, soundDetail);
    return page;
}

QWidget* frmMainSSF::createCameraPage()
{
    auto* page = new QWidget(this);
    lstCameras = new ListBox(QStringLiteral("lstCameras"), page);
    lstCameras->setFixedPitch();
    QHBoxLayout* heads = columnHeads(
        lstCameras,
        {{"Label37", "Name", 1}, {"Label36", "Position", 43}, {"Label34", "Orientation", 63}},
        page);
    addCameraButton =
        new CommandButton(QStringLiteral("Command6"), QStringLiteral("Add camera..."), page);

    cameraDetail = new Frame(QStringLiteral("Frame1"), QString(), page);
    txtCamera = new TextBox(QStringLiteral("txtCamera"), cameraDetail);
    auto* nameRow = new QGridLayout;
    addFieldRow(nameRow, 0,
                makeLabel(QStringLiteral("Label33"), QStringLiteral("Name"), cameraDetail),
                txtCamera);
    auto* triples = new QHBoxLayout;
    triples->addWidget(tripleFrame("Frame11", "Position", QStringLiteral("0.0"),
                                   {{"Label29", "txtPosXCam", txtPosXCam},
                                    {"Label31", "txtPosYCam", txtPosYCam},
                                    {"Label32", "txtPosZCam", txtPosZCam}},
                                   cameraDetail));
    triples->addWidget(tripleFrame("Frame7", "Orientation", QStringLiteral("0.0"),
                                   {{"Label25", "txtOriXCam", txtOriXCam},
                                    {"Label24", "txtOriYCam", txtOriYCam},
                                    {"Label23", "txtOriZCam", txtOriZCam}},
                                   cameraDetail));
    auto* detail = new QVBoxLayout(cameraDetail);
    detail->addLayout(nameRow);
    detail->addLayout(triples);

    layOutPage(page, heads, lstCameras, addCameraButton, cameraDetail);
    return page;
}

void frmMainSSF::createMenus()
{
    QMenuBar* bar = menuBar();
    QMenu* menPuppet = Menu::AddMenu(bar, QStringLiteral("menPuppet"), QStringLiteral("Puppet"));
    menDeletePuppet =
        Menu::AddEntry(menPuppet, QStringLiteral("menDeletePuppet"), QStringLiteral("&Delete"));
    Menu::AddSeparator(menPuppet, QStringLiteral("menSep03"));
    menEditRBT =
        Menu::AddEntry(menPuppet, QStringLiteral("menEditRBT"), QStringLiteral("&Edit RBT File"));

    QMenu* menSound = Menu::AddMenu(bar, QStringLiteral("menSound"), QStringLiteral("Sound"));
    menDeleteSound =
        Menu::AddEntry(menSound, QStringLiteral("menDeleteSound"), QStringLiteral("Delete"));

    QMenu* menCamera = Menu::AddMenu(bar, QStringLiteral("menCamera"), QStringLiteral("Camera"));
    menDeleteCamera =
        Menu::AddEntry(menCamera, QStringLiteral("menDeleteCamera"), QStringLiteral("Delete"));
}
