#include "foundation/controls/CommandButton.h"

CommandButton::CommandButton(const QString& name, const QString& caption, QWidget* parent)
    : QPushButton(caption, parent)
{
    setObjectName(name);
    // The original buttons are no default buttons: Enter in a text box presses none of them.
    setAutoDefault(false);
    setDefault(false);
    connect(this, &QAbstractButton::clicked, this, [this] { emit Click(); });
}
