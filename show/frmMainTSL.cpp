// SPDX-License-Identifier: GPL-3.0-or-later
// The controls and menus of `frmMainTSL`, laid out by Qt layouts. The logic is in
// frmMainTSL_events.cpp.

#include "show/frmMainTSL.h"

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/Menu.h"
#include "foundation/controls/TextBox.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QVBoxLayout>

namespace {

QLabel* makeLabel(const QString& name, const QString& caption, QWidget* parent)
{
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    return label;
}

// generalFrame and sceneDetail alike: a label and a box on the first row; a label, a box and a
// narrow
// "..." chooser on the second.
void layOutFieldRows(Frame* frame, QLabel* label1, TextBox* box1, QLabel* label2, TextBox* box2,
                     CommandButton* chooser)
{
    chooser->setFixedWidth(chooser->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(label1, 0, 0);
    grid->addWidget(box1, 0, 1, 1, 2);
    grid->addWidget(label2, 1, 0);
    grid->addWidget(box2, 1, 1);
    grid->addWidget(chooser, 1, 2);
    grid->setColumnStretch(1, 1);
}

} // namespace

frmMainTSL::frmMainTSL(DialogService& dialogs, SuiteLinks* links)
    : ManagerFrame(Manager::TSL, dialogs, links)
{
    createControls();
    createMenus();
    connectEvents();
    FinishSetUp({{Manager::SSF, QStringLiteral("SSF Manager")},
                 {Manager::RBT, QStringLiteral("RBT Manager")}},
                QSize(720, 540));
}

void frmMainTSL::createControls()
{
    auto* central = new QWidget(this);
    setCentralWidget(central);
    auto* layout = new QVBoxLayout(central);

    // General information: title and main world.
    generalFrame =
        new Frame(QStringLiteral("Frame4"), QStringLiteral("General information"), central);
    auto* titleLabel = makeLabel(QStringLiteral("Label7"), QStringLiteral("Title"), generalFrame);
    txtTitle = new TextBox(QStringLiteral("txtTitle"), generalFrame);
    auto* worldLabel =
        makeLabel(QStringLiteral("Label3"), QStringLiteral("Main world"), generalFrame);
    txtWorld = new TextBox(QStringLiteral("txtWorld"), generalFrame);
    worldChooser =
        new CommandButton(QStringLiteral("Command5"), QStringLiteral("..."), generalFrame);
    layOutFieldRows(generalFrame, titleLabel, txtTitle, worldLabel, txtWorld, worldChooser);
    layout->addWidget(generalFrame);

    // Scenes: column heads, the fixed-pitch list, the add button and the detail frame.
    scenesFrame = new Frame(QStringLiteral("Frame1"), QStringLiteral("Scenes"), central);
    nameHead = makeLabel(QStringLiteral("Label1"), QStringLiteral("Name"), scenesFrame);
    fileHead = makeLabel(QStringLiteral("Label9"), QStringLiteral("SSF File"), scenesFrame);
    lstScenes = new ListBox(QStringLiteral("lstScenes"), scenesFrame);
    lstScenes->setFixedPitch();
    addSceneButton =
        new CommandButton(QStringLiteral("Command1"), QStringLiteral("Add scene..."), scenesFrame);

    sceneDetail = new Frame(QStringLiteral("Frame2"), QString(), scenesFrame);
    auto* nameLabel = makeLabel(QStringLiteral("Label2"), QStringLiteral("Name:"), sceneDetail);
    txtName = new TextBox(QStringLiteral("txtName"), sceneDetail);
    auto* ssfLabel = makeLabel(QStringLiteral("Label6"), QStringLiteral("SSF File:"), sceneDetail);
    txtSSF = new TextBox(QStringLiteral("txtSSF"), sceneDetail);
    txtSSF->setLocked(true); // changes only through ssfChooser
    ssfChooser = new CommandButton(QStringLiteral("Command3"), QStringLiteral("..."), sceneDetail);
    layOutFieldRows(sceneDetail, nameLabel, txtName, ssfLabel, txtSSF, ssfChooser);

    auto* heads = new QHBoxLayout;
    heads->setSpacing(0);
    heads->addWidget(nameHead);
    heads->addWidget(fileHead, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(addSceneButton);
    auto* scenes = new QVBoxLayout(scenesFrame);
    scenes->addLayout(heads);
    scenes->addWidget(lstScenes, 1);
    scenes->addLayout(buttons);
    scenes->addWidget(sceneDetail);
    layout->addWidget(scenesFrame, 1);

    alignColumnHeads();

    // The designed state: the frames are disabled until New or an open (sceneDetail until the
    // first selection of a row).
    generalFrame->setEnabled(false);
    scenesFrame->setEnabled(false);
    sceneDetail->setEnabled(false);
}

void frmMainTSL::alignColumnHeads()
{
    // "Name" stands over column 1 of the rows, "SSF File" over column 34 (SceneRowText):
    // the head of the first column is as wide as 33 characters of the list's font, and both
    // heads begin where the list draws its text.
    const QFontMetrics metrics(lstScenes->font());
    const int textStart =
        lstScenes->frameWidth() +
        lstScenes->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, lstScenes) + 1;
    nameHead->setContentsMargins(textStart, 0, 0, 0);
    nameHead->setFixedWidth(textStart + metrics.horizontalAdvance(QString(33, u' ')));
    fileHead->setContentsMargins(0, 0, 0, 0);
    // Room for a name and a typical "..\rez\" file without scrolling.
    lstScenes->setMinimumWidth(textStart * 2 + metrics.horizontalAdvance(QString(60, u'M')));
}

void frmMainTSL::createMenus()
{
    QMenu* menScene = Menu::AddMenu(menuBar(), QStringLiteral("menScene"), QStringLiteral("Scene"));
    menDeleteScene =
        Menu::AddEntry(menScene, QStringLiteral("menDeleteScene"), QStringLiteral("&Delete"));
    Menu::AddSeparator(menScene, QStringLiteral("menSep02"));
    menEditSSF =
        Menu::AddEntry(menScene, QStringLiteral("menEditSSF"), QStringLiteral("&Edit SSF File"));
}

void frmMainTSL::connectEvents()
{
    connect(txtTitle, &TextBox::Change, this, &frmMainTSL::txtTitle_Change);
    connect(txtWorld, &TextBox::Change, this, &frmMainTSL::txtWorld_Change);
    connect(txtName, &TextBox::Change, this, &frmMainTSL::txtName_Change);
    connect(txtSSF, &TextBox::Change, this, &frmMainTSL::txtSSF_Change);
    connect(lstScenes, &ListBox::Click, this, &frmMainTSL::lstScenes_Click);
    connect(lstScenes, &ListBox::KeyDown, this, &frmMainTSL::lstScenes_KeyDown);
    connect(menDeleteScene, &Menu::Click, this, &frmMainTSL::menDeleteScene_Click);
    ConnectFileCommands(&frmMainTSL::menNewTSL_Click, &frmMainTSL::menOpenTSL_Click,
                        &frmMainTSL::menSaveTSL_Click);
    connect(menEditSSF, &Menu::Click, this, &frmMainTSL::menEditSSF_Click);
    connect(addSceneButton, &CommandButton::Click, this, &frmMainTSL::addScene);
    connect(ssfChooser, &CommandButton::Click, this, &frmMainTSL::chooseSSF);
    connect(worldChooser, &CommandButton::Click, this, &frmMainTSL::chooseWorld);
}
