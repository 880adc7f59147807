// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The standard dialogs, `CommonDialog` (open and save), `MsgBox`, `InputBox` and the question
// before a file is replaced, behind one
// replaceable service. The program makes one service for the whole run and hands it to every
// window by its constructor: the real one (QtDialogService); a test hands a scripted one.

#include <QString>

class CommonDialog;

class DialogService {
public:
    virtual ~DialogService() = default;

    // Modal. True on OK, with `FileName` the full path chosen; False on a cancel, with
    // `FileName` as it was. The dialog reads `FileName`, `Filter` and `DefaultExt`, and opens
    // in `CommonDialog::Folder()`.
    virtual bool ShowOpen(CommonDialog& dialog) = 0;
    virtual bool ShowSave(CommonDialog& dialog) = 0;

    // Modal, the OK button only, the application's name as its title.
    virtual void MsgBox(const QString& text) = 0;

    // Modal; the text typed, or the empty string on Cancel.
    virtual QString InputBox(const QString& prompt, const QString& defaultText) = 0;

    // Modal, Yes and No, No the default; True on Yes.
    virtual bool AskYesNo(const QString& question) = 0;

protected:
    DialogService() = default;
    DialogService(const DialogService&) = default;
    DialogService& operator=(const DialogService&) = default;

private:
    friend class CommonDialog;

    // The folder of the last file picked through this service, with its separator; empty
    // before the first pick. One service serves the run, so every window's dialog follows it.
    QString m_lastFolder;
};
