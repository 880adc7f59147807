#pragma once
// `CommonDialog`, one a window, as `CommonDialog1`. Its properties stay between calls;
// `ShowOpen` and `ShowSave` go through the window's DialogService.

#include <QString>

class DialogService;

class CommonDialog {
public:
    explicit CommonDialog(DialogService& service) : m_service(&service) {}

    QString FileName;   // after OK a full path; a cancel leaves it as it was
    QString Filter;     // "description|pattern", e.g. "Troupe Show Listing Files (*.tsl)|*.tsl"
    QString DefaultExt; // e.g. ".tsl"; added to a typed name without an extension on save

    // True on OK, False on a cancel, which is no error. OK makes the folder of the file
    // picked the one where the next file dialog of any window opens.
    bool ShowOpen();
    bool ShowSave();

    // Where the dialog opens, with its separator: the folder of the last file picked in any
    // file dialog of the run; before the first pick `strCurrentDir` when it is set, else the
    // working directory. A bare `FileName` is proposed in this folder.
    QString Folder() const;

    // The filter in Qt's form: each description, with its pattern added in parentheses where
    // the description does not show one, the pairs joined by ";;".
    // "Troupe Show Listing Files (*.tsl)|*.tsl" gives "Troupe Show Listing Files (*.tsl)".
    static QString QtFilter(const QString& filter);
    // `DefaultExt` as Qt's default suffix: ".tsl" gives "tsl".
    static QString QtDefaultSuffix(const QString& defaultExt);

private:
    bool picked(bool ok);

    DialogService* m_service;
};
