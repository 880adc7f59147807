#include "app/Suite.h"

#include "foundation/controls/QtDialogService.h"
#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"
#include "show/frmMainTSL.h"
#include "stage/frmMainSSF.h"

#include <QDir>
#include <QFileInfo>

Suite::Suite(std::unique_ptr<DialogService> dialogs)
    : m_dialogs(dialogs ? std::move(dialogs) : std::make_unique<QtDialogService>())
{
}

// The windows go before the dialog service they hold a reference to.
Suite::~Suite() = default;

void Suite::Start() { ShowManager(Manager::RBT); }

QStringList Suite::OpenFiles(const QStringList& paths)
{
    QStringList failures;
    for (const QString& path : paths) {
        const QString failure = OpenFile(path);
        if (!failure.isEmpty())
            failures << failure;
    }
    if (!m_rbt && !m_ssf && !m_tsl)
        Start();
    return failures;
}

QString Suite::OpenFile(const QString& path)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().toLower();
    const bool rbt = suffix == u"rbt";
    const bool ssf = suffix == u"ssf";
    if (!rbt && !ssf && suffix != u"tsl")
        return path + QStringLiteral(": not opened; Troupe opens rig binding tables (.rbt), "
                                     "stage scenes (.ssf) and show listings (.tsl)");
    const Manager manager = rbt ? Manager::RBT : ssf ? Manager::SSF : Manager::TSL;

    // The manager comes up first, so that a message about the file stands over it, and
    // closing that message never leaves the run without a window.
    ShowManager(manager);
    if (!file.isFile())
        return path + QStringLiteral(": not opened; there is no such file");

    // As the Open command does: the first file sets the base directory of the run, and the
    // manager is handed the bare name, which it looks for there.
    const QString fullPath = QDir::toNativeSeparators(file.absoluteFilePath());
    mdlGeneral::TakeCurrentDirFrom(fullPath);
    if (Open(manager, mdlGeneral::GetFileName(fullPath)))
        return {};
    if (mdlGeneral::GetDirectory(fullPath) != mdlGeneral::strCurrentDir)
        return path +
               QStringLiteral(": not opened; every file of a run is opened from the folder "
                              "of the first, ") +
               mdlGeneral::strCurrentDir;
    const QString kind = rbt   ? QStringLiteral("rig binding table")
                         : ssf ? QStringLiteral("stage scene")
                               : QStringLiteral("show listing");
    return path + QStringLiteral(": not opened; it cannot be read as a ") + kind;
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

QWidget& Suite::Window(Manager manager)
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
