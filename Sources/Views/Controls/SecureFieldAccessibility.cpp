#include "Views/Controls/SecureFieldAccessibility.h"

#include "Views/Controls/LeafAccessibility.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A password field that has a name, a place and a focus, and dots for a text.
class SecureFieldInterface final : public LeafInterface
{
  public:
    using LeafInterface::LeafInterface;

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::EditableText; }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = LeafInterface::state();
        state.passwordEdit = true;
        state.editable = true;
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
};

QAccessibleInterface *interfaceFor(const QString &className, QObject *object)
{
    // The name that QML gives the type of a file begins with the file's.
    auto *item = className.startsWith("SecureField_QML"_L1) ? qobject_cast<QQuickItem *>(object) : nullptr;
    return item != nullptr ? new SecureFieldInterface(item) : nullptr;
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
