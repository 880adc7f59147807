// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/ManagerFrame.h"

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/DialogService.h"
#include "foundation/controls/ManagerWindow.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"

#include <QCoreApplication>
#include <QMenuBar>

#include <algorithm>

using namespace Qt::StringLiterals;

// A manager's family of files and the words its window, menus and messages use for it.
struct ManagerFrame::Family {
    QString Window;        // "frmMainTSL"
    QString Caption;       // the designed caption, "Troupe Show Listing Manager"
    QString Abbreviation;  // "TSL": `menNewTSL`, "Cannot open the TSL file "
    QString Name;          // "Troupe Show Listing": "&New Troupe Show Listing"
    QString Filter;        // "Troupe Show Listing Files (*.tsl)|*.tsl"
    QString DefaultExt;    // ".tsl"
    QString FileSeparator; // the name of the separator above Exit, "menSep04"
    QString ExitCaption;   // "&Exit"
};

const ManagerFrame::Family& ManagerFrame::family() const
{
    // By Manager: RBT, SSF, TSL.
    static const Family families[] = {
        {u"frmMainRBT"_s, u"Rig Binding Table Manager"_s, u"RBT"_s, u"Rig Binding Table"_s,
         u"Rig Binding Tool Files (*.rbt)|*.rbt"_s, u".rbt"_s, u"menSep1"_s, u"&Exit"_s},
        {u"frmMainSSF"_s, u"Stage Scene File Manager"_s, u"SSF"_s, u"Stage Scene File"_s,
         u"Stage Scene Files (*.ssf)|*.ssf"_s, u".ssf"_s, u"menSep01"_s, u"Exit"_s},
        {u"frmMainTSL"_s, u"Troupe Show Listing Manager"_s, u"TSL"_s, u"Troupe Show Listing"_s,
         u"Troupe Show Listing Files (*.tsl)|*.tsl"_s, u".tsl"_s, u"menSep04"_s, u"&Exit"_s}};
    return families[int(m_kind)];
}

ManagerFrame::ManagerFrame(Manager kind, DialogService& dialogs, SuiteLinks* links)
    : QMainWindow(nullptr), m_dialogs(dialogs), CommonDialog1(dialogs), m_kind(kind), m_links(links)
{
    strBaseCaption = family().Caption;
    setObjectName(family().Window);
    setWindowTitle(strBaseCaption);
    QMenu* menFile = Menu::AddMenu(menuBar(), QStringLiteral("menFile"), QStringLiteral("File"));
    m_newEntry = addFileEntry(menFile, QStringLiteral("New"));
    m_openEntry = addFileEntry(menFile, QStringLiteral("Open"));
    m_saveEntry = addFileEntry(menFile, QStringLiteral("Save"));
    Menu::AddSeparator(menFile, family().FileSeparator);
    // Exit ends the run at once, with no prompt and no save; main returns from the event
    // loop and the process ends.
    connect(Menu::AddEntry(menFile, QStringLiteral("menExit"), family().ExitCaption), &Menu::Click,
            this, [] { QCoreApplication::exit(0); });
}

ManagerFrame::~ManagerFrame() = default;

Menu* ManagerFrame::addFileEntry(QMenu* menu, const QString& verb)
{
    return Menu::AddEntry(menu, QStringLiteral("men") + verb + family().Abbreviation,
                          u'&' + verb + u' ' + family().Name);
}

void ManagerFrame::FinishSetUp(std::initializer_list<ManagerEntry> managers, QSize designedSize)
{
    QMenu* menTools = m_tools =
        Menu::AddMenu(menuBar(), QStringLiteral("menTools"), QStringLiteral("Tools"));
    for (const ManagerEntry& entry : managers) {
        // The entry that shows the stage scene manager is `menSFFEditor`.
        const QString abbreviation = entry.Shows == Manager::SSF   ? u"SFF"_s
                                     : entry.Shows == Manager::RBT ? u"RBT"_s
                                                                   : u"TSL"_s;
        Menu* shows = Menu::AddEntry(menTools, QStringLiteral("men%1Editor").arg(abbreviation),
                                     entry.Caption);
        connect(shows, &Menu::Click, this, [this, manager = entry.Shows] {
            if (m_links)
                m_links->ShowManager(manager);
        });
    }
    Menu::AddSeparator(menTools, u"menSepCheck"_s);
    connect(Menu::AddEntry(menTools, u"menCheck"_s, u"Check..."_s), &Menu::Click, this, [this] {
        if (m_links)
            m_links->Check(m_kind);
    });
    ManagerWindow::SetUp(*this, designedSize.isValid() ? designedSize : sizeHint());
}

