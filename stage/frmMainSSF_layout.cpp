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

frmMainSSF::frmMainSSF(DialogService& dialogs, SuiteLinks* links, QWidget* parent)
    : ManagerFrame(Manager::SSF, dialogs, links, parent)
{
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    createControls();
    createMenus();
    connectEvents();
    // A fixed border: the window keeps the size its layout asks for, menu bar included.
    QMainWindow::layout()->setSizeConstraint(QLayout::SetFixedSize);
    FinishSetUp({{Manager::RBT, QStringLiteral("RBT Manager")},
                 {Manager::TSL, QStringLiteral("TSL Manager")}});
}

void frmMainSSF::createControls()
{
    auto* central = new QWidget(this);
    setCentralWidget(central);
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(createGeneralInformation());

    SSTab1 = new QTabWidget(central);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(createPuppetPage(), QStringLiteral("Puppets"));
    SSTab1->addTab(createSoundPage(), QStringLiteral("Sounds"));
    SSTab1->addTab(createCameraPage(), QStringLiteral("Cameras"));
    layout->addWidget(SSTab1, 1);

    // The designed state: nothing can be used until New or an open.
    Frame4->setEnabled(false);
    SSTab1->setEnabled(false);
    Frame2->setEnabled(false);
    Frame8->setEnabled(false);
    Frame1->setEnabled(false);
}

QWidget* frmMainSSF::createGeneralInformation()
{
    Frame4 = new Frame(QStringLiteral("Frame4"), QStringLiteral("General information"), this);
    txtWorld = new TextBox(QStringLiteral("txtWorld"), Frame4);
    txtWorld->setLocked(true); // changes only through Command5
    Command5 = makeChooser(QStringLiteral("Command5"), Frame4);
    txtMainCamera = new ComboBox(QStringLiteral("txtMainCamera"), Frame4);
    txtNickname = new TextBox(QStringLiteral("txtNickname"), Frame4);
    txtServer = new TextBox(QStringLiteral("txtServer"), Frame4);
    txtPort = new TextBox(QStringLiteral("txtPort"), Frame4);

    auto* grid = new QGridLayout(Frame4);
    addFieldRow(grid, 0, makeLabel(QStringLiteral("Label7"), QStringLiteral("World Name"), Frame4),
                txtWorld, Command5);
    addFieldRow(grid, 1,
                makeLabel(QStringLiteral("Label26"), QStringLiteral("Main camera"), Frame4),
                txtMainCamera);
    addFieldRow(grid, 2, makeLabel(QStringLiteral("Label1"), QStringLiteral("Nickname"), Frame4),
                txtNickname);
    addFieldRow(grid, 3, makeLabel(QStringLiteral("Label8"), QStringLiteral("Server"), Frame4),
                txtServer);
    addFieldRow(grid, 4, makeLabel(QStringLiteral("Label2"), QStringLiteral("Port"), Frame4),
                txtPort);
    return Frame4;
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
    Command1 = new CommandButton(QStringLiteral("Command1"), QStringLiteral("Add puppet..."), page);

    Frame2 = new Frame(QStringLiteral("Frame2"), QString(), page);
    txtRBT = new TextBox(QStringLiteral("txtRBT"), Frame2);
    txtRBT->setLocked(true); // changes only through Command3
    Command3 = makeChooser(QStringLiteral("Command3"), Frame2);
    auto* fileRow = new QGridLayout;
    addFieldRow(fileRow, 0,
                makeLabel(QStringLiteral("Label6"), QStringLiteral("RBT File:"), Frame2), txtRBT,
                Command3);
    auto* triples = new QHBoxLayout;
    triples->addWidget(tripleFrame("Frame6", "Position", QStringLiteral("0.0"),
                                   {{"Label11", "txtPosX", txtPosX},
                                    {"Label12", "txtPosY", txtPosY},
                                    {"Label13", "txtPosZ", txtPosZ}},
                                   Frame2));
    triples->addWidget(tripleFrame("Frame3", "Scale", QStringLiteral("1.0"),
                                   {{"Label10", "txtScaleX", txtScaleX},
                                    {"Label14", "txtScaleY", txtScaleY},
                                    {"Label15", "txtScaleZ", txtScaleZ}},
                                   Frame2));
    triples->addWidget(tripleFrame("Frame5", "Orientation", QStringLiteral("0.0"),
                                   {{"Label16", "txtOrienX", txtOrienX},
                                    {"Label17", "txtOrienY", txtOrienY},
                                    {"Label18", "txtOrienZ", txtOrienZ}},
                                   Frame2));
    auto* detail = new QVBoxLayout(Frame2);
    detail->addLayout(fileRow);
    detail->addLayout(triples);

    layOutPage(page, heads, lstPuppets, Command1, Frame2);
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
    Command4 = new CommandButton(QStringLiteral("Command4"), QStringLiteral("Add sound..."), page);

    Frame8 = new Frame(QStringLiteral("Frame8"), QString(), page);
    txtNameSound = new TextBox(QStringLiteral("txtNameSound"), Frame8);
    txtFileSound = new TextBox(QStringLiteral("txtFileSound"), Frame8);
    txtFileSound->setLocked(true); // changes only through Command2
    Command2 = makeChooser(QStringLiteral("Command2"), Frame8);
    auto* frame9 = new Frame(QStringLiteral("Frame9"), QStringLiteral("Type"), Frame8);
    chkSound = new OptionButton(QStringLiteral("chkSound"), QStringLiteral("Sound"), frame9);
    chkDialog = new OptionButton(QStringLiteral("chkDialog"), QStringLiteral("Dialog"), frame9);
    auto* options = new QVBoxLayout(frame9);
    options->addWidget(chkSound);
    options->addWidget(chkDialog);

    auto* grid = new QGridLayout;
    addFieldRow(grid, 0, makeLabel(QStringLiteral("Label21"), QStringLiteral("Name:"), Frame8),
                txtNameSound);
    addFieldRow(grid, 1, makeLabel(QStringLiteral("Label30"), QStringLiteral("File:"), Frame8),
                txtFileSound, Command2);
    auto* detail = new QHBoxLayout(Frame8);
    detail->addLayout(grid, 1);
    detail->addWidget(frame9);

    layOutPage(page, heads, lstSounds, Command4, Frame8);
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
    Command6 = new CommandButton(QStringLiteral("Command6"), QStringLiteral("Add camera..."), page);

    Frame1 = new Frame(QStringLiteral("Frame1"), QString(), page);
    txtCamera = new TextBox(QStringLiteral("txtCamera"), Frame1);
    auto* nameRow = new QGridLayout;
    addFieldRow(nameRow, 0, makeLabel(QStringLiteral("Label33"), QStringLiteral("Name"), Frame1),
                txtCamera);
    auto* triples = new QHBoxLayout;
    triples->addWidget(tripleFrame("Frame11", "Position", QStringLiteral("0.0"),
                                   {{"Label29", "txtPosXCam", txtPosXCam},
                                    {"Label31", "txtPosYCam", txtPosYCam},
                                    {"Label32", "txtPosZCam", txtPosZCam}},
                                   Frame1));
    triples->addWidget(tripleFrame("Frame7", "Orientation", QStringLiteral("0.0"),
                                   {{"Label25", "txtOriXCam", txtOriXCam},
                                    {"Label24", "txtOriYCam", txtOriYCam},
                                    {"Label23", "txtOriZCam", txtOriZCam}},
                                   Frame1));
    auto* detail = new QVBoxLayout(Frame1);
    detail->addLayout(nameRow);
    detail->addLayout(triples);

    layOutPage(page, heads, lstCameras, Command6, Frame1);
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
