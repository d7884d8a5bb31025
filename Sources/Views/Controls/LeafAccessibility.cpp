#include "Views/Controls/LeafAccessibility.h"

#include <QQuickWindow>

namespace quorvane {

LeafInterface::LeafInterface(QQuickItem *item)
    : QAccessibleObject(item)
{
    // Qt tells of the focus, but not of this.
    QObject::connect(item, &QQuickItem::enabledChanged, item, [item] {
        QAccessible::State changed;
        changed.disabled = true;
        QAccessibleStateChangeEvent event(item, changed);
        QAccessible::updateAccessibility(&event);
    });
}

QObject *LeafInterface::attachedTo(const QQuickItem *item)
{
    QObject *attached = nullptr;
    for (QObject *child : item->children()) {
        if (child->inherits("QQuickAccessibleAttached")) {
            // Some have a second one, which says nothing.
            const bool saysMore = child->property("role").toInt() != QAccessible::NoRole;
            attached = attached == nullptr || saysMore ? child : attached;
        }
    }
    return attached;
}

QAccessibleInterface *LeafInterface::parent() const
{
    QQuickItem *parent = item()->parentItem();
    while (parent != nullptr && attachedTo(parent) == nullptr) {
        parent = parent->parentItem();
    }
    return parent != nullptr ? QAccessible::queryAccessibleInterface(parent)
                             : QAccessible::queryAccessibleInterface(item()->window());
}

QAccessible::State LeafInterface::state() const
{
    const QWindow *window = item()->window();
    QAccessible::State state;
    state.focusable = true;
    state.focused = item()->hasActiveFocus();
    state.disabled = !item()->isEnabled();
    state.invisible = !item()->isVisible() || window == nullptr || !window->isVisible() || rect().isEmpty();
    state.offscreen = window == nullptr || !window->geometry().intersects(rect());
    return state;
}

QRect LeafInterface::rect() const
{
    const QPointF corner = item()->mapToGlobal(QPointF());
    return {corner.toPoint(), QSizeF(item()->width(), item()->height()).toSize()};
}

QWindow *LeafInterface::window() const
{
    return item()->window();
}

} // namespace quorvane
