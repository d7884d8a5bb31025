#include "Platform/Bus/PropertiesCall.h"

#include <QDBusError>
#include <QDBusVariant>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString propertiesInterface()
{
    return u"org.freedesktop.DBus.Properties"_s;
}

} // namespace

std::optional<QDBusMessage> propertiesReply(const QDBusMessage &message, const QString &interface,
                                            const QVariantMap &properties)
{
    if (message.interface() != propertiesInterface()) {
        return std::nullopt;
    }
    const QVariantList arguments = message.arguments();
    const bool isOurs = arguments.value(0).toString() == interface;
    if (message.member() == "GetAll"_L1) {
        return message.createReply(isOurs ? properties : QVariantMap());
    }
    const QString name = arguments.value(1).toString();
    if (message.member() == "Get"_L1 && isOurs && properties.contains(name)) {
        return message.createReply(QVariant::fromValue(QDBusVariant(properties.value(name))));
    }
    if (message.member() == "Set"_L1) {
        return message.createErrorReply(QDBusError::PropertyReadOnly, name);
    }
    return message.createErrorReply(QDBusError::UnknownProperty, name);
}

QDBusMessage propertiesChanged(const QString &path, const QString &interface, const QVariantMap &changed)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, propertiesInterface(), u"PropertiesChanged"_s);
    signal.setArguments({interface, changed, QStringList()});
    return signal;
}

} // namespace quorvane
