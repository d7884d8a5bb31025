#include "Views/Controls/SecureFieldAccessibility.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace quorvane {

namespace {

/// Whether Qt has the item in its tree: QML attached what is to be told of it.
bool isInTree(const QQuickItem *item)
{
    const QObjectList &children = item->children();
    return std::any_of(children.begin(), children.end(),
                       [](const QObject *child) { return child->inherits("QQuickAccessibleAttached"); });
}

/// A password field that has a name, a place and a focus, and dots for a text.
class SecureFieldInterface final : public QAccessibleObject
{
  public:
    explicit SecureFieldInterface(QObject *object)
        : QAccessibleObject(object)
    {
    }

    [[nodiscard]] QAccessibleInterface *parent() const override
    {
        const QQuickItem *parent = item()->parentItem();
        while (parent != nullptr && !isInTree(parent)) {
            parent = parent->parentItem();
        }
        return parent != nullptr ? QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(parent))
                                 : QAccessible::queryAccessibleInterface(item()->window());
    }
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::EditableText; }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.passwordEdit = true;
        state.editable = true;
        state.focusable = true;
        state.focused = item()->hasActiveFocus();
        state.disabled = !item()->isEnabled();
        state.invisible = !item()->isVisible();
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text part) const override
    {
        switch (part) {
        case QAccessible::Name:
            return item()->property("placeholderText").toString();
        case QAccessible::Value:
            return item()->property("displayText").toString();
        default:
            return {};
        }
    }
    [[nodiscard]] QRect rect() const override
    {
        const QPointF corner = item()->mapToGlobal(QPointF());
        return {corner.toPoint(), QSizeF(item()->width(), item()->height()).toSize()};
    }
    [[nodiscard]] QWindow *window() const override { return item()->window(); }

  private:
    [[nodiscard]] QQuickItem *item() const { return qobject_cast<QQuickItem *>(object()); }
};

QAccessibleInterface *interfaceFor(const QString &className, QObject *object)
{
    // The name that QML gives the type of a file begins with the file's.
    const bool isSecureField =
        className.startsWith(QLatin1String("SecureField_QML")) && qobject_cast<QQuickItem *>(object) != nullptr;
    return isSecureField ? new SecureFieldInterface(object) : nullptr;
}

} // namespace

void protectSecureFields()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(&interfaceFor);
        return true;
    }();
    Q_UNUSED(isInstalled);
}

} // namespace quorvane
