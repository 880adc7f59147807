// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The suite: the three manager windows of one process and the links between them. Each
// manager is made by the first command that needs it and exists at most once; the windows
// reach each other only through this object, so no window folder includes another.

#include "foundation/controls/DialogService.h"
#include "foundation/controls/SuiteLinks.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

class frmCheckReport;
class frmMainRBT;
class frmMainSSF;
class frmMainTSL;
class ManagerFrame;
enum class Manager;

class Suite : public SuiteLinks {
public:
    // The windows show their standard dialogs through `dialogs`; the program gives the real
    // ones (the default), a test a scripted service.
    explicit Suite(std::unique_ptr<DialogService> dialogs = nullptr);
    ~Suite() override;
    Suite(const Suite&) = delete;
    Suite& operator=(const Suite&) = delete;

    // The start of a run without files: the rig binding manager, with no document.
    void Start();

    // Opens each file in the manager of its extension as if it had been picked in that
    // manager's Open dialog, and shows that manager. Each file that does not open is reported
    // at once, in one line naming it and why, and brings up no window; the others open all
    // the same. The first file that opens sets the base folder of the run. Where no manager
    // was shown, the suite starts as without files.
    void OpenFiles(const QStringList& paths,
                   const std::function<void(const QString&)>& reportFailure);

    void ShowManager(Manager manager) override;
    void HandOver(Manager manager, const std::optional<QString>& strFileName) override;
    void Check(Manager manager) override;

private:
    frmMainRBT& RBTManager();
    frmMainSSF& SSFManager();
    frmMainTSL& TSLManager();
    // The manager of that kind, made at its first use.
    ManagerFrame& Window(Manager manager);
    // Opens the bare name in the base directory in the manager of that kind; True when it
    // opened.
    bool Open(Manager manager, const QString& strFileName);
    // Why the file did not open in its manager; empty when it did. `shown` becomes true
    // when its manager was shown.
    QString OpenFile(const QString& path, bool& shown);
    // A finding's file, double-clicked in the check's report: the manager of its kind shows
    // it, opened unless it is that manager's own document, which keeps what is unsaved.
    void OpenFinding(const QString& file);

    // The dialogs outlive the windows that hold a reference to them: members are destroyed
    // in reverse order.
    std::unique_ptr<DialogService> m_dialogs;
    std::unique_ptr<frmMainRBT> m_rbt;
    std::unique_ptr<frmMainSSF> m_ssf;
    std::unique_ptr<frmMainTSL> m_tsl;
    std::unique_ptr<frmCheckReport> m_report; // made at the first check
    // The manager whose document the report shows, and the name of that document in it.
    std::pair<Manager, QString> m_checked;
};
