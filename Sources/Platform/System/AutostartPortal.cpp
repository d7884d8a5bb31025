#include "Platform/System/AutostartPortal.h"

#include "Platform/Bus/PortalAnswer.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QTimer>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Autostart)
};

QDBusMessage request(const QString &token, Autostart autostart)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.Background"_s, u"RequestBackground"_s);
    // Never without "autostart": the portal takes a request that does not name it for one to end it.
    const QVariantMap options{{u"handle_token"_s, token},
                              {u"reason"_s, Tr::tr("Quorvane sets new pictures and keeps yours on every screen.")},
                              {u"autostart"_s, autostart == Autostart::On},
                              {u"commandline"_s, QStringList{u"quorvane"_s, u"--hidden"_s}},
                              {u"dbus-activatable"_s, false}};
    message.setArguments({QString(), options});
    return message;
}

/// Whether the program now is started with the session. A refusal tells it as well.
bool isAsWanted(const PortalAnswer &answer, Autostart autostart)
{
    const QVariant told = answer.results().value(u"autostart"_s);
    return told.isValid() ? told.toBool() == (autostart == Autostart::On) : answer.response() == 0;
}

} // namespace

Result<> askPortalForAutostart(const QDBusConnection &bus, Autostart autostart, std::chrono::milliseconds limit)
{
    const QString token = u"quorvane_"_s + QUuid::createUuid().toString(QUuid::Id128);
    const PortalAnswer answer(bus, token);
    const QDBusPendingCallWatcher call(bus.asyncCall(request(token, autostart)));

    QEventLoop loop;
    QObject::connect(&answer, &PortalAnswer::came, &loop, &QEventLoop::quit);
    QObject::connect(&call, &QDBusPendingCallWatcher::finished, &loop, [&call, &loop] {
        if (call.isError()) {
            loop.quit();
        }
    });
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(limit);
    loop.exec();

    if (call.isFinished() && call.isError()) {
        return Failure{
            Tr::tr("the desktop offers no autostart to a sandboxed program: %1").arg(call.error().message())};
    }
    if (!answer.hasCome()) {
        return Failure{Tr::tr("the desktop did not answer whether Quorvane may start with the session")};
    }
    return isAsWanted(answer, autostart) ? kDone : Failure{Tr::tr("the desktop did not allow the change")};
}

} // namespace quorvane
