// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `frmNewRBT`, the modal dialog that asks for the two things a rig binding cannot be made
// without: its name and its `.lta` model. It only gathers them; the caller reads `blnOk` and
// the two text boxes once the dialog has returned.
//
// OK hides the dialog, so its boxes keep their text for the next New. Cancel, Escape and
// the window frame all refuse: `blnOk` becomes False and the caller throws the dialog away,
// so the next New starts with empty boxes.

#include "foundation/controls/CommonDialog.h"

#include <QDialog>

class CommandButton;
class DialogService;
class TextBox;

class frmNewRBT : public QDialog {
    Q_OBJECT

public:
    explicit frmNewRBT(DialogService& dialogs, QWidget* parent = nullptr);
    ~frmNewRBT() override;

    // Shows the dialog modally and returns once it is hidden or refused.
    void ShowModal();

    // True only after OK, and then with both boxes filled; never reset on showing.
    bool blnOk = false;

    QString RBTName() const;
    QString ModelPath() const;

    // Cancel, Escape and the frame's close button all come here.
    void reject() override;

private:
    void chooseModel();
    void confirm();

    DialogService& m_dialogs;
    CommonDialog CommonDialog1;

    // The controls the dialog reads and works; its frame and labels belong to its layout.
    TextBox* txtRBTName = nullptr;
    TextBox* txtModel = nullptr;
    CommandButton* modelChooser = nullptr;
    CommandButton* okButton = nullptr;
    CommandButton* cancelButton = nullptr;
};
