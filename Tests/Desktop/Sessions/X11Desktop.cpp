#include "X11Desktop.h"

#include "Support/WaitFor.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds kStartLimit{60};

QProcessEnvironment variablesOf(const RealDesktop::Plan &plan, const PrivateXorg &server)
{
    QProcessEnvironment environment;
    environment.insert(u"DISPLAY"_s, QString::fromLatin1(server.display()));
    environment.insert(u"XDG_CURRENT_DESKTOP"_s, plan.currentDesktop);
    environment.insert(u"XDG_SESSION_TYPE"_s, u"x11"_s);
    environment.insert(u"GDK_BACKEND"_s, u"x11"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    return environment;
}

} // namespace

X11Desktop::X11Desktop(const Plan &plan)
    : X11Desktop(plan, std::make_unique<PrivateXorg>())
{
}

X11Desktop::X11Desktop(const Plan &plan, std::unique_ptr<PrivateXorg> server)
    : RealDesktop(plan, variablesOf(plan, *server))
    , m_server(std::move(server))
{
}

bool X11Desktop::isReady() const
{
    return m_server->isReady() && RealDesktop::isReady();
}

bool X11Desktop::start()
{
    return RealDesktop::start() && m_server->layOut() &&
           waitFor([&] { return plan().ready == Plan::Ready::WithName || m_server->announcedPixmap() != 0; },
                   kStartLimit);
}

} // namespace quorvane
