// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/ListBox.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QtMath>

#include <algorithm>
#include <memory>

// With uniform item sizes QListView lays out every row with the size the delegate gives for
// one of them, and that width becomes the list's content width: here, the widest row's.
class ListBox::WidestRowDelegate : public QStyledItemDelegate {
public:
    explicit WidestRowDelegate(ListBox* list) : QStyledItemDelegate(list), m_list(list) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        const int widest = m_list->m_widest;
        if (widest != -1 && widest != index.row())
            size.setWidth(
                QStyledItemDelegate::sizeHint(option, index.siblingAtRow(widest)).width());
        return size;
    }

private:
    const ListBox* m_list;
};

ListBox::ListBox(const QString& name, QWidget* parent) : QListWidget(parent)
{
    setObjectName(name);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSortingEnabled(false);
    setUniformItemSizes(true);
    setItemDelegate(new WidestRowDelegate(this));
    measureAllRows();
    connect(this, &QListWidget::itemSelectionChanged, this, &ListBox::selectionChangedByQt);
}

// --- the width of the widest row ---

int ListBox::textWidth(int row) const
{
    // Rows are ranked by the sum of their characters' advances, looked up for printable
    // ASCII: shaping every row would add hundreds of milliseconds to opening a large
    // document. Kerning is left out of the ranking only; the delegate measures the widest row
    // itself.
    const QString text = item(row)->text();
    qreal width = 0;
    for (const QChar c : text) {
        if (c < u' ' || c > u'~') {
            // A line break starts a second line in the row, which is as wide as its longest.
            const QFontMetrics metrics = fontMetrics();
            return text.contains(u'\n') ? metrics.size(0, text).width()
                                        : metrics.horizontalAdvance(text);
        }
        width += m_asciiAdvances[c.unicode() - u' '];
    }
    return qCeil(width);
}

void ListBox::measureAllRows()
{
    const QFontMetricsF metrics(font());
    for (char16_t c = u' '; c <= u'~'; ++c)
        m_asciiAdvances[c - u' '] = metrics.horizontalAdvance(QChar(c));
    m_widths.resize(count());
    for (int row = 0; row < count(); ++row)
        m_widths[row] = textWidth(row);
    findWidest();
}

void ListBox::findWidest()
{
    const auto widest = std::max_element(m_widths.begin(), m_widths.end());
    m_widest = widest == m_widths.end() ? -1 : static_cast<int>(widest - m_widths.begin());
}

void ListBox::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                          const QList<int>& roles)
{
    const int widthBefore = widestWidth();
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row)
        m_widths[row] = textWidth(row);
    if (topLeft != bottomRight) {
        findWidest();
        QListWidget::dataChanged(topLeft, bottomRight, roles);
        return;
    }
    const int row = topLeft.row();
    if (row == m_widest && m_widths[row] < widthBefore)
        findWidest(); // one pass over the stored widths, no text measured again
    else if (m_widths[row] > widthBefore)
        m_widest = row;
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    if (widestWidth() == widthBefore)
        return;
    // Rows share one height, so no row moves and no other row is painted again: only the
    // content width follows the widest row, without the layout of every row again that
    // QListView would do.
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int itemWidth = itemDelegate()->sizeHint(option, topLeft).width();
    resizeContents(itemWidth + 2 * spacing(), contentsSize().height());
    updateGeometries();
}

void ListBox::rowsInserted(const QModelIndex& parent, int start, int end)
{
    const int added = end - start + 1;
    m_widths.insert(m_widths.begin() + start, added, 0);
    if (m_widest >= start)
        m_widest += added;
    for (int row = start; row <= end; ++row) {
        m_widths[row] = textWidth(row);
        if (m_widest == -1 || m_widths[row] > widestWidth())
            m_widest = row;
    }
    QListWidget::rowsInserted(parent, start, end);
}

