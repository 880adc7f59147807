#pragma once
// Part 1.3: `CommandButton` over QPushButton, with its event `Click`.

#include <QPushButton>

class CommandButton : public QPushButton {
    Q_OBJECT

public:
    CommandButton(const QString& name, const QString& caption, QWidget* parent = nullptr);

signals:
    void Click();
};
