#include "Platform/Wayland/WaylandConnection.h"

#include "Platform/Files/UnixSocket.h"
#include "Platform/Wayland/WaylandOwned.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <array>
#include <cerrno>

#include <poll.h>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(WaylandConnection)
};

} // namespace

WaylandConnection::WaylandConnection(const QString &display, QDeadlineTimer deadline)
{
    const QDir folder(QFile::decodeName(qgetenv("XDG_RUNTIME_DIR")));
    // The library's own way to connect knows no time limit.
    if (!display.isEmpty()) {
        if (Result<FileDescriptor> connected = connectUnixSocket(folder.absoluteFilePath(display), deadline)) {
            m_display = wl_display_connect_to_fd((*connected).release()); // Closes it, now or at the end.
        }
    }
}

WaylandConnection::~WaylandConnection()
{
    if (m_display != nullptr) {
        wl_display_disconnect(m_display);
    }
}

Result<> WaylandConnection::usable() const
{
    if (m_display == nullptr) {
        return Failure{Tr::tr("The compositor cannot be reached")};
    }
    if (const int number = wl_display_get_error(m_display); number != 0) {
        return Failure{Tr::tr("The compositor ended the connection: %1").arg(systemWords(number))};
    }
    return kDone;
}

Result<> WaylandConnection::dispatch(QDeadlineTimer deadline, int wakeDescriptor)
{
    if (Result<> usable = this->usable(); !usable) {
        return usable;
    }
    if (wl_display_prepare_read(m_display) == 0) { // Else some are waiting already.
        if (Result<> waited = waitForEvents(deadline, wakeDescriptor); !waited) {
            return waited;
        }
    }
    wl_display_dispatch_pending(m_display);
    return usable(); // Every mistake stays with the display.
}

Result<> WaylandConnection::waitForEvents(QDeadlineTimer deadline, int wakeDescriptor)
{
    while (true) {
        const bool isSent = wl_display_flush(m_display) >= 0;
        const bool isFull = !isSent && errno == EAGAIN;
        const auto events = static_cast<short>(isFull ? POLLIN | POLLOUT : POLLIN);
        std::array<pollfd, 2> waited{pollfd{wl_display_get_fd(m_display), events, 0},
                                     pollfd{wakeDescriptor, POLLIN, 0}};
        const int milliseconds = deadline.isForever() ? -1 : static_cast<int>(deadline.remainingTime());
        const int count = ::poll(waited.data(), waited.size(), milliseconds);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        // What the compositor said before it closed the connection can still be read.
        if (count > 0 && (waited[0].revents & (POLLIN | POLLHUP | POLLERR)) != 0) {
            wl_display_read_events(m_display);
            return usable();
        }
        if (count > 0 && waited[1].revents == 0) {
            continue; // There is room again for the rest.
        }
        wl_display_cancel_read(m_display);
        return count > 0 ? kDone : Failure{Tr::tr("The compositor does not answer")};
    }
}

Result<> WaylandConnection::finish(QDeadlineTimer deadline)
{
    if (Result<> usable = this->usable(); !usable) {
        return usable;
    }
    bool isDone = false;
    static const wl_callback_listener listener{
        [](void *data, wl_callback * /*callback*/, uint32_t /*serial*/) { *static_cast<bool *>(data) = true; }};
    const WaylandOwned<wl_callback> callback(wl_display_sync(m_display));
    wl_callback_add_listener(callback.get(), &listener, &isDone);
    while (!isDone) {
        if (Result<> dispatched = dispatch(deadline); !dispatched) {
            return dispatched;
        }
    }
    return kDone;
}

} // namespace quorvane
