// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A `Menu` entry over QAction, named by its objectName, with its event `Click`
// (QAction::triggered). A menu of the menu bar is a QMenu carrying its name as well.

#include <QAction>

class QMenu;
class QMenuBar;

class Menu : public QAction {
    Q_OBJECT

public:
    Menu(const QString& name, const QString& caption, QObject* parent);

    // A menu of the bar, e.g. `menFile` "File", appended behind those already there.
    static QMenu* AddMenu(QMenuBar* bar, const QString& name, const QString& caption);
    // An entry appended to `menu`, owned by it.
    static Menu* AddEntry(QMenu* menu, const QString& name, const QString& caption);
    // A separator appended to `menu`, named like the entries (`menSep04`).
    static QAction* AddSeparator(QMenu* menu, const QString& name);

signals:
    void Click();
};
