// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/WindowDriver.h"

#include "tests/support/ScriptedDialogService.h"

#include <QAbstractButton>
#include <QtTest>

WindowDriver::WindowDriver(QWidget* window) : m_window(window)
{
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window))
        qWarning("WindowDriver: the window was not exposed");
}

void WindowDriver::type(const QString& name, const QString& text)
{
    TextBox* box = textBox(name);
    if (box->isEnabled())
        box->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(box, Qt::Key_End);
    QTest::keyClicks(box, text);
}

void WindowDriver::clearText(const QString& name)
{
    TextBox* box = textBox(name);
    if (box->isEnabled())
        box->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Backspace);
}

void WindowDriver::click(const QString& name)
{
    QAbstractButton* button = find<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
}

void WindowDriver::pickRow(const QString& name, int row)
{
    ListBox* list = listBox(name);
    QListWidgetItem* item = list->item(row);
    if (!item)
        qFatal("WindowDriver: list \"%s\" has no row %d", qPrintable(name), row);
    list->scrollToItem(item);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
}

void WindowDriver::pickComboRow(const QString& name, int row)
{
    ComboBox* combo = comboBox(name);
    combo->showPopup();
    QAbstractItemView* view = combo->view();
    if (!QTest::qWaitForWindowExposed(view->window()))
        qWarning("WindowDriver: the list of \"%s\" did not open", qPrintable(name));
    const QModelIndex index = view->model()->index(row, combo->modelColumn());
    if (!index.isValid())
        qFatal("WindowDriver: combo box \"%s\" has no row %d", qPrintable(name), row);
    // Moving there is what the mouse over the row does; Enter takes it as a click would.
    view->setCurrentIndex(index);
    QTest::keyClick(view, Qt::Key_Return);
}

QStringList WindowDriver::rows(const QString& name) const
{
    const ListBox* list = listBox(name);
    QStringList texts;
    for (int i = 0; i < list->ListCount(); ++i)
        texts << list->List(i);
    return texts;
}

bool WindowDriver::showsOrphaned(const QString& name) const
{
    const QPalette palette = textBox(name)->palette();
    return palette.color(QPalette::Text) == palette.color(QPalette::PlaceholderText);
}

void WindowDriver::chooseFile(ScriptedDialogService& dialogs, const QString& name,
                              const QString& file)
{
    file.isEmpty() ? dialogs.answerCancel() : dialogs.answerFile(file);
    name.startsWith(QLatin1String("men")) ? trigger(name) : click(name);
}
