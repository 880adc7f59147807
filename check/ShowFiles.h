// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the files a show names lie, found as the managers and the run-time find them, their
// names matched without regard to case. Each path is asked of the file system once per check,
// and nothing is opened here.

#include <QHash>
#include <QString>
#include <QStringList>

#include <utility>

class ShowFiles {
public:
    // A document that lies at a path.
    struct Found {
        QString path;     // where it lies, its name as on disk; empty when nothing is there
        QString identity; // the same for one file however it is reached
        explicit operator bool() const { return !path.isEmpty(); }
    };

    // Where the run-time finds a stored reference. It plays from a folder beside the base
    // folder, so `..\rez\x` reaches from there what it reaches from the base folder itself:
    // the text is joined to the base folder, `\` as separator.
    static QString RunTimePath(const QString& baseDir, const QString& stored);
    // Where the managers open a referenced document: its bare name in the base folder.
    static QString ManagersPath(const QString& baseDir, const QString& stored);

    // What lies at the path, if anything: a file, or a folder or FIFO a read then refuses.
    Found Find(const QString& path);
    // Whether a regular file lies at the path: not a folder, a FIFO or a device.
    bool IsFile(const QString& path);

    // Where a stage scene or rig binding that a document names lies, both ways.
    struct Reference {
        QString runTimePath, managersPath;
        Found runTime, managers;
    };
    Reference Locate(const QString& baseDir, const QString& stored);

    // Whether the folder holds a take of the dialog line `stem`: the stem and ".wav", or the
    // stem, digits and ".wav".
    bool HasTake(const QString& folder, const QString& stem);

private:
    QHash<QString, Found> m_found;
    QHash<QString, bool> m_isFile;
    QHash<std::pair<QString, QString>, Reference> m_references; // by base folder and stored text
    QHash<QString, QStringList> m_folders; // the names of the files of a folder
};
