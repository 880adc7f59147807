// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/CheckBox.h"

CheckBox::CheckBox(const QString& name, const QString& caption, QWidget* parent)
    : QCheckBox(caption, parent)
{
    setObjectName(name);
    setTristate(false);
    connect(this, &QAbstractButton::toggled, this, [this](bool) { emit Click(); });
}