void ListBox::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    m_widths.erase(m_widths.begin() + start, m_widths.begin() + end + 1);
    if (m_widest > end)
        m_widest -= end - start + 1;
    else if (m_widest >= start)
        findWidest();
    QListWidget::rowsAboutToBeRemoved(parent, start, end);
}

void ListBox::reset()
{
    measureAllRows();
    QListWidget::reset();
}

void ListBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        measureAllRows();
    QListWidget::changeEvent(event);
}

void ListBox::updateGeometries()
{
    QListWidget::updateGeometries();
    // QListView steps sideways by the width of a row, which here is the widest: one click on
    // an arrow would jump from the start of a long row to its end.
    horizontalScrollBar()->setSingleStep(4 * fontMetrics().averageCharWidth());
}

// --- rows and selection ---

void ListBox::AddItem(const QString& text)
{
    // A change of ours raises no Click through the Qt selection signals.
    const QSignalBlocker quiet(this);
    addItem(text);
}

void ListBox::RemoveItem(int i)
{
    if (i < 0 || i >= count())
        return;
    const QSignalBlocker quiet(this);
    const bool wasSelected = ListIndex() == i;
    // QListWidget moves the current row of a removed current row to a neighbour; the row
    // removed was the selection, so nothing is selected now.
    const std::unique_ptr<QListWidgetItem> removed(takeItem(i));
    if (wasSelected) {
        selectionModel()->clearSelection();
        selectionModel()->clearCurrentIndex();
    }
    m_lastIndex = ListIndex();
}

void ListBox::Clear()
{
    const QSignalBlocker quiet(this);
    clear();
    m_lastIndex = -1;
}

int ListBox::ListIndex() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void ListBox::setListIndex(int i)
{
    if (i < -1 || i >= count())
        return;
    {
        const QSignalBlocker quiet(this);
        if (i == -1) {
            selectionModel()->clearSelection();
            selectionModel()->clearCurrentIndex();
        } else {
            setCurrentRow(i, QItemSelectionModel::ClearAndSelect);
            scrollToItem(item(i));
        }
        m_lastIndex = ListIndex();
    }
    emit Click();
}

QString ListBox::List(int i) const
{
    const QListWidgetItem* row = item(i);
    return row ? row->text() : QString();
}

void ListBox::setList(int i, const QString& text)
{
    if (QListWidgetItem* row = item(i))
        row->setText(text);
}

QFont ListBox::FixedPitchFont()
{
    QFont font(QStringLiteral("Courier New"), 9);
    // Where Courier New is missing the font matcher takes a fixed-pitch face in its place.
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    return font;
}

void ListBox::selectionChangedByQt()
{
    const int index = ListIndex();
    if (index == m_lastIndex)
        return;
    if (index == -1) {
        // Only the user changes the selection outside our own calls, and the user may not
        // take it away: the row comes back, and no `Click` is raised.
        const QSignalBlocker quiet(this);
        setCurrentRow(m_lastIndex, QItemSelectionModel::ClearAndSelect);
        return;
    }
    m_lastIndex = index;
    emit Click();
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const
{
    // Qt empties the selection on a click on the blank part and on Ctrl+click or Ctrl+Space
    // on the selected row; here these keep it.
    const QItemSelectionModel::SelectionFlags command = QListWidget::selectionCommand(index, event);
    if (!index.isValid() || command.testFlag(QItemSelectionModel::Deselect) ||
        command.testFlag(QItemSelectionModel::Toggle))
        return QItemSelectionModel::NoUpdate;
    return command;
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    if (const int code = KeyCodeOf(event->key()); code != 0)
        emit KeyDown(code);
    QListWidget::keyPressEvent(event);
}

int ListBox::KeyCodeOf(int qtKey)
{
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)
        return 65 + (qtKey - Qt::Key_A);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)
        return 48 + (qtKey - Qt::Key_0);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F16)
        return 112 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    default:
        return 0;
    }
}
