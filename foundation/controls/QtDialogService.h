#pragma once
// Part 1.3: the real standard dialogs, shown modally over the active window: QFileDialog for
// `CommonDialog`, QMessageBox for `MsgBox`, QInputDialog for `InputBox` (design.md 3).

#include "foundation/controls/DialogService.h"

class QtDialogService : public DialogService {
public:
    // Open: a name that does not exist may be typed (the original's open dialog sets no
    // "file must exist" flag; Part 4.2 has such a name end in the open message).
    bool ShowOpen(CommonDialog& dialog) override;
    // Save: an existing file is overwritten without a question (Part 4.2).
    bool ShowSave(CommonDialog& dialog) override;
    // Title: the application's name (QCoreApplication::applicationName).
    void MsgBox(const QString& text) override;
    QString InputBox(const QString& prompt, const QString& defaultText) override;
};
