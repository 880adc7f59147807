// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/ManagerWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <algorithm>

namespace {

// Watches one window: its size, and its keys. It listens at the application, since a key
// goes to the focused control and a text box or list would keep a lone Alt from the window.
class WindowWatcher : public QObject {
public:
    explicit WindowWatcher(QMainWindow& window) : QObject(&window), m_window(window)
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        switch (event->type()) { // every event of the program passes here: few are looked at
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
        case QEvent::WindowDeactivate:
        case QEvent::Resize:
            break;
        default:
            return false;
        }
        // Some window managers grant a program's request for a size below the minimum it
        // asked for; the window then asks for its minimum again.
        if (watched == &m_window && event->type() == QEvent::Resize &&
            m_window.size() != m_window.size().expandedTo(m_window.minimumSize())) {
            QTimer::singleShot(0, &m_window, [this] {
                m_window.resize(m_window.size().expandedTo(m_window.minimumSize()));
            });
            return false;
        }
        const auto* widget = qobject_cast<const QWidget*>(watched);
        if (!widget || widget->window() != &m_window)
            return false;
        switch (event->type()) {
        case QEvent::KeyPress: {
            const auto* key = static_cast<const QKeyEvent*>(event);
            if (key->key() == Qt::Key_F10 && key->modifiers() == Qt::NoModifier) {
                m_altAlone = false;
                openFirstMenu();
                return true;
            }
            if (key->key() != Qt::Key_Alt)
                m_altAlone = false;
            else if (!key->isAutoRepeat())
                m_altAlone = true;
            return false;
        }
        case QEvent::KeyRelease: {
            const auto* key = static_cast<const QKeyEvent*>(event);
            if (key->key() != Qt::Key_Alt || !m_altAlone)
                return false;
            m_altAlone = false;
            openFirstMenu();
            return true;
        }
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
        case QEvent::WindowDeactivate:
            m_altAlone = false; // Alt was held for something else
            return false;
        default:
            return false;
        }
    }

private:
    void openFirstMenu() const
    {
        QMenuBar* bar = m_window.menuBar();
        const QList<QAction*> menus = bar->actions();
        if (menus.isEmpty())
            return;
        bar->setActiveAction(menus.first());
        // Its first entry is highlighted, so Enter chooses it and the arrows start there.
        if (QMenu* menu = menus.first()->menu()) {
            const QList<QAction*> entries = menu->actions();
            const auto first = std::find_if(entries.begin(), entries.end(), [](QAction* entry) {
                return !entry->isSeparator() && entry->isEnabled();
            });
            if (first != entries.end())
                menu->setActiveAction(*first);
        }
    }

    QMainWindow& m_window;
    bool m_altAlone = false; // Alt is down and no other key or click has come since
};

} // namespace

void ManagerWindow::SetUp(QMainWindow& window, const QSize& designedSize)
{
    window.resize(designedSize);
    window.setMinimumSize(designedSize.expandedTo(window.minimumSizeHint()));
    new WindowWatcher(window); // owned by the window
}
