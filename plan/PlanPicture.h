// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The stage plan as a picture file, drawn without a window: SVG or PNG, by the file's
// extension. The SVG keeps every name as text, so a viewer can search it.

#include <QString>

class QFont;
class QPalette;
class clsSSF;

namespace PlanPicture {

// Writes the plan of `scene`, titled `title`, to `file` in the given colours and font.
// Empty when written; else what went wrong, in one line that names the file.
QString Write(const clsSSF& scene, const QString& title, const QString& file,
              const QPalette& palette, const QFont& font);

} // namespace PlanPicture
