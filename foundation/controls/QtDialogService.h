// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The real standard dialogs, shown modally over the active window: QFileDialog for
// `CommonDialog`, QMessageBox for `MsgBox` and the questions, QInputDialog for `InputBox`.

#include "foundation/controls/DialogService.h"

class QtDialogService : public DialogService {
public:
    // Open: a name that does not exist may be typed; the open command then shows its own
    // message.
    bool ShowOpen(CommonDialog& dialog) override;
    // Save: the dialog asks nothing itself; CommonDialog asks before another file is replaced.
    bool ShowSave(CommonDialog& dialog) override;
    // Title: the application's name (QCoreApplication::applicationName).
    void MsgBox(const QString& text) override;
    // The box drops control characters but tab, so the answer holds none.
    QString InputBox(const QString& prompt, const QString& defaultText) override;
    bool AskYesNo(const QString& question) override;
};
