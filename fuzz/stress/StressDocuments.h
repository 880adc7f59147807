// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Two large documents of each format, an old and a new one, that differ in every record,
// so a file cut off anywhere, or mixed from the two, is neither of them.

#include <QString>

#include <functional>
#include <vector>

struct StressFormat {
    QString extension;                           // "rbt", "ssf" or "tsl"
    QString description;                         // what the documents hold
    std::function<bool(const QString&)> saveOld; // the document on disk before a save
    std::function<bool(const QString&)> saveNew; // the document being saved over it
};

// The rig binding's model lies below the base directory of the run, which must be set first.
std::vector<StressFormat> MakeStressFormats();
