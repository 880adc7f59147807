// SPDX-License-Identifier: GPL-3.0-or-later
// The controls and menus of `frmMainRBT`, each under its own name with its caption, laid out
// by Qt layouts: the general information on top; below it the model's nodes, the joint
// settings and the enabled joints side by side, and under them the model's animations and
// the enabled ones. The window has a fixed border: its designed size is its only size.

#include "foundation/controls/CheckBox.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/Menu.h"
#include "foundation/controls/OptionButton.h"
#include "foundation/controls/TextBox.h"
#include "rig/frmMainRBT.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>

namespace {

QLabel* makeLabel(const QString& name, const QString& caption, QWidget* parent)
{
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    return label;
}

// txtName and txtModel read as captions: no border, the button face behind them, and no
// stop for the Tab key.
void makeCaptionLike(TextBox* box)
{
    box->setFrame(false);
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Button));
    box->setPalette(palette);
    box->setFocusPolicy(Qt::ClickFocus);
}

void narrowChooser(CommandButton* chooser)
{
    chooser->setFixedWidth(chooser->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
}

// A list wide enough for a node name with its description, at least `rows` rows high; it
// takes the whole height of its row of the grid.
void sizeList(ListBox* list, int rows)
{
    const QFontMetrics metrics(list->font());
    list->setFixedWidth(metrics.horizontalAdvance(QString(30, u'x')) + 2 * list->frameWidth() + 20);
    list->setMinimumHeight(rows * metrics.height() + 2 * list->frameWidth() + 4);
}

} // namespace

