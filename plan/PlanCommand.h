// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `troupe --plan FILE.ssf --output PLAN.svg`: the stage plan of a scene as a picture file,
// drawn without a display.

#include <QString>

// Writes the plan of the scene `file` to `picture` (SVG or PNG, by its extension), in the
// platform's colours and font. 0 when written; else 1, with one line on the error output
// that names the file and what went wrong.
int RunPlanCommand(const QString& file, const QString& picture);
