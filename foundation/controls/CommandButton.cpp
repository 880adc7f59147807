// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/CommandButton.h"

#include <QKeyEvent>

CommandButton::CommandButton(const QString& name, const QString& caption, QWidget* parent)
    : QPushButton(caption, parent)
{
    setObjectName(name);
    // A focused button would otherwise become the dialog's default for the time it has the
    // focus, and Enter in a text box would press whichever button was focused last.
    setAutoDefault(false);
    setDefault(false);
    connect(this, &QAbstractButton::clicked, this, [this] { emit Click(); });
}

void CommandButton::keyPressEvent(QKeyEvent* event)
{
    // QPushButton takes Enter only as a default button; a user who tabbed to the button
    // expects Enter to press it.
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        if (!event->isAutoRepeat()) // held down, it presses once, as Space does
            click();
        event->accept();
        return;
    }
    QPushButton::keyPressEvent(event);
}
