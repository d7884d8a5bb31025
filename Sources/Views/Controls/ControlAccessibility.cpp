#include "Views/Controls/ControlAccessibility.h"

#include "Views/Controls/LeafAccessibility.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Says what QML attached to the control, and does what QML does when it is pressed.
class ControlInterface final : public LeafInterface, public QAccessibleActionInterface
{
  public:
    using LeafInterface::LeafInterface;

    [[nodiscard]] QAccessible::Role role() const override
    {
        const QVariant role = told("role");
        return role.isValid() ? QAccessible::Role(role.toInt()) : QAccessible::Button;
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = LeafInterface::state();
        state.checkable = item()->property("checkable").toBool();
        state.checked = state.checkable && item()->property("checked").toBool();
        state.selected = told("selected").toBool();
        state.selectable = role() == QAccessible::PageTab;
        state.pressed = item()->property("down").toBool();
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text part) const override
    {
        switch (part) {
        case QAccessible::Name:
            return told("name").toString();
        case QAccessible::Description:
            return told("description").toString();
        default:
            return {};
        }
    }

    [[nodiscard]] void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString &name) override
    {
        if (name == setFocusAction()) {
            item()->forceActiveFocus();
        } else if (name == pressAction() && item()->isEnabled()) {
            QMetaObject::invokeMethod(attachedTo(item()), "pressAction");
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }

  private:
    [[nodiscard]] QVariant told(const char *property) const
    {
        const QObject *attached = attachedTo(item());
        return attached != nullptr ? attached->property(property) : QVariant();
    }
};

QAccessibleInterface *interfaceFor(const QString &className, QObject *object)
{
    constexpr std::array kControls{"QQuickAbstractButton"_L1, "QQuickComboBox"_L1};
    const bool isControl = std::find(kControls.begin(), kControls.end(), className) != kControls.end();
    auto *item = isControl ? qobject_cast<QQuickItem *>(object) : nullptr;
    return item != nullptr ? new ControlInterface(item) : nullptr;
}

} // namespace

void describeControls()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(&interfaceFor);
        return true;
    }();
    Q_UNUSED(isInstalled);
}

} // namespace quorvane
