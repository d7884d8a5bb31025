// RequestBackground answers twice: at once with the object of the request, and with that object's signal once the user
// has answered what the desktop may ask. The signal can come before the first answer, so the object's path, which
// follows from the caller's name and token, is listened to before the call.

#include "Platform/AutostartPortal.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QTimer>
#include <QUuid>
#include <QVariantMap>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Autostart)
};

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");

QString requestPath(const QDBusConnection &bus, const QString &token)
{
    QString sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

/// Receives the signal of the request.
class Answer : public QObject
{
    Q_OBJECT

  public:
    Answer(QDBusConnection bus, const QString &path)
        : m_bus(std::move(bus))
        , m_path(path)
    {
        listen(true);
    }
    ~Answer() override { listen(false); }
    Answer(const Answer &) = delete;
    Answer &operator=(const Answer &) = delete;

    [[nodiscard]] bool hasCome() const { return m_hasCome; }

    /// Whether the program now is started with the session, as far as the desktop tells.
    [[nodiscard]] std::optional<Autostart> autostart() const { return m_autostart; }

  Q_SIGNALS:
    void came();

  private Q_SLOTS:
    void take(uint response, const QVariantMap &results)
    {
        const QVariant told = results.value(QStringLiteral("autostart"));
        if (response == 0 || told.isValid()) {
            m_autostart = told.toBool() ? Autostart::On : Autostart::Off;
        }
        m_hasCome = true;
        Q_EMIT came();
    }

  private:
    void listen(bool on)
    {
        const QString interface = QStringLiteral("org.freedesktop.portal.Request");
        const QString signal = QStringLiteral("Response");
        if (on) {
            m_bus.connect(kService, m_path, interface, signal, this, SLOT(take(uint, QVariantMap)));
        } else {
            m_bus.disconnect(kService, m_path, interface, signal, this, SLOT(take(uint, QVariantMap)));
        }
    }

    QDBusConnection m_bus;
    QString m_path;
    bool m_hasCome = false;
    std::optional<Autostart> m_autostart;
};

} // namespace

std::optional<QString> askPortalForAutostart(QDBusConnection bus, Autostart autostart, std::chrono::milliseconds limit)
{
    const QString token = QStringLiteral("quorvane_") + QUuid::createUuid().toString(QUuid::Id128);
    const Answer answer(bus, requestPath(bus, token));
    QDBusMessage request = QDBusMessage::createMethodCall(kService, QStringLiteral("/org/freedesktop/portal/desktop"),
                                                          QStringLiteral("org.freedesktop.portal.Background"),
                                                          QStringLiteral("RequestBackground"));
    // Never without "autostart": the portal takes a request that does not name it for one to end it.
    const QVariantMap options{
        {QStringLiteral("handle_token"), token},
        {QStringLiteral("reason"), Tr::tr("Quorvane sets new pictures and keeps yours on every screen.")},
        {QStringLiteral("autostart"), autostart == Autostart::On},
        {QStringLiteral("commandline"), QStringList{QStringLiteral("quorvane"), QStringLiteral("--hidden")}},
        {QStringLiteral("dbus-activatable"), false}};
    request.setArguments({QString(), options});

    QEventLoop loop;
    QDBusPendingCallWatcher call(bus.asyncCall(request));
    QObject::connect(&answer, &Answer::came, &loop, &QEventLoop::quit);
    QObject::connect(&call, &QDBusPendingCallWatcher::finished, &loop, [&call, &loop] {
        if (call.isError()) {
            loop.quit();
        }
    });
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    loop.exec();

    if (call.isFinished() && call.isError()) {
        return Tr::tr("the desktop offers no autostart to a sandboxed program: %1").arg(call.error().message());
    }
    if (!answer.hasCome()) {
        return Tr::tr("the desktop did not answer whether Quorvane may start with the session");
    }
    return answer.autostart() == autostart ? std::nullopt
                                           : std::optional(Tr::tr("the desktop did not allow the change"));
}

} // namespace quorvane

#include "AutostartPortal.moc"
