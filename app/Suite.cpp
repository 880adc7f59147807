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

void Suite::Start() { ShowRBTManager(); }

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

    // The manager comes up first, so that a message about the file stands over it, and
    // closing that message never leaves the run without a window.
    rbt ? ShowRBTManager() : ssf ? ShowSSFManager() : ShowTSLManager();
    if (!file.isFile())
        return path + QStringLiteral(": not opened; there is no such file");

    // As the Open command does: the first file sets the base directory of the run, and the
    // manager is handed the bare name, which it looks for there.
    const QString fullPath = QDir::toNativeSeparators(file.absoluteFilePath());
    mdlGeneral::TakeCurrentDirFrom(fullPath);
    const QString name = mdlGeneral::GetFileName(fullPath);
    const bool opened = rbt   ? RBTManager().OpenRBT(name)
                        : ssf ? SSFManager().OpenSSF(name)
                              : TSLManager().OpenTSL(name);
    if (opened)
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

void Suite::ShowRBTManager() { ShowManager(RBTManager()); }

void Suite::ShowSSFManager() { ShowManager(SSFManager()); }

void Suite::ShowTSLManager() { ShowManager(TSLManager()); }

void Suite::EditRBT(const std::optional<QString>& strFileName)
{
    if (strFileName)
        RBTManager().OpenRBT(*strFileName);
    ShowRBTManager();
}

void Suite::EditSSF(const std::optional<QString>& strFileName)
{
    if (strFileName)
        SSFManager().OpenSSF(*strFileName);
    ShowSSFManager();
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

// A manager closed by its frame is only hidden; showing it again brings it back as it was,
// in front of the others, and a shown one is not made twice.
void Suite::ShowManager(QWidget& window)
{
    if (window.isMinimized())
        window.showNormal();
    else
        window.show();
    window.raise();
    window.activateWindow();
}
