#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

namespace quorvane {

/// What assistive technology is told of an item with nothing in it, where it is to hear more, or less, than Qt tells of
/// its items: the place in the tree and on the screen, and the states that every item has.
class LeafInterface : public QAccessibleObject
{
  public:
    explicit LeafInterface(QQuickItem *item);

    [[nodiscard]] QAccessibleInterface *parent() const override;
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QWindow *window() const override;

  protected:
    [[nodiscard]] QQuickItem *item() const { return qobject_cast<QQuickItem *>(object()); }

    /// What QML attached to be told of the item; null where it attached nothing.
    [[nodiscard]] static QObject *attachedTo(const QQuickItem *item);
};

} // namespace quorvane
