// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `troupe --check FILE...`: the show check on the command line, without a display.

#include <QStringList>

// Checks the files as one check and prints one line per finding in the form compilers use
// ("rez/act1.ssf: error: puppet 1: ..."), the path relative to the working directory where it
// lies beneath it, else absolute; then the summary. A file that cannot be read at all gets a
// line on the error output. The exit status: 0 without errors, 1 with errors, 2 when a named
// file cannot be read at all.
int RunCheckCommand(const QStringList& files);
