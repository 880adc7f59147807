// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `CheckBox` over QCheckBox. `Value` is 0 or 1; every change of it, by the user or
// by code, raises `Click`.

#include <QCheckBox>

class CheckBox : public QCheckBox {
    Q_OBJECT

public:
    CheckBox(const QString& name, const QString& caption, QWidget* parent = nullptr);

    int Value() const { return isChecked() ? 1 : 0; }
    // Any value but 0 checks the box.
    void setValue(int value) { setChecked(value != 0); }

signals:
    void Click();
};
