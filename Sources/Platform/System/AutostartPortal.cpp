#include "Platform/System/AutostartPortal.h"

#include "Platform/Bus/PortalRequest.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Autostart)
};

/// Whether the program now is started with the session. A refusal tells it as well.
bool isAsWanted(const PortalRequest::Answer &answer, Autostart autostart)
{
    const QVariant told = answer.results.value(u"autostart"_s);
    return told.isValid() ? told.toBool() == (autostart == Autostart::On)
                          : answer.response == PortalRequest::Answer::Response::Done;
}

} // namespace

Result<> askPortalForAutostart(const MessageBus &bus, Autostart autostart, std::chrono::milliseconds limit)
{
    PortalRequest request(bus);
    // Never without "autostart": the portal takes a request that does not name it for one to end it.
    const QVariantMap options{{u"handle_token"_s, request.token()},
                              {u"reason"_s, Tr::tr("Quorvane sets new pictures and keeps yours on every screen.")},
                              {u"autostart"_s, autostart == Autostart::On},
                              {u"commandline"_s, QStringList{u"quorvane"_s, u"--hidden"_s}},
                              {u"dbus-activatable"_s, false}};
    std::stop_source tooLong;
    const auto answer =
        request.ask(u"org.freedesktop.portal.Background"_s, u"RequestBackground"_s, {QString(), options},
                    {limit, [&tooLong] { tooLong.request_stop(); }, tooLong.get_token()});
    if (tooLong.stop_requested()) {
        return Failure{Tr::tr("the desktop did not answer whether Quorvane may start with the session")};
    }
    if (!answer) {
        return Failure{
            Tr::tr("the desktop offers no autostart to a sandboxed program: %1").arg(answer.failure().words)};
    }
    return isAsWanted(*answer, autostart) ? kDone : Failure{Tr::tr("the desktop did not allow the change")};
}

} // namespace quorvane
