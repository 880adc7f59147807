// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One offered animation of a rig binding: a plain record of text fields, with no
// operations. Every field starts empty.

#include <QString>

class clsAnimation {
public:
    QString Id;   // the animation's index in the model's own list, not its place in this list
    QString Name; // the display name the author gave it
    QString Anim; // the model's own name for it; never stored
};
