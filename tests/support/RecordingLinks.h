// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The other managers as a window test sees them: every request recorded in order, "RBT",
// "SSF", "TSL" for a manager shown, "rbt <file>", "ssf <file>" for a hand-over ("-": none),
// "check TSL" for a check of a manager's document.

#include "foundation/controls/SuiteLinks.h"

#include <QStringList>

struct RecordingLinks : SuiteLinks {
    QStringList calls;
    static QString Name(Manager m)
    {
        return m == Manager::RBT   ? QStringLiteral("RBT")
               : m == Manager::SSF ? QStringLiteral("SSF")
                                   : QStringLiteral("TSL");
    }
    void ShowManager(Manager m) override { calls << Name(m); }
    void HandOver(Manager m, const std::optional<QString>& f) override
    {
        calls << Name(m).toLower() + u' ' + f.value_or(QStringLiteral("-"));
    }
    void Check(Manager m) override { calls << QStringLiteral("check ") + Name(m); }
};
