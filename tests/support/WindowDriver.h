// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Drives a window as a user would, finding its controls by their names (objectName): keys
// typed one by one, mouse clicks on buttons and rows, menu entries chosen, keys pressed on a
// list. A control that does not exist ends the test program with its name.

#include "foundation/controls/ComboBox.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/TextBox.h"

#include <QAction>
#include <QTest>

class ScriptedDialogService;

class WindowDriver {
public:
    // Shows the window (on the offscreen platform in tests) and waits until it is exposed.
    explicit WindowDriver(QWidget* window);

    QWidget* window() const { return m_window; }

    // The control of that name and type; the program stops when there is none.
    template <class T> T* find(const QString& name) const
    {
        T* control = m_window->findChild<T*>(name);
        if (!control)
            qFatal("WindowDriver: no %s named \"%s\"", T::staticMetaObject.className(),
                   qPrintable(name));
        return control;
    }
    TextBox* textBox(const QString& name) const { return find<TextBox>(name); }
    ListBox* listBox(const QString& name) const { return find<ListBox>(name); }
    ComboBox* comboBox(const QString& name) const { return find<ComboBox>(name); }
    QAction* menuEntry(const QString& name) const { return find<QAction>(name); }

    // Clicks into the box and types `text` key by key at its end.
    void type(const QString& name, const QString& text);
    // Clicks into the box, selects all with Ctrl+A and deletes it with Backspace.
    void clearText(const QString& name);
    void click(const QString& name);
    // Chooses a menu entry (nothing happens when it is disabled).
    void trigger(const QString& name) { menuEntry(name)->trigger(); }
    void pickRow(const QString& name, int row);
    // A key pressed and released on a list (or any control).
    void pressKey(const QString& name, Qt::Key key) { QTest::keyClick(find<QWidget>(name), key); }
    // Opens the list of a combo box, moves to row `row` and takes it with Enter.
    void pickComboRow(const QString& name, int row);
    QStringList rows(const QString& name) const;
    // True when the text box shows its text in the placeholder colour: it belongs to no record.
    bool showsOrphaned(const QString& name) const;
    // Chooses the menu entry ("men...") or clicks the button `name`, with the file dialog it
    // shows answered by `file`, or cancelled when `file` is empty.
    void chooseFile(ScriptedDialogService& dialogs, const QString& name, const QString& file);

private:
    QWidget* m_window;
};
