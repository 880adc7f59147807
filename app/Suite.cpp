// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Suite.h"

#include "check/ShowCheck.h"
#include "check/frmCheckReport.h"
#include "foundation/FileAccess.h"
#include "foundation/controls/QtDialogService.h"
#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"
#include "show/frmMainTSL.h"
#include "stage/frmMainSSF.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

Suite::Suite(std::unique_ptr<DialogService> dialogs)
    : m_dialogs(dialogs ? std::move(dialogs) : std::make_unique<QtDialogService>())
{
}

// The windows go before the dialog service they hold a reference to.
Suite::~Suite() = default;

void Suite::Start() { ShowManager(Manager::RBT); }

void Suite::OpenFiles(const QStringList& paths,
                      const std::function<void(const QString&)>& reportFailure)
{
    bool shown = false;
    for (const QString& path : paths) {
        const QString failure = OpenFile(path, shown);
        if (!failure.isEmpty())
            reportFailure(path + QStringLiteral(": not opened; ") + failure);
    }
    if (!shown)
        Start();
}

namespace {

// Why the file of that path is no document of the manager's kind; empty when it reads as one.
// Read here before any window comes up, so a file that was never a document brings none.
QString WhyNoDocument(Manager manager, const QString& path)
{
    QFile file;
    QString why;
    if (!FileAccess::OpenForReading(file, path, &why))
        return why;
    bool read = false;
    switch (manager) {
    case Manager::RBT:
        read = clsRBT().Read(file, mdlGeneral::GetDirectory(path), &why);
        break;
    case Manager::SSF:
        read = clsSSF().Read(file, &why);
        break;
    case Manager::TSL:
        read = clsTSL().Read(file, &why);
        break;
    }
    const QString kind = manager == Manager::RBT   ? QStringLiteral("rig binding table")
                         : manager == Manager::SSF ? QStringLiteral("stage scene")
                                                   : QStringLiteral("show listing");
    return read ? QString() : QStringLiteral("it is no %1: %2").arg(kind, why);
}

// The manager of a file, by its extension; none for a file of another kind.
std::optional<Manager> ManagerOf(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"rbt")
        return Manager::RBT;
    if (suffix == u"ssf")
        return Manager::SSF;
    if (suffix == u"tsl")
        return Manager::TSL;
    return std::nullopt;
}

// As every open: the first file opened sets the base folder of the run, and a manager looks
// for a file's bare name there. Why the file of that full path cannot be opened so; empty
// when it can.
QString OutsideTheBaseFolder(const QString& fullPath)
{
    mdlGeneral::TakeCurrentDirFrom(fullPath);
    if (mdlGeneral::GetDirectory(fullPath) == mdlGeneral::strCurrentDir)
        return {};
    return QStringLiteral("it is not in the base folder of this run, %1, where every rig "
                          "binding, scene and listing of the run is opened from")
        .arg(mdlGeneral::strCurrentDir);
}

} // namespace

QString Suite::OpenFile(const QString& path, bool& shown)
{
    const std::optional<Manager> manager = ManagerOf(path);
    if (!manager)
        return QStringLiteral("Troupe opens rig binding tables (.rbt), stage scenes (.ssf) and "
                              "show listings (.tsl)");
    const QString fullPath = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    if (const QString why = WhyNoDocument(*manager, fullPath); !why.isEmpty())
        return why;
    if (const QString why = OutsideTheBaseFolder(fullPath); !why.isEmpty())
        return why;
    // The manager comes up first, so that a message of its open stands over it.
    ShowManager(*manager);
    shown = true;
    if (!Open(*manager, mdlGeneral::GetFileName(fullPath)))
        return QStringLiteral("the manager could not open it (see its message)");
    return {};
}

