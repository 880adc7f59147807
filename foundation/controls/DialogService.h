#pragma once
// Part 1.3: the standard dialogs, `CommonDialog` (open and save), `MsgBox` and `InputBox`,
// behind one replaceable service (design.md 3). Each window is given the service by its
// constructor; the program hands it the real one (QtDialogService), a test a scripted one.

#include <QString>

class CommonDialog;

class DialogService {
public:
    virtual ~DialogService() = default;

    // Modal. True on OK, with `FileName` the full path chosen; False on a cancel, with
    // `FileName` as it was. The dialog reads `FileName`, `Filter` and `DefaultExt`.
    virtual bool ShowOpen(CommonDialog& dialog) = 0;
    virtual bool ShowSave(CommonDialog& dialog) = 0;

    // Modal, the OK button only, the application's name as its title.
    virtual void MsgBox(const QString& text) = 0;

    // Modal; the text typed, or the empty string on Cancel.
    virtual QString InputBox(const QString& prompt, const QString& defaultText) = 0;

protected:
    DialogService() = default;
    DialogService(const DialogService&) = default;
    DialogService& operator=(const DialogService&) = default;
};
