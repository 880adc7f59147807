// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The frame the three manager windows stand on. What they do alike is here, once: the File
// menu with its dialogs and messages, the caption, the Tools menu, the hand-overs to the
// suite, and the document's own file. What a manager does alone (what New, Open and Save
// mean for its document) stays in its window, which runs its own steps and calls on the
// frame where they are shared.
//
// The caption shows the bare name of the document's file; the frame keeps its full path, so
// a save proposes the file the caption names, in its own folder, whatever folder the last
// world, sound or texture was picked in.

#include "foundation/controls/CommonDialog.h"
#include "foundation/controls/Menu.h"
#include "foundation/controls/SuiteLinks.h"

#include <QMainWindow>

#include <functional>
#include <initializer_list>
#include <optional>

class CommandButton;
class DialogService;
class QMenu;
class TextBox;

class ManagerFrame : public QMainWindow {
    Q_OBJECT

public:
    // An entry of the Tools menu that shows another manager.
    struct ManagerEntry {
        Manager Shows;
        QString Caption; // "SSF Manager"
    };

    ~ManagerFrame() override;

    // The full path of the document's own file: where it was opened from or last saved to.
    // Empty for a new document, and before the first.
    const QString& DocumentPath() const { return m_documentPath; }
    // The document as others name it: its file, or for a document without one "<no name> in
    // the Stage Scene File Manager".
    QString DocumentName() const;

protected:
    // The manager of a family of files, with its name and designed caption; the File menu is
    // made here, first in the menu bar. The dialogs and the suite are kept by reference;
    // without links the Tools entries and hand-overs do nothing.
    ManagerFrame(Manager kind, DialogService& dialogs, SuiteLinks* links);

    // Ends the set-up once the window's own controls and menus are made: the Tools menu
    // (the other managers, then "Check...") last in the menu bar, the designed size (by default the
    // size the layout asks for) as the least, the menu bar reachable from the keyboard.
    void FinishSetUp(std::initializer_list<ManagerEntry> managers, QSize designedSize = {});

    // An entry of the window's own at the end of the Tools menu, made by FinishSetUp.
    Menu* AddTool(const QString& name, const QString& caption);

    // The window's own New, Open and Save commands on the File menu's entries.
    template <class Window>
    void ConnectFileCommands(void (Window::*newCommand)(), void (Window::*openCommand)(),
                             void (Window::*saveCommand)())
    {
        auto* window = static_cast<Window*>(this);
        connect(m_newEntry, &Menu::Click, window, newCommand);
        connect(m_openEntry, &Menu::Click, window, openCommand);
        connect(m_saveEntry, &Menu::Click, window, saveCommand);
    }

    // --- the File commands' shared steps ---

    // The open dialog: the bare name of the file picked, or nothing on a cancel. The first
    // document picked in the run sets the base directory, where the name is then looked for.
    std::optional<QString> ChooseDocument();
    // The open of `strFileName` failed: the message names where it was looked for.
    void ReportOpenFailure(const QString& strFileName);
    // The document from `strFileName` in the base directory is open, or a new one is made.
    void DocumentOpened(const QString& strFileName);
    void DocumentIsNew();
    // The save dialog, proposing `currentFile` (the window's bare name of its file) in the
    // folder of the document's own file; then `save` to the file chosen. On success
    // `currentFile` becomes the bare name of that file and the caption shows it; on failure
    // the message says why. A cancel writes nothing.
    void SaveDocument(QString& currentFile,
                      const std::function<bool(const QString& file, QString* why)>& save);

    // The world button ("..."): the file picked goes into `worldBox` as a world reference,
    // "..\rez\worlds\" and its name less the last four characters, whatever they are, in two
    // writes, each raising the box's Change. A cancel changes nothing.
    void PickWorld(CommandButton& chooser, TextBox& worldBox);

    // "<designed caption> - <name>", the name as it is.
    void writeCaption(const QString& name);

    // Opens the bare file name in another manager, where one is given, and shows it.
    void HandOver(Manager manager, const std::optional<QString>& strFileName);

    DialogService& m_dialogs;
    CommonDialog CommonDialog1;
    QString strBaseCaption; // the caption as designed, read when the window is made

private:
    Menu* addFileEntry(QMenu* menu, const QString& verb);

    struct Family;
    const Family& family() const;

    Manager m_kind;
    SuiteLinks* m_links;
    QString m_documentPath;
    Menu* m_newEntry = nullptr;
    Menu* m_openEntry = nullptr;
    Menu* m_saveEntry = nullptr;
    QMenu* m_tools = nullptr;
};
