// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `ListBox` over QListWidget, single selection, not sorted. `ListIndex` is the selected row
// (-1 for none, also after `Clear` and after `RemoveItem` of the selected row); `Click` comes
// from a user's selection or from a write of `ListIndex`, never from `AddItem`, `RemoveItem`,
// `Clear` or a write of `List(i)`; `KeyDown` gives Windows key codes (46 Delete, 113 F2).
//
// A selected row stays selected until the list is cleared, the row removed or `ListIndex`
// written: the user can move the selection but not take it away (a click on the blank part
// or a Ctrl+click on the selected row keeps it). The windows show the selected record in
// text boxes beside the list, and typing there must reach that record.
//
// The list is as wide as its widest row, so a long row can be scrolled to its end; the width
// follows the rows as they are added, written and removed.

#include <QListWidget>

#include <array>
#include <vector>

class ListBox : public QListWidget {
    Q_OBJECT

public:
    explicit ListBox(const QString& name, QWidget* parent = nullptr);

    // Appends a row; selects nothing.
    void AddItem(const QString& text);
    // Removes row i; when it was the selected row, no row is selected afterwards. A row
    // that does not exist is no error: nothing happens.
    void RemoveItem(int i);
    void Clear();
    int ListCount() const { return count(); }

    int ListIndex() const;
    // Selects row i, or none for -1, and raises `Click`, also when i is already selected.
    // An index out of range changes nothing and raises nothing.
    void setListIndex(int i);

    // The text of row i; empty for a row that does not exist.
    QString List(int i) const;
    // Replaces the text of row i; the selection stays and no `Click` is raised.
    void setList(int i, const QString& text);

    // "Courier New" 9 point, a fixed-pitch face in its place where it is missing.
    static QFont FixedPitchFont();
    void setFixedPitch() { setFont(FixedPitchFont()); }

    // The Windows key code of a Qt key (Delete 46, F2 113, letters as their capitals, ...);
    // 0 for a key without one.
    static int KeyCodeOf(int qtKey);
    static constexpr int KeyCodeDelete = 46;
    static constexpr int KeyCodeF2 = 113;

    // After `Clear` (the model's reset), every row is measured again.
    void reset() override;

signals:
    void Click();
    void KeyDown(int KeyCode);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    // A row whose text changes is repainted alone unless it changes the width of the widest
    // row: QListView lays out every row again on any change, which makes typing into a record
    // cost as much as the list is long.
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
    void changeEvent(QEvent* event) override;
    void updateGeometries() override;

private:
    class WidestRowDelegate;

    void selectionChangedByQt();

    int textWidth(int row) const;
    void measureAllRows();
    void findWidest();
    int widestWidth() const { return m_widest == -1 ? 0 : m_widths[m_widest]; }

    int m_lastIndex = -1; // ListIndex as last seen, to raise `Click` on a change only
    // The text width of each row in the list's font, and the row of the widest (-1 for none):
    // the rows share one size, that of the widest, which makes the list's scroll range.
    std::vector<int> m_widths;
    int m_widest = -1;
    std::array<qreal, 95> m_asciiAdvances{}; // ' ' to '~' in the list's font
};
