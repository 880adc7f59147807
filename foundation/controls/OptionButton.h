// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `OptionButton` over QRadioButton. The buttons that stand directly in one `Frame`
// exclude each other (Qt's auto-exclusion among the children of one widget); none is on at
// the start. `Click` is raised when the user turns a button on, and every time code sets
// `Value` True, also on a button that is already on, so a handler that writes the option's
// meaning into a record runs for each record shown. Setting it False raises nothing.

#include <QRadioButton>

class OptionButton : public QRadioButton {
    Q_OBJECT

public:
    OptionButton(const QString& name, const QString& caption, QWidget* parent = nullptr);

    bool Value() const { return isChecked(); }
    // True turns the others of the frame off. False turns this one off, leaving none on,
    // which Qt's exclusion alone would refuse.
    void setValue(bool value);

signals:
    void Click();
};
