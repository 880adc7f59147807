// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `CommandButton` over QPushButton, with its event `Click`. Enter on a focused button presses
// it, as Space does. No button is a default button unless the window makes one so with
// setDefault(true); then, in a dialog, Enter in a text box presses that one.

#include <QPushButton>

class CommandButton : public QPushButton {
    Q_OBJECT

public:
    CommandButton(const QString& name, const QString& caption, QWidget* parent = nullptr);

signals:
    void Click();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