void frmMainRBT::createControls()
{
    auto* central = new QWidget(this);
    setCentralWidget(central);
    auto* layout = new QVBoxLayout(central);

    // General information: name and model shown, texture and bitmap edited or chosen.
    generalFrame =
        new Frame(QStringLiteral("Frame4"), QStringLiteral("General information"), central);
    nameLabel = makeLabel(QStringLiteral("Label10"), QStringLiteral("Name:"), generalFrame);
    txtName = new TextBox(QStringLiteral("txtName"), generalFrame);
    makeCaptionLike(txtName);
    QFont bold = txtName->font();
    bold.setBold(true);
    txtName->setFont(bold);
    modelLabel = makeLabel(QStringLiteral("Label9"), QStringLiteral("Model:"), generalFrame);
    txtModel = new TextBox(QStringLiteral("txtModel"), generalFrame);
    makeCaptionLike(txtModel);
    txtModel->setLocked(true);
    textureLabel = makeLabel(QStringLiteral("Label7"), QStringLiteral("Texture"), generalFrame);
    txtTexture = new TextBox(QStringLiteral("txtTexture"), generalFrame);
    textureChooser =
        new CommandButton(QStringLiteral("Command3"), QStringLiteral("..."), generalFrame);
    narrowChooser(textureChooser);
    bitmapLabel = makeLabel(QStringLiteral("Label8"), QStringLiteral("Bitmap"), generalFrame);
    txtBitmap = new TextBox(QStringLiteral("txtBitmap"), generalFrame);
    bitmapChooser =
        new CommandButton(QStringLiteral("Command4"), QStringLiteral("..."), generalFrame);
    narrowChooser(bitmapChooser);

    auto* general = new QGridLayout(generalFrame);
    general->addWidget(nameLabel, 0, 0);
    general->addWidget(txtName, 0, 1, 1, 2);
    general->addWidget(modelLabel, 1, 0);
    general->addWidget(txtModel, 1, 1, 1, 2);
    general->addWidget(textureLabel, 2, 0);
    general->addWidget(txtTexture, 2, 1);
    general->addWidget(textureChooser, 2, 2);
    general->addWidget(bitmapLabel, 3, 0);
    general->addWidget(txtBitmap, 3, 1);
    general->addWidget(bitmapChooser, 3, 2);
    general->setColumnStretch(1, 1);
    layout->addWidget(generalFrame);

    // Joints and animations.
    listsFrame =
        new Frame(QStringLiteral("Frame1"), QStringLiteral("Joints and Animations"), central);
    nodesLabel = makeLabel(QStringLiteral("Label1"), QStringLiteral("Available nodes"), listsFrame);
    lstNodes = new ListBox(QStringLiteral("lstNodes"), listsFrame);
    enableJointButton =
        new CommandButton(QStringLiteral("Command1"), QStringLiteral("--->"), listsFrame);
    jointsLabel = makeLabel(QStringLiteral("Label3"), QStringLiteral("Joints enabled"), listsFrame);
    lstJoints = new ListBox(QStringLiteral("lstJoints"), listsFrame);

    actionFrame = new Frame(QStringLiteral("Frame5"), QStringLiteral("Action"), listsFrame);
    chkRotate =
        new OptionButton(QStringLiteral("chkRotate"), QStringLiteral("Rotate"), actionFrame);
    chkTranslate =
        new OptionButton(QStringLiteral("chkTranslate"), QStringLiteral("Translate"), actionFrame);
    auto* action = new QVBoxLayout(actionFrame);
    action->addWidget(chkRotate);
    action->addWidget(chkTranslate);

    limitsFrame = new Frame(QStringLiteral("Frame2"), QStringLiteral("Limits"), listsFrame);
    minLabel = makeLabel(QStringLiteral("Label4"), QStringLiteral("MIN"), limitsFrame);
    txtMin = new TextBox(QStringLiteral("txtMin"), limitsFrame);
    txtMin->setMaxLength(6);
    txtMin->setText(QStringLiteral("-90.0"));
    maxLabel = makeLabel(QStringLiteral("Label5"), QStringLiteral("MAX"), limitsFrame);
    txtMax = new TextBox(QStringLiteral("txtMax"), limitsFrame);
    txtMax->setMaxLength(6);
    txtMax->setText(QStringLiteral("90.0"));
    const int limitWidth = txtMin->fontMetrics().horizontalAdvance(QString(8, u'0'));
    txtMin->setFixedWidth(limitWidth);
    txtMax->setFixedWidth(limitWidth);
    auto* limits = new QGridLayout(limitsFrame);
    limits->addWidget(minLabel, 0, 0);
    limits->addWidget(txtMin, 0, 1);
    limits->addWidget(maxLabel, 1, 0);
    limits->addWidget(txtMax, 1, 1);

    vectorFrame = new Frame(QStringLiteral("Frame3"), QStringLiteral("Vector"), listsFrame);
    chkX = new CheckBox(QStringLiteral("chkX"), QStringLiteral("X"), vectorFrame);
    chkY = new CheckBox(QStringLiteral("chkY"), QStringLiteral("Y"), vectorFrame);
    chkZ = new CheckBox(QStringLiteral("chkZ"), QStringLiteral("Z"), vectorFrame);
    auto* vector = new QHBoxLayout(vectorFrame);
    vector->addWidget(chkX);
    vector->addWidget(chkY);
    vector->addWidget(chkZ);

    animsLabel =
        new QLabel(QStringLiteral("Available animations "), listsFrame); // the blank is designed
    animsLabel->setObjectName(QStringLiteral("Label2"));
    lstAnims = new ListBox(QStringLiteral("lstAnims"), listsFrame);
    enableAnimationButton =
        new CommandButton(QStringLiteral("Command2"), QStringLiteral("--->"), listsFrame);
    animationsLabel =
        makeLabel(QStringLiteral("Label6"), QStringLiteral("Animations enabled"), listsFrame);
    lstAnimations = new ListBox(QStringLiteral("lstAnimations"), listsFrame);

    sizeList(lstNodes, 14);
    sizeList(lstJoints, 14);
    sizeList(lstAnims, 7);
    sizeList(lstAnimations, 7);

    // The joint settings stand between the node list and the joint list, under the button
    // that moves a node across.
    auto* settings = new QVBoxLayout;
    settings->addWidget(enableJointButton);
    settings->addWidget(actionFrame);
    settings->addWidget(limitsFrame);
    settings->addWidget(vectorFrame);
    settings->addStretch(1);

    auto* lists = new QGridLayout(listsFrame);
    lists->addWidget(nodesLabel, 0, 0);
    lists->addWidget(jointsLabel, 0, 2);
    lists->addWidget(lstNodes, 1, 0);
    lists->addLayout(settings, 1, 1);
    lists->addWidget(lstJoints, 1, 2);
    lists->addWidget(animsLabel, 2, 0);
    lists->addWidget(animationsLabel, 2, 2);
    lists->addWidget(lstAnims, 3, 0);
    lists->addWidget(enableAnimationButton, 3, 1, Qt::AlignTop);
    lists->addWidget(lstAnimations, 3, 2);
    layout->addWidget(listsFrame);
}

