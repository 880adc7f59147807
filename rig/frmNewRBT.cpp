// SPDX-License-Identifier: GPL-3.0-or-later
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

    auto* frame = new Frame(QStringLiteral("Frame1"), QString(), this);
    auto* nameLabel = new QLabel(QStringLiteral("Name"), frame);
    nameLabel->setObjectName(QStringLiteral("Label2"));
    txtRBTName = new TextBox(QStringLiteral("txtRBTName"), frame);
    auto* modelLabel = new QLabel(QStringLiteral("LichTech Model"), frame);
    modelLabel->setObjectName(QStringLiteral("Label1"));
    txtModel = new TextBox(QStringLiteral("txtModel"), frame);
    modelChooser = new CommandButton(QStringLiteral("Command1"), QStringLiteral("..."), frame);
    modelChooser->setFixedWidth(
        modelChooser->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
    okButton = new CommandButton(QStringLiteral("Command2"), QStringLiteral("OK"), frame);
    cancelButton = new CommandButton(QStringLiteral("Command3"), QStringLiteral("Cancel"), frame);
    // Enter in either box presses OK.
    okButton->setDefault(true);

    auto* grid = new QGridLayout(frame);
    grid->addWidget(nameLabel, 0, 0);
    grid->addWidget(txtRBTName, 0, 1, 1, 2);
    grid->addWidget(modelLabel, 1, 0);
    grid->addWidget(txtModel, 1, 1);
    grid->addWidget(modelChooser, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(1, txtModel->fontMetrics().horizontalAdvance(QString(48, u'x')));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(okButton);
    buttons->addWidget(cancelButton);
    grid->addLayout(buttons, 2, 0, 1, 3);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(modelChooser, &CommandButton::Click, this, &frmNewRBT::chooseModel);
    connect(okButton, &CommandButton::Click, this, &frmNewRBT::confirm);
    connect(cancelButton, &CommandButton::Click, this, &frmNewRBT::reject);
}

frmNewRBT::~frmNewRBT() = default;

void frmNewRBT::ShowModal() { exec(); }

QString frmNewRBT::RBTName() const { return txtRBTName->Text(); }

QString frmNewRBT::ModelPath() const { return txtModel->Text(); }

void frmNewRBT::chooseModel()
{
    // A cancel leaves the box as it was. The base directory of the run is not set from here:
    // a model is no document.
    const QString file =
        CommonDialog1.PickFile(QStringLiteral("LichTech Model Files (*.lta)|*.lta"), *modelChooser);
    if (!file.isEmpty())
        txtModel->setText(file);
}

void frmNewRBT::confirm()
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
