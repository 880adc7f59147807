// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What every manager window does on a desktop besides its own logic. A window calls
// ManagerWindow::SetUp at the end of its constructor, once its controls and menus exist:
// - it opens at its designed size and cannot be made smaller; room gained goes where its
//   layouts stretch (its lists and long text boxes);
// - its menu bar is reachable from the keyboard: F10, or Alt pressed and released alone,
//   opens the first menu, and the arrow keys go on from there. Captions stay as given.

#include <QSize>

class QMainWindow;

namespace ManagerWindow {

void SetUp(QMainWindow& window, const QSize& designedSize);

} // namespace ManagerWindow