void frmMainRBT::createMenus()
{
    QMenuBar* bar = menuBar();
    QMenu* menJoint = Menu::AddMenu(bar, QStringLiteral("menJoint"), QStringLiteral("Joint"));
    menRenameJoint =
        Menu::AddEntry(menJoint, QStringLiteral("menRenameJoint"), QStringLiteral("&Rename"));
    menDeleteJoint =
        Menu::AddEntry(menJoint, QStringLiteral("menDeleteJoint"), QStringLiteral("&Delete"));

    QMenu* menAnimation =
        Menu::AddMenu(bar, QStringLiteral("menAnimation"), QStringLiteral("Animation"));
    menRenameAnimation = Menu::AddEntry(menAnimation, QStringLiteral("menRenameAnimation"),
                                        QStringLiteral("&Rename"));
    menDeleteAnimation = Menu::AddEntry(menAnimation, QStringLiteral("menDeleteAnimation"),
                                        QStringLiteral("&Delete"));
}

void frmMainRBT::connectEvents()
{
    // Files and general information.
    ConnectFileCommands(&frmMainRBT::menNewRBT_Click, &frmMainRBT::menOpenRBT_Click,
                        &frmMainRBT::menSaveRBT_Click);
    connect(textureChooser, &CommandButton::Click, this, &frmMainRBT::chooseTexture);
    connect(bitmapChooser, &CommandButton::Click, this, &frmMainRBT::chooseBitmap);
    connect(txtTexture, &TextBox::Change, this, &frmMainRBT::txtTexture_Change);
    connect(txtBitmap, &TextBox::Change, this, &frmMainRBT::txtBitmap_Change);

    // Joints.
    connect(lstNodes, &ListBox::Click, this, &frmMainRBT::lstNodes_Click);
    connect(lstJoints, &ListBox::Click, this, &frmMainRBT::lstJoints_Click);
    connect(lstJoints, &ListBox::KeyDown, this, &frmMainRBT::lstJoints_KeyDown);
    connect(chkRotate, &OptionButton::Click, this, &frmMainRBT::chkRotate_Click);
    connect(chkTranslate, &OptionButton::Click, this, &frmMainRBT::chkTranslate_Click);
    connect(chkX, &CheckBox::Click, this, &frmMainRBT::chkX_Click);
    connect(chkY, &CheckBox::Click, this, &frmMainRBT::chkY_Click);
    connect(chkZ, &CheckBox::Click, this, &frmMainRBT::chkZ_Click);
    connect(txtMin, &TextBox::Change, this, &frmMainRBT::txtMin_Change);
    connect(txtMax, &TextBox::Change, this, &frmMainRBT::txtMax_Change);
    connect(enableJointButton, &CommandButton::Click, this, &frmMainRBT::enableJoint);
    connect(menRenameJoint, &Menu::Click, this, &frmMainRBT::menRenameJoint_Click);
    connect(menDeleteJoint, &Menu::Click, this, &frmMainRBT::menDeleteJoint_Click);

    // Animations.
    connect(lstAnimations, &ListBox::KeyDown, this, &frmMainRBT::lstAnimations_KeyDown);
    connect(enableAnimationButton, &CommandButton::Click, this, &frmMainRBT::enableAnimation);
    connect(menRenameAnimation, &Menu::Click, this, &frmMainRBT::menRenameAnimation_Click);
    connect(menDeleteAnimation, &Menu::Click, this, &frmMainRBT::menDeleteAnimation_Click);
}
