#include "foundation/controls/ListBox.h"

#include <QKeyEvent>
#include <QSignalBlocker>

#include <memory>

ListBox::ListBox(const QString& name, QWidget* parent) : QListWidget(parent)
{
    setObjectName(name);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSortingEnabled(false);
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemSelectionChanged, this, &ListBox::selectionChangedByQt);
}

void ListBox::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                          const QList<int>& roles)
{
    // Rows share one height, so a changed text moves no other row.
    if (topLeft == bottomRight)
        QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    else
        QListWidget::dataChanged(topLeft, bottomRight, roles);
}

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
