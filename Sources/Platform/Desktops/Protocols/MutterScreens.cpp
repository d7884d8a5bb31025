#include "Platform/Desktops/Protocols/MutterScreens.h"

#include <QDBusArgument>
#include <QMap>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kName = u"org.gnome.Mutter.DisplayConfig"_s;

/// One of the monitors: (ssss) names, the connector first; a(siiddada{sv}) modes; a{sv}.
struct Monitor
{
    QString connector;
    QSize currentMode;
};

const QDBusArgument &operator>>(const QDBusArgument &argument, Monitor &monitor)
{
    QString unused;
    argument.beginStructure();
    argument.beginStructure();
    argument >> monitor.connector >> unused >> unused >> unused;
    argument.endStructure();
    argument.beginArray();
    while (!argument.atEnd()) {
        QString name;
        int width = 0;
        int height = 0;
        double rate = 0;
        double scale = 0;
        QList<double> scales;
        QVariantMap properties;
        argument.beginStructure();
        argument >> name >> width >> height >> rate >> scale >> scales >> properties;
        argument.endStructure();
        if (properties.value(u"is-current"_s).toBool()) {
            monitor.currentMode = QSize(width, height);
        }
    }
    argument.endArray();
    QVariantMap properties;
    argument >> properties;
    argument.endStructure();
    return argument;
}

/// One of the screens: (iiduba(ssss)a{sv}), where several monitors that show the same are one.
struct LogicalMonitor
{
    QString connector;
    bool isTurned = false;
};

const QDBusArgument &operator>>(const QDBusArgument &argument, LogicalMonitor &monitor)
{
    int left = 0;
    int top = 0;
    double scale = 0;
    uint transform = 0;
    bool isPrimary = false;
    argument.beginStructure();
    argument >> left >> top >> scale >> transform >> isPrimary;
    argument.beginArray();
    while (!argument.atEnd()) {
        QString connector;
        QString unused;
        argument.beginStructure();
        argument >> connector >> unused >> unused >> unused;
        argument.endStructure();
        if (monitor.connector.isEmpty()) {
            monitor.connector = connector;
        }
    }
    argument.endArray();
    QVariantMap properties;
    argument >> properties;
    argument.endStructure();
    monitor.isTurned = transform % 2 == 1; // By a quarter or three, mirrored or not.
    return argument;
}

template <typename Element> QList<Element> listOf(const QVariant &value)
{
    QList<Element> list;
    const auto argument = value.value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        Element element;
        argument >> element;
        list.append(element);
    }
    argument.endArray();
    return list;
}

} // namespace

std::optional<QList<Screen>> mutterScreens(const MessageBus &bus)
{
    const auto answer = bus.call(kName, u"/org/gnome/Mutter/DisplayConfig"_s, kName, u"GetCurrentState"_s);
    // A serial number, monitors, screens, properties.
    if (!answer || answer->size() < 3 ||
        answer->at(1).value<QDBusArgument>().currentSignature() != "a((ssss)a(siiddada{sv})a{sv})"_L1 ||
        answer->at(2).value<QDBusArgument>().currentSignature() != "a(iiduba(ssss)a{sv})"_L1) {
        return std::nullopt;
    }
    QMap<QString, QSize> modes;
    for (const Monitor &monitor : listOf<Monitor>(answer->at(1))) {
        modes.insert(monitor.connector, monitor.currentMode);
    }
    QList<Screen> screens;
    for (const LogicalMonitor &monitor : listOf<LogicalMonitor>(answer->at(2))) {
        const QSize mode = modes.value(monitor.connector);
        if (!mode.isEmpty()) {
            screens.append({monitor.connector, monitor.isTurned ? mode.transposed() : mode});
        }
    }
    return screens;
}

} // namespace quorvane
