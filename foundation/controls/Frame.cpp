// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/Frame.h"

Frame::Frame(const QString& name, const QString& caption, QWidget* parent)
    : QGroupBox(caption, parent)
{
    setObjectName(name);
}

void Frame::ShowOrphaned(bool orphaned)
{
    // The text boxes inside take the frame's palette; a palette of no roles of its own gives
    // the inherited one back.
    QPalette palette;
    if (orphaned) {
        palette = this->palette();
        palette.setColor(QPalette::Text, palette.color(QPalette::PlaceholderText));
    }
    setPalette(palette);
}
