// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One problem the show check found: the document that holds it, the record, how bad it is and
// what is wrong, in one sentence.

#include <QString>

struct Finding {
    // An error: the run-time would fail or play it wrong. A warning: probably not what the
    // author meant.
    enum class Severity { Error, Warning };

    QString file;   // the document's full path, or the name given for a document in a window
    QString record; // the record by kind and Id ("puppet 1"); empty for the document's fields
    Severity severity = Severity::Error;
    QString message; // what is wrong and what was looked for

    QString severityName() const
    {
        return severity == Severity::Error ? QStringLiteral("error") : QStringLiteral("warning");
    }
    // The record and the message as one sentence: "puppet 1: the rig binding ... is missing".
    QString text() const
    {
        return record.isEmpty() ? message : record + QStringLiteral(": ") + message;
    }
};