bool Suite::Open(Manager manager, const QString& strFileName)
{
    switch (manager) {
    case Manager::RBT:
        return RBTManager().OpenRBT(strFileName);
    case Manager::SSF:
        return SSFManager().OpenSSF(strFileName);
    case Manager::TSL:
        return TSLManager().OpenTSL(strFileName);
    }
    return false;
}

void Suite::HandOver(Manager manager, const std::optional<QString>& strFileName)
{
    if (strFileName)
        Open(manager, *strFileName);
    ShowManager(manager);
}

void Suite::Check(Manager manager)
{
    const ManagerFrame& window = Window(manager);
    // The base folder of the run; before it is set, the folder the document was opened from
    // or saved to, else the working directory.
    QString baseDir = mdlGeneral::strCurrentDir;
    if (baseDir.isEmpty())
        baseDir = !window.DocumentPath().isEmpty()
                      ? mdlGeneral::GetDirectory(window.DocumentPath())
                      : QDir::toNativeSeparators(QDir::currentPath() + u'/');
    m_checked = {manager, window.DocumentName()};
    ShowCheck check;
    if (const clsRBT* rbt = manager == Manager::RBT ? RBTManager().Document() : nullptr)
        check.CheckDocument(*rbt, m_checked.second, baseDir);
    if (const clsSSF* ssf = manager == Manager::SSF ? SSFManager().Document() : nullptr)
        check.CheckDocument(*ssf, m_checked.second, baseDir);
    if (const clsTSL* tsl = manager == Manager::TSL ? TSLManager().Document() : nullptr)
        check.CheckDocument(*tsl, m_checked.second, baseDir);
    if (check.FilesChecked() == 0) {
        m_dialogs->MsgBox(QStringLiteral("There is nothing to check yet: make a document with "
                                         "New, or open one."));
        return;
    }
    if (!m_report) {
        m_report = std::make_unique<frmCheckReport>();
        QObject::connect(m_report.get(), &frmCheckReport::OpenFile, m_report.get(),
                         [this](const QString& file) { OpenFinding(file); });
    }
    m_report->ShowReport(mdlGeneral::GetFileName(m_checked.second), check);
}

void Suite::OpenFinding(const QString& file)
{
    // The document checked, or a file the manager of its kind already holds, is shown as it
    // stands: opening it again would drop what is not saved.
    if (file == m_checked.second)
        return ShowManager(m_checked.first);
    // A finding's file is always a document the check read.
    const Manager manager = ManagerOf(file).value_or(Manager::TSL);
    if (QFileInfo(Window(manager).DocumentPath()) == QFileInfo(file))
        return ShowManager(manager);
    if (const QString why = OutsideTheBaseFolder(file); !why.isEmpty())
        return m_dialogs->MsgBox(file + QStringLiteral(": ") + why);
    HandOver(manager, mdlGeneral::GetFileName(file));
}

frmMainRBT& Suite::RBTManager()
{
    if (!m_rbt)
        m_rbt = std::make_unique<frmMainRBT>(*m_dialogs, this);
    return *m_rbt;
}

frmMainSSF& Suite::SSFManager()
{
    if (!m_ssf)
        m_ssf = std::make_unique<frmMainSSF>(*m_dialogs, this);
    return *m_ssf;
}

frmMainTSL& Suite::TSLManager()
{
    if (!m_tsl)
        m_tsl = std::make_unique<frmMainTSL>(*m_dialogs, this);
    return *m_tsl;
}

ManagerFrame& Suite::Window(Manager manager)
{
    switch (manager) {
    case Manager::RBT:
        return RBTManager();
    case Manager::SSF:
        return SSFManager();
    case Manager::TSL:
        break;
    }
    return TSLManager();
}

// A manager closed by its frame is only hidden; showing it again brings it back as it was,
// in front of the others, and a shown one is not made twice.
void Suite::ShowManager(Manager manager)
{
    QWidget& window = Window(manager);
    if (window.isMinimized())
        window.showNormal();
    else
        window.show();
    window.raise();
    window.activateWindow();
}
