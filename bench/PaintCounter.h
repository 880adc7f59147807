// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Counts the paints of a widget it filters, so a measurement knows the widget was drawn.

#include <QEvent>
#include <QObject>

class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};
