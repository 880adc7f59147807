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
    Frame4 = new Frame(QStringLiteral("Frame4"), QStringLiteral("General information"), central);
    Label10 = makeLabel(QStringLiteral("Label10"), QStringLiteral("Name:"), Frame4);
    txtName = new TextBox(QStringLiteral("txtName"), Frame4);
    makeCaptionLike(txtName);
    QFont bold = txtName->font();
    bold.setBold(true);
    txtName->setFont(bold);
    Label9 = makeLabel(QStringLiteral("Label9"), QStringLiteral("Model:"), Frame4);
    txtModel = new TextBox(QStringLiteral("txtModel"), Frame4);
    makeCaptionLike(txtModel);
    txtModel->setLocked(true);
    Label7 = makeLabel(QStringLiteral("Label7"), QStringLiteral("Texture"), Frame4);
    txtTexture = new TextBox(QStringLiteral("txtTexture"), Frame4);
    Command3 = new CommandButton(QStringLiteral("Command3"), QStringLiteral("..."), Frame4);
    narrowChooser(Command3);
    Label8 = makeLabel(QStringLiteral("Label8"), QStringLiteral("Bitmap"), Frame4);
    txtBitmap = new TextBox(QStringLiteral("txtBitmap"), Frame4);
    Command4 = new CommandButton(QStringLiteral("Command4"), QStringLiteral("..."), Frame4);
    narrowChooser(Command4);

    auto* general = new QGridLayout(Frame4);
    general->addWidget(Label10, 0, 0);
    general->addWidget(txtName, 0, 1, 1, 2);
    general->addWidget(Label9, 1, 0);
    general->addWidget(txtModel, 1, 1, 1, 2);
    general->addWidget(Label7, 2, 0);
    general->addWidget(txtTexture, 2, 1);
    general->addWidget(Command3, 2, 2);
    general->addWidget(Label8, 3, 0);
    general->addWidget(txtBitmap, 3, 1);
    general->addWidget(Command4, 3, 2);
    general->setColumnStretch(1, 1);
    layout->addWidget(Frame4);

    // Joints and animations.
    Frame1 = new Frame(QStringLiteral("Frame1"), QStringLiteral("Joints and Animations"), central);
    Label1 = makeLabel(QStringLiteral("Label1"), QStringLiteral("Available nodes"), Frame1);
    lstNodes = new ListBox(QStringLiteral("lstNodes"), Frame1);
    Command1 = new CommandButton(QStringLiteral("Command1"), QStringLiteral("--->"), Frame1);
    Label3 = makeLabel(QStringLiteral("Label3"), QStringLiteral("Joints enabled"), Frame1);
    lstJoints = new ListBox(QStringLiteral("lstJoints"), Frame1);

    Frame5 = new Frame(QStringLiteral("Frame5"), QStringLiteral("Action"), Frame1);
    chkRotate = new OptionButton(QStringLiteral("chkRotate"), QStringLiteral("Rotate"), Frame5);
    chkTranslate =
        new OptionButton(QStringLiteral("chkTranslate"), QStringLiteral("Translate"), Frame5);
    auto* action = new QVBoxLayout(Frame5);
    action->addWidget(chkRotate);
    action->addWidget(chkTranslate);

    Frame2 = new Frame(QStringLiteral("Frame2"), QStringLiteral("Limits"), Frame1);
    Label4 = makeLabel(QStringLiteral("Label4"), QStringLiteral("MIN"), Frame2);
    txtMin = new TextBox(QStringLiteral("txtMin"), Frame2);
    txtMin->setMaxLength(6);
    txtMin->setText(QStringLiteral("-90.0"));
    Label5 = makeLabel(QStringLiteral("Label5"), QStringLiteral("MAX"), Frame2);
    txtMax = new TextBox(QStringLiteral("txtMax"), Frame2);
    txtMax->setMaxLength(6);
    txtMax->setText(QStringLiteral("90.0"));
    const int limitWidth = txtMin->fontMetrics().horizontalAdvance(QString(8, u'0'));
    txtMin->setFixedWidth(limitWidth);
    txtMax->setFixedWidth(limitWidth);
    auto* limits = new QGridLayout(Frame2);
    limits->addWidget(Label4, 0, 0);
    limits->addWidget(txtMin, 0, 1);
    limits->addWidget(Label5, 1, 0);
    limits->addWidget(txtMax, 1, 1);

    Frame3 = new Frame(QStringLiteral("Frame3"), QStringLiteral("Vector"), Frame1);
    chkX = new CheckBox(QStringLiteral("chkX"), QStringLiteral("X"), Frame3);
    chkY = new CheckBox(QStringLiteral("chkY"), QStringLiteral("Y"), Frame3);
    chkZ = new CheckBox(QStringLiteral("chkZ"), QStringLiteral("Z"), Frame3);
    auto* vector = new QHBoxLayout(Frame3);
    vector->addWidget(chkX);
    vector->addWidget(chkY);
    vector->addWidget(chkZ);

    Label2 = new QLabel(QStringLiteral("Available animations "), Frame1); // the blank is designed
    Label2->setObjectName(QStringLiteral("Label2"));
    lstAnims = new ListBox(QStringLiteral("lstAnims"), Frame1);
    Command2 = new CommandButton(QStringLiteral("Command2"), QStringLiteral("--->"), Frame1);
    Label6 = makeLabel(QStringLiteral("Label6"), QStringLiteral("Animations enabled"), Frame1);
    lstAnimations = new ListBox(QStringLiteral("lstAnimations"), Frame1);

    sizeList(lstNodes, 14);
    sizeList(lstJoints, 14);
    sizeList(lstAnims, 7);
    sizeList(lstAnimations, 7);

    // The joint settings stand between the node list and the joint list, under the button
    // that moves a node across.
    auto* settings = new QVBoxLayout;
    settings->addWidget(Command1);
    settings->addWidget(Frame5);
    settings->addWidget(Frame2);
    settings->addWidget(Frame3);
    settings->addStretch(1);

    auto* lists = new QGridLayout(Frame1);
    lists->addWidget(Label1, 0, 0);
    lists->addWidget(Label3, 0, 2);
    lists->addWidget(lstNodes, 1, 0);
    lists->addLayout(settings, 1, 1);
    lists->addWidget(lstJoints, 1, 2);
    lists->addWidget(Label2, 2, 0);
    lists->addWidget(Label6, 2, 2);
    lists->addWidget(lstAnims, 3, 0);
    lists->addWidget(Command2, 3, 1, Qt::AlignTop);
    lists->addWidget(lstAnimations, 3, 2);
    layout->addWidget(Frame1);
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
    connect(Command3, &CommandButton::Click, this, &frmMainRBT::Command3_Click);
    connect(Command4, &CommandButton::Click, this, &frmMainRBT::Command4_Click);
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
    connect(Command1, &CommandButton::Click, this, &frmMainRBT::Command1_Click);
    connect(menRenameJoint, &Menu::Click, this, &frmMainRBT::menRenameJoint_Click);
    connect(menDeleteJoint, &Menu::Click, this, &frmMainRBT::menDeleteJoint_Click);

    // Animations.
    connect(lstAnimations, &ListBox::KeyDown, this, &frmMainRBT::lstAnimations_KeyDown);
    connect(Command2, &CommandButton::Click, this, &frmMainRBT::Command2_Click);
    connect(menRenameAnimation, &Menu::Click, this, &frmMainRBT::menRenameAnimation_Click);
    connect(menDeleteAnimation, &Menu::Click, this, &frmMainRBT::menDeleteAnimation_Click);
}
