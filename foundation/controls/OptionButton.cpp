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
    if (value || !isChecked()) {
        setChecked(value);
        return;
    }
    // The checked button of an auto-exclusive set cannot be unchecked in Qt.
    setAutoExclusive(false);
    setChecked(false);
    setAutoExclusive(true);
}
