// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/OptionButton.h"

OptionButton::OptionButton(const QString& name, const QString& caption, QWidget* parent)
    : QRadioButton(caption, parent)
{
    setObjectName(name);
    setAutoExclusive(true);
    connect(this, &QAbstractButton::toggled, this, [this](bool on) {
        if (on)
            emit Click();
    });
}

void OptionButton::setValue(bool value)
{
    if (value) {
        // Turning on raises Click through `toggled`; Qt stays silent for a button already on.
        if (isChecked())
            emit Click();
        else
            setChecked(true);
        return;
    }
    if (!isChecked())
        return;
    // The checked button of an auto-exclusive set cannot be unchecked in Qt.
    setAutoExclusive(false);
    setChecked(false);
    setAutoExclusive(true);
}
