// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/Menu.h"

#include <QMenu>
#include <QMenuBar>

Menu::Menu(const QString& name, const QString& caption, QObject* parent) : QAction(caption, parent)
{
    setObjectName(name);
    connect(this, &QAction::triggered, this, [this] { emit Click(); });
}

QMenu* Menu::AddMenu(QMenuBar* bar, const QString& name, const QString& caption)
{
    QMenu* menu = bar->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

Menu* Menu::AddEntry(QMenu* menu, const QString& name, const QString& caption)
{
    auto* entry = new Menu(name, caption, menu); // owned by the menu
    menu->addAction(entry);
    return entry;
}

QAction* Menu::AddSeparator(QMenu* menu, const QString& name)
{
    QAction* separator = menu->addSeparator();
    separator->setObjectName(name);
    return separator;
}
