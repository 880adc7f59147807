// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Pick-only `ComboBox` over a QComboBox that is not editable: no typing.
// `AddItem` never selects, so `ListIndex` is -1 until a row is picked or written; `Click`
// comes only from a user's pick or a write of `ListIndex`; `DropDown` comes just before the
// list opens, so its handler may refill the list.

#include <QComboBox>

class ComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit ComboBox(const QString& name, QWidget* parent = nullptr);

    // Appends a row, with `ItemData` 0; selects nothing.
    void AddItem(const QString& text);
    // Removes every row; `ListIndex` becomes -1 and no `Click` is raised.
    void Clear();
    int ListCount() const { return count(); }

    int ListIndex() const { return currentIndex(); }
    // Selects row i, or none for -1, and raises `Click`. An index out of range changes
    // nothing and raises nothing.
    void setListIndex(int i);

    // The one integer of row i; 0 for a row that does not exist.
    int ItemData(int i) const;
    void setItemData(int i, int value);

    void showPopup() override;

signals:
    void Click();
    void DropDown();
};
