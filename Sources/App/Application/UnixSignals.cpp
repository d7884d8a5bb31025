#include "App/Application/UnixSignals.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace quorvane {

namespace {

constexpr std::array kEndSignals{SIGTERM, SIGINT, SIGHUP};

// A handler may do next to nothing; it writes one byte here, and the event loop reads it.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): a handler reaches nothing else
volatile int writeEnd = -1;

void handle(int /*number*/)
{
    const char byte = 0;
    (void)!::write(writeEnd, &byte, 1);
}

} // namespace

UnixSignals::UnixSignals(QObject *parent)
    : QObject(parent)
{
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    writeEnd = m_pipe[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        Q_EMIT endAsked();
    });
    struct sigaction action = {};
    action.sa_handler = handle;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int number : kEndSignals) {
        ::sigaction(number, &action, nullptr);
    }
}

UnixSignals::~UnixSignals()
{
    for (const int number : kEndSignals) {
        (void)std::signal(number, SIG_DFL);
    }
    writeEnd = -1;
    m_notifier.reset();
    for (const int end : m_pipe) {
        ::close(end);
    }
}

} // namespace quorvane
