#pragma once
// What a manager window asks of the suite it belongs to: to show another manager, or to hand
// another manager a file. The windows know only this interface, so no window folder includes
// another; the suite in app/ implements it. A window given none (a window tested alone)
// leaves its Tools entries and hand-overs without effect.

#include <QString>

#include <optional>

class SuiteLinks {
public:
    virtual ~SuiteLinks() = default;

    // Creates the manager at its first use, then shows it without touching its document.
    virtual void ShowRBTManager() = 0;
    virtual void ShowSSFManager() = 0;
    virtual void ShowTSLManager() = 0;

    // Opens the bare file name in the manager, where one is given, then shows the manager in
    // every case, whether the file opened or not.
    virtual void EditRBT(const std::optional<QString>& strFileName) = 0;
    virtual void EditSSF(const std::optional<QString>& strFileName) = 0;

protected:
    SuiteLinks() = default;
    SuiteLinks(const SuiteLinks&) = default;
    SuiteLinks& operator=(const SuiteLinks&) = default;
};
