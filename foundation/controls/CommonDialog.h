// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `CommonDialog`, one a window, as `CommonDialog1`. Its properties stay between calls;
// `ShowOpen` and `ShowSave` go through the window's DialogService.

#include <QString>

class DialogService;
class QWidget;

class CommonDialog {
public:
    explicit CommonDialog(DialogService& service) : m_service(&service) {}

    QString FileName;   // after OK a full path; a cancel leaves it as it was
    QString Filter;     // "description|pattern", e.g. "Troupe Show Listing Files (*.tsl)|*.tsl"
    QString DefaultExt; // e.g. ".tsl"; added to a typed name without an extension on save
    // The full path of the file of the document being saved, empty for a document without
    // one. A save dialog opens in its folder and writes over it without a question; any other
    // file that exists is replaced only when the user says so.
    QString OwnFile;

    // True on OK, False on a cancel, which is no error. OK makes the folder of the file
    // picked the one where the next file dialog of any window opens.
    bool ShowOpen();
    bool ShowSave();

    // A file button's ("...") dialog: `FileName` emptied, `Filter` set, ShowOpen. The file
    // picked, or empty on a cancel. Once a file is picked the focus moves on from `button`,
    // so Enter goes on towards OK instead of opening the dialog again.
    QString PickFile(const QString& filter, QWidget& button);

    // Where the dialog opens, with its separator: for a save of a document with a file, that
    // file's folder; otherwise the folder of the last file picked in any file dialog of the
    // run; before the first pick `strCurrentDir` when it is set, else the working directory.
    // A bare `FileName` is proposed in this folder.
    QString Folder() const;

    // The filter in Qt's form: each description, with its pattern added in parentheses where
    // the description does not show one, the pairs joined by ";;".
    // "Troupe Show Listing Files (*.tsl)|*.tsl" gives "Troupe Show Listing Files (*.tsl)".
    static QString QtFilter(const QString& filter);
    // `DefaultExt` as Qt's default suffix: ".tsl" gives "tsl".
    static QString QtDefaultSuffix(const QString& defaultExt);

private:
    bool picked(bool ok);
    // True when `FileName` may be written: no file stands there, or the document's own, or
    // the user agrees to replace it.
    bool mayReplace() const;

    DialogService* m_service;
};
