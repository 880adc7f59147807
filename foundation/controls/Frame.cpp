#include "foundation/controls/Frame.h"

Frame::Frame(const QString& name, const QString& caption, QWidget* parent)
    : QGroupBox(caption, parent)
{
    setObjectName(name);
}