Menu* ManagerFrame::AddTool(const QString& name, const QString& caption)
{
    return Menu::AddEntry(m_tools, name, caption);
}

std::optional<QString> ManagerFrame::ChooseDocument()
{
    CommonDialog1.FileName.clear();
    CommonDialog1.Filter = family().Filter;
    CommonDialog1.ShowOpen();
    // A cancel leaves the FileName just emptied.
    if (CommonDialog1.FileName.isEmpty())
        return std::nullopt;
    mdlGeneral::TakeCurrentDirFrom(CommonDialog1.FileName);
    // Only the bare name goes on, so a file picked elsewhere is looked for in the base
    // directory all the same.
    return mdlGeneral::GetFileName(CommonDialog1.FileName);
}

void ManagerFrame::ReportOpenFailure(const QString& strFileName)
{
    m_dialogs.MsgBox(QStringLiteral("Cannot open the %1 file ").arg(family().Abbreviation) +
                     mdlGeneral::strCurrentDir + strFileName);
}

void ManagerFrame::DocumentOpened(const QString& strFileName)
{
    // The file the load read, in the case it has on disk, so that a save writes over it.
    m_documentPath = mdlGeneral::ResolveFileCase(mdlGeneral::strCurrentDir + strFileName);
    writeCaption(mdlGeneral::GetFileName(strFileName));
}

QString ManagerFrame::DocumentName() const
{
    return m_documentPath.isEmpty() ? QStringLiteral("<no name> in the ") + strBaseCaption
                                    : m_documentPath;
}

void ManagerFrame::DocumentIsNew()
{
    m_documentPath.clear();
    writeCaption(QStringLiteral("<no name>"));
}

void ManagerFrame::SaveDocument(QString& currentFile,
                                const std::function<bool(const QString& file, QString* why)>& save)
{
    CommonDialog1.FileName = currentFile;
    // A name matched without regard to case when it was opened is proposed as it is on disk.
    const QString ownName = mdlGeneral::GetFileName(m_documentPath);
    if (!m_documentPath.isEmpty() && ownName.compare(currentFile, Qt::CaseInsensitive) == 0)
        CommonDialog1.FileName = ownName;
    CommonDialog1.Filter = family().Filter;
    CommonDialog1.DefaultExt = family().DefaultExt;
    CommonDialog1.OwnFile = m_documentPath;
    const bool chosen = CommonDialog1.ShowSave();
    CommonDialog1.DefaultExt.clear();
    CommonDialog1.OwnFile.clear();
    if (!chosen || CommonDialog1.FileName.isEmpty())
        return;
    QString why;
    if (!save(CommonDialog1.FileName, &why)) {
        // The caption and the document's file stay: the next save proposes it again.
        QString message = QStringLiteral("Cannot save %1 file").arg(family().Abbreviation);
        if (!why.isEmpty())
            message += u'\n' + why;
        m_dialogs.MsgBox(message);
        return;
    }
    m_documentPath = CommonDialog1.FileName;
    currentFile = mdlGeneral::GetFileName(CommonDialog1.FileName);
    writeCaption(currentFile);
}

void ManagerFrame::PickWorld(CommandButton& chooser, TextBox& worldBox)
{
    const QString file =
        CommonDialog1.PickFile(QStringLiteral("LithTech world dat file (*.dat)|*.dat"), chooser);
    if (file.isEmpty())
        return;
    // The folder picked in is dropped: the run-time finds worlds under its own folder.
    worldBox.setText(QStringLiteral("..\\rez\\worlds\\") + mdlGeneral::GetFileName(file));
    const QString world = worldBox.Text();
    worldBox.setText(world.left(std::max<qsizetype>(0, world.size() - 4)));
}

void ManagerFrame::writeCaption(const QString& name)
{
    // Qt reads "[*]" in a title as the place of its modified mark; doubled, it shows as it is.
    setWindowTitle(strBaseCaption + QStringLiteral(" - ") +
                   QString(name).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void ManagerFrame::HandOver(Manager manager, const std::optional<QString>& strFileName)
{
    if (m_links)
        m_links->HandOver(manager, strFileName);
}
