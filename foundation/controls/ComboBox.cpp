// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/ComboBox.h"

namespace {

constexpr int ItemDataRole = Qt::UserRole;

} // namespace

ComboBox::ComboBox(const QString& name, QWidget* parent) : QComboBox(parent)
{
    setObjectName(name);
    setEditable(false);
    // `activated` is the user's pick alone, by mouse, key or wheel, also of the row
    // already shown; a change from code raises it not.
    connect(this, &QComboBox::activated, this, [this](int) { emit Click(); });
}

void ComboBox::AddItem(const QString& text)
{
    const bool noneSelected = currentIndex() == -1;
    const QSignalBlocker block(this);
    addItem(text, 0);
    // QComboBox makes the first row of an empty list the current one.
    if (noneSelected)
        setCurrentIndex(-1);
}

void ComboBox::Clear()
{
    const QSignalBlocker block(this);
    clear();
}

void ComboBox::setListIndex(int i)
{
    if (i < -1 || i >= count())
        return;
    {
        const QSignalBlocker block(this);
        setCurrentIndex(i);
    }
    emit Click();
}

int ComboBox::ItemData(int i) const { return itemData(i, ItemDataRole).toInt(); }

void ComboBox::setItemData(int i, int value)
{
    if (i >= 0 && i < count())
        QComboBox::setItemData(i, value, ItemDataRole);
}

void ComboBox::showPopup()
{
    emit DropDown();
    QComboBox::showPopup();
}
