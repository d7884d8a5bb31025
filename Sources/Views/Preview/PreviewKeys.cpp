#include "Views/Preview/PreviewKeys.h"

#include <QQuickItem>

namespace quorvane {

namespace {

/// Whether a menu has the keyboard, or a picker whose list has dropped down.
bool isMenuOpen(const QQuickItem *focused)
{
    for (const QQuickItem *item = focused; item != nullptr; item = item->parentItem()) {
        const auto *list = item->property("popup").value<QObject *>();
        if (item->inherits("QQuickOverlay") || (list != nullptr && list->property("visible").toBool())) {
            return true;
        }
    }
    return false;
}

} // namespace

void PreviewKeys::setWindow(QQuickWindow *window)
{
    if (window == m_window) {
        return;
    }
    if (m_window) {
        m_window->removeEventFilter(this);
    }
    m_window = window;
    if (m_window) {
        m_window->installEventFilter(this);
    }
    Q_EMIT windowChanged();
}

bool PreviewKeys::eventFilter(QObject *watched, QEvent *event)
{
    // What accepts the override gets the press, before any shortcut and any item.
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) {
        return QObject::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (!takes(key)) {
        return false;
    }
    if (event->type() == QEvent::KeyPress) {
        obey(key);
    }
    event->accept();
    return true;
}

bool PreviewKeys::takes(int key) const
{
    const bool isOwn = key == Qt::Key_Escape || key == Qt::Key_Left || key == Qt::Key_Right;
    return isOwn && m_model && m_model->isOpen() && !isMenuOpen(m_window->activeFocusItem());
}

void PreviewKeys::obey(int key) const
{
    if (key == Qt::Key_Escape) {
        m_model->close();
    } else if ((key == Qt::Key_Left) != m_isMirrored) {
        m_model->goLeft();
    } else {
        m_model->goRight();
    }
}

} // namespace quorvane
