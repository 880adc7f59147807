#include "rig/frmNewRBT.h"

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/DialogService.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/TextBox.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

frmNewRBT::frmNewRBT(DialogService& dialogs, QWidget* parent)
    : QDialog(parent), m_dialogs(dialogs), CommonDialog1(dialogs)
{
    setObjectName(QStringLiteral("frmNewRBT"));
    setWindowTitle(QStringLiteral("New Rig Binding Table"));
    // A fixed border: no maximise button, no resizing.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint);
    setModal(true);

    Frame1 = new Frame(QStringLiteral("Frame1"), QString(), this);
    Label2 = new QLabel(QStringLiteral("Name"), Frame1);
    Label2->setObjectName(QStringLiteral("Label2"));
    txtRBTName = new TextBox(QStringLiteral("txtRBTName"), Frame1);
    Label1 = new QLabel(QStringLiteral("LichTech Model"), Frame1);
    Label1->setObjectName(QStringLiteral("Label1"));
    txtModel = new TextBox(QStringLiteral("txtModel"), Frame1);
    Command1 = new CommandButton(QStringLiteral("Command1"), QStringLiteral("..."), Frame1);
    Command1->setFixedWidth(Command1->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
    Command2 = new CommandButton(QStringLiteral("Command2"), QStringLiteral("OK"), Frame1);
    Command3 = new CommandButton(QStringLiteral("Command3"), QStringLiteral("Cancel"), Frame1);
    // Enter in either box presses OK.
    Command2->setDefault(true);

    auto* grid = new QGridLayout(Frame1);
    grid->addWidget(Label2, 0, 0);
    grid->addWidget(txtRBTName, 0, 1, 1, 2);
    grid->addWidget(Label1, 1, 0);
    grid->addWidget(txtModel, 1, 1);
    grid->addWidget(Command1, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(1, txtModel->fontMetrics().horizontalAdvance(QString(48, u'x')));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command2);
    buttons->addWidget(Command3);
    grid->addLayout(buttons, 2, 0, 1, 3);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Frame1);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(Command1, &CommandButton::Click, this, &frmNewRBT::Command1_Click);
    connect(Command2, &CommandButton::Click, this, &frmNewRBT::Command2_Click);
    connect(Command3, &CommandButton::Click, this, &frmNewRBT::reject);
}

frmNewRBT::~frmNewRBT() = default;

void frmNewRBT::ShowModal() { exec(); }

QString frmNewRBT::RBTName() const { return txtRBTName->Text(); }

QString frmNewRBT::ModelPath() const { return txtModel->Text(); }

void frmNewRBT::Command1_Click()
{
    // A cancel leaves the box as it was. The base directory of the run is not set from here:
    // a model is no document.
    const QString file =
        CommonDialog1.PickFile(QStringLiteral("LichTech Model Files (*.lta)|*.lta"), *Command1);
    if (!file.isEmpty())
        txtModel->setText(file);
}

void frmNewRBT::Command2_Click()
{
    // The name is asked for first; nothing else is checked: the scan of the model tells.
    if (txtRBTName->Text().isEmpty()) {
        m_dialogs.MsgBox(QStringLiteral("Please enter the name of the RBT"));
        txtRBTName->SetFocus();
    } else if (txtModel->Text().isEmpty()) {
        m_dialogs.MsgBox(QStringLiteral("Please select the model for the RBT file"));
        txtModel->SetFocus();
    } else {
        blnOk = true;
        hide(); // the modal loop ends; the boxes keep their text
    }
}

void frmNewRBT::reject()
{
    blnOk = false;
    QDialog::reject();
}
