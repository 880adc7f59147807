#pragma once
// The other managers as a window test sees them: every request recorded in order, as
// "RBT", "SSF", "TSL" for a manager shown and "rbt <file>", "ssf <file>" for a hand-over
// ("-" where no file is given).

#include "foundation/controls/SuiteLinks.h"

#include <QStringList>

struct RecordingLinks : SuiteLinks {
    QStringList calls;
    void ShowRBTManager() override { calls << QStringLiteral("RBT"); }
    void ShowSSFManager() override { calls << QStringLiteral("SSF"); }
    void ShowTSLManager() override { calls << QStringLiteral("TSL"); }
    void EditRBT(const std::optional<QString>& file) override { edit("rbt ", file); }
    void EditSSF(const std::optional<QString>& file) override { edit("ssf ", file); }

private:
    void edit(const char* kind, const std::optional<QString>& file)
    {
        calls << QLatin1String(kind) + file.value_or(QStringLiteral("-"));
    }
};
