// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a manager window asks of the suite it belongs to: to show another manager, to hand
// another manager a file, to check its document. The windows know only this interface, so no
// window folder includes another; the suite in app/ implements it. A window given none (a
// window tested alone) leaves its Tools entries and hand-overs without effect.

#include <QString>

#include <optional>

// The three managers, one to a family of files.
enum class Manager { RBT, SSF, TSL };

class SuiteLinks {
public:
    virtual ~SuiteLinks() = default;

    // Creates the manager at its first use, then shows it without touching its document.
    virtual void ShowManager(Manager manager) = 0;

    // Opens the bare file name in the manager, where one is given, then shows the manager in
    // every case, whether the file opened or not.
    virtual void HandOver(Manager manager, const std::optional<QString>& strFileName) = 0;

    // Checks the manager's document as it stands, saved or not, and everything it reaches, and
    // shows the findings.
    virtual void Check(Manager manager) = 0;

protected:
    SuiteLinks() = default;
    SuiteLinks(const SuiteLinks&) = default;
    SuiteLinks& operator=(const SuiteLinks&) = default;
};
