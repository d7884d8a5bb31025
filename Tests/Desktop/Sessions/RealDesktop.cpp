#include "RealDesktop.h"

#include "Platform/Bus/MessageBus.h"
#include "Support/WaitFor.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds kStartLimit{60};
constexpr std::chrono::seconds kCallLimit{20};

} // namespace

RealDesktop::RealDesktop(Plan plan, const QProcessEnvironment &variables)
    : m_plan(std::move(plan))
    , m_session(variables)
{
}

bool RealDesktop::start()
{
    for (const QStringList &command : std::as_const(m_plan.preparations)) {
        if (!m_session.run(command.constFirst(), command.mid(1))) {
            return false;
        }
    }
    m_programs.clear();
    for (const QStringList &command : std::as_const(m_plan.commands)) {
        m_programs.push_back(m_session.start(command.constFirst(), command.mid(1)));
    }
    const bool isThere = waitForName(m_plan.painter);
    if (!isThere) {
        qWarning("%s did not start: %s", qUtf8Printable(m_plan.name), m_programs.back()->errors().constData());
    }
    return isThere;
}

void RealDesktop::freeze()
{
    m_programs.back()->signal(SIGSTOP);
}

bool RealDesktop::kill()
{
    m_programs.back()->signal(SIGKILL);
    // A session manager is one program and what draws another.
    const MessageBus bus(m_session.busAddress(), QDeadlineTimer(kCallLimit));
    const QString busName = u"org.freedesktop.DBus"_s;
    const auto painter =
        bus.call(busName, u"/org/freedesktop/DBus"_s, busName, u"GetConnectionUnixProcessID"_s, {m_plan.painter});
    if (painter) {
        ::kill(static_cast<pid_t>(painter->value(0).toUInt()), SIGKILL);
    }
    return waitFor([&] { return !bus.isOwned(m_plan.painter); });
}

bool RealDesktop::startPainterAgain()
{
    const QStringList &command = m_plan.commands.constLast();
    m_programs.back() = m_session.start(command.constFirst(), command.mid(1));
    return waitForName(m_plan.painter);
}

bool RealDesktop::waitForName(const QString &name) const
{
    // One connection for all questions: everybody on the bus is told of each that comes and goes.
    const MessageBus bus(m_session.busAddress(), QDeadlineTimer(kStartLimit));
    return waitFor([&] { return bus.isOwned(name); }, kStartLimit);
}

} // namespace quorvane
