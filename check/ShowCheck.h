// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The show check: a show listing, stage scene or rig binding and every file it reaches, checked
// for what would stop the theatre playing it or play it wrong.
//
// Where files are: the base folder is the folder of the file checked (for a document in a
// window the caller gives it). A stage scene or rig binding that a document names is looked for
// two ways: by its bare name in the base folder, where the managers open it, and at its stored
// text joined to the base folder, where the run-time finds `..\rez\...`; where the two differ
// the check says so. Sounds and worlds are looked for where the run-time finds them, a rig
// binding's model, texture and bitmap where the rig binding manager does. Names are matched
// without regard to case.
//
// Numbers: a position, scale, orientation or limit is a number when QString::toDouble takes
// it after trimming white space (a decimal with a point, "-2", "1e3") and it is finite; a port
// is a whole number from 1 to 65535 as QString::toInt takes it after trimming.
//
// The check reads only: it never writes, creates or changes a file, and opens files only
// through FileAccess::OpenForReading and the model scanner, so a FIFO cannot hang it.

#include "check/Finding.h"
#include "check/ShowFiles.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <utility>

class clsRBT;
class clsSSF;
class clsSound;
class clsTSL;

class ShowCheck {
public:
    // Checks the file at `path` and everything it reaches; a file met before in this check is
    // not checked again. False, with nothing checked, when the file cannot be read at all:
    // missing, no regular file, unreadable, or no `.tsl`, `.ssf` or `.rbt`; `why` says which.
    // A file that reads but does not load is a finding.
    bool CheckFile(const QString& path, QString* why = nullptr);

    // A document as it stands in a window, saved or not, and everything it reaches. Its
    // findings carry `name`, the path of its file where it has one; `baseDir` is the base
    // folder of the run.
    void CheckDocument(const clsTSL& tsl, const QString& name, const QString& baseDir);
    void CheckDocument(const clsSSF& ssf, const QString& name, const QString& baseDir);
    void CheckDocument(const clsRBT& rbt, const QString& name, const QString& baseDir);

    // In the order found: each document's own findings, then those of what it reaches.
    const QList<Finding>& Findings() const { return m_findings; }
    // The documents checked, those given included; models and other files not counted.
    int FilesChecked() const { return m_filesChecked; }
    int Count(Finding::Severity severity) const;
    // "3 files checked: 2 errors, 1 warning"
    QString Summary() const;

private:
    enum class Kind { TSL, SSF, RBT };
    // What a scan found in a model's text file.
    struct ModelLists {
        QString why; // why it could not be scanned, as a finding says it; empty when it was
        qsizetype animations = 0;
        QSet<QString> nodes;
    };

    void Error(const QString& file, const QString& record, const QString& message);
    void Warning(const QString& file, const QString& record, const QString& message);

    // Reads the document file at `found` and checks it, once in this check; one that does not
    // load is a finding. False when it cannot be opened and `why` is given to take the reason.
    bool CheckOnce(Kind kind, const ShowFiles::Found& found, const QString& baseDir,
                   QString* why = nullptr);
    // The stage scene or rig binding that `stored` names in `record` of `file`, looked for
    // both ways, with what differs told: the file to check, the run-time's first.
    ShowFiles::Found Reach(Kind kind, const QString& stored, const QString& file,
                           const QString& record, const QString& baseDir);
    const ModelLists& Scan(const QString& ltaPath);

    // The rules of each kind of document. A document's own findings come before those of the
    // files it reaches.
    void CheckTSL(const clsTSL& tsl, const QString& file, const QString& baseDir);
    void CheckSSF(const clsSSF& ssf, const QString& file, const QString& baseDir);
    void CheckSound(const clsSound& s, const QString& file, const QString& baseDir);
    void CheckRBT(const clsRBT& rbt, const QString& file);
    void CheckWorld(const QString& world, const QString& what, const QString& file,
                    const QString& baseDir);
    void CheckNumbers(const QString& file, const QString& record, const QString& what,
                      const QString& x, const QString& y, const QString& z);

    ShowFiles m_files;
    QSet<std::pair<QString, QString>> m_checked; // documents checked, by identity and base folder
    QHash<QString, ModelLists> m_models;         // by the text model's path
    QList<Finding> m_findings;
    int m_filesChecked = 0;
};
