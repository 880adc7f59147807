#pragma once
// The other managers as a window test sees them: every request recorded in order, "RBT",
// "SSF", "TSL" for a manager shown, "rbt <file>", "ssf <file>" for a hand-over ("-": none).

#include "foundation/controls/SuiteLinks.h"

#include <QStringList>

struct RecordingLinks : SuiteLinks {
    QStringList calls;
    void ShowRBTManager() override { calls << QStringLiteral("RBT"); }
    void ShowSSFManager() override { calls << QStringLiteral("SSF"); }
    void ShowTSLManager() override { calls << QStringLiteral("TSL"); }
    void EditRBT(const std::optional<QString>& f) override { calls << "rbt " + f.value_or("-"); }
    void EditSSF(const std::optional<QString>& f) override { calls << "ssf " + f.value_or("-"); }
};
