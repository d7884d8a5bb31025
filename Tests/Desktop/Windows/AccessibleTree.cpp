#include "AccessibleTree.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr auto kAccessible = "org.a11y.atspi.Accessible";
constexpr int kDeepest = 40;
constexpr int kStatesPerNumber = 32;

} // namespace

QString AccessibleTree::launcher()
{
    for (const char *path : {"/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher"}) {
        if (QFile::exists(QLatin1String(path))) {
            return QLatin1String(path);
        }
    }
    return {};
}

AccessibleTree::AccessibleTree(QDBusConnection session)
    : m_session(std::move(session))
{
}

AccessibleTree::~AccessibleTree()
{
    QDBusConnection::disconnectFromBus(m_name);
}

bool AccessibleTree::connectToBus()
{
    if (!m_name.isEmpty()) {
        return true;
    }
    const QDBusMessage ask =
        QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s);
    m_address = m_session.call(ask).arguments().value(0).toString();
    const QString name = u"accessibility at "_s + m_address;
    if (m_address.isEmpty() || !QDBusConnection::connectToBus(m_address, name).isConnected()) {
        return false;
    }
    m_name = name;
    return true;
}

QVariantList AccessibleTree::call(const QString &bus, const QString &path, const char *interface, const char *method,
                                  const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(bus, path, QLatin1String(interface), QLatin1String(method));
    message.setArguments(arguments);
    const QDBusMessage reply = QDBusConnection(m_name).call(message);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments() : QVariantList();
}

QString AccessibleTree::property(const QString &bus, const QString &path, const char *name) const
{
    return call(bus, path, "org.freedesktop.DBus.Properties", "Get", {QLatin1String(kAccessible), QLatin1String(name)})
        .value(0)
        .value<QDBusVariant>()
        .variant()
        .toString();
}

void AccessibleTree::collect(const QString &bus, const QString &path, int depth, QList<AccessibleElement> *found) const
{
    const auto children = call(bus, path, kAccessible, "GetChildren").value(0).value<QDBusArgument>();
    QList<std::pair<QString, QString>> references;
    if (children.currentType() == QDBusArgument::ArrayType) {
        children.beginArray();
        while (!children.atEnd()) {
            QString owner;
            QDBusObjectPath object;
            children.beginStructure();
            children >> owner >> object;
            children.endStructure();
            references.append({owner, object.path()});
        }
    }
    for (const auto &[owner, object] : references) {
        AccessibleElement element{owner,
                                  object,
                                  call(owner, object, kAccessible, "GetRoleName").value(0).toString(),
                                  property(owner, object, "Name"),
                                  property(owner, object, "Description"),
                                  call(owner, object, "org.a11y.atspi.Text", "GetText", {0, -1}).value(0).toString(),
                                  {}};
        const auto numbers = qdbus_cast<QList<quint32>>(call(owner, object, kAccessible, "GetState").value(0));
        for (int state = 0; state < kStatesPerNumber * int(numbers.size()); ++state) {
            if ((numbers[state / kStatesPerNumber] >> (state % kStatesPerNumber) & 1U) != 0) {
                element.states.insert(state);
            }
        }
        found->append(element);
        if (depth < kDeepest) {
            collect(owner, object, depth + 1, found);
        }
    }
}

QString AccessibleTree::addressOfEvents()
{
    if (!connectToBus()) {
        return {};
    }
    // Programs send what somebody listens to.
    const QVariantList all{u"object:"_s, QStringList(), QString()};
    (void)call(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/registry"_s, "org.a11y.atspi.Registry", "RegisterEvent",
               all);
    return m_address;
}

QList<AccessibleElement> AccessibleTree::elements()
{
    QList<AccessibleElement> found;
    if (connectToBus()) {
        collect(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s, 0, &found);
    }
    return found;
}

std::optional<AccessibleElement> AccessibleTree::find(const QString &role, const QString &name)
{
    for (const AccessibleElement &element : elements()) {
        if (element.role == role && element.name == name && element.has(AccessibleElement::Showing)) {
            return element;
        }
    }
    return std::nullopt;
}

QRect AccessibleTree::areaOf(const AccessibleElement &element) const
{
    const auto extents =
        call(element.bus, element.path, "org.a11y.atspi.Component", "GetExtents", {0U}).value(0).value<QDBusArgument>();
    if (extents.currentType() != QDBusArgument::StructureType) {
        return {};
    }
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    extents.beginStructure();
    extents >> x >> y >> width >> height;
    extents.endStructure();
    return {x, y, width, height};
}

bool AccessibleTree::press(const AccessibleElement &element) const
{
    return call(element.bus, element.path, "org.a11y.atspi.Action", "DoAction", {0}).value(0).toBool();
}

} // namespace quorvane
