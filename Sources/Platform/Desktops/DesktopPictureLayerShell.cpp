// The surfaces live on a connection and a thread of their own. Qt's connection would need Qt's private interfaces, and
// the command line and tests have none; the calling thread has no event loop that could answer the compositor later.

#include "Platform/Desktops/DesktopPictureLayerShell.h"

#include "Platform/Pictures/PictureFile.h"
#include "Platform/Wayland/LayerShellBackgrounds.h"
#include "Platform/Wayland/WaylandFacts.h"

#include <QCoreApplication>
#include <QImage>

#include <future>
#include <mutex>
#include <thread>
#include <utility>

#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureLayerShell)
};

} // namespace

/// What the thread is asked to show.
struct DesktopPictureLayerShell::Request
{
    QImage picture;
    QString path;
    QList<Screen> screens;
};

/// The thread. One call of show() at a time.
class DesktopPictureLayerShell::Keeper
{
  public:
    Keeper(const QString &display, std::chrono::milliseconds limit)
        : m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
        , m_limit(limit)
        , m_thread([this, display] { run(display); })
    {
    }
    ~Keeper()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isStopping = true;
        }
        wake();
        m_thread.join();
        ::close(m_wake);
    }
    Keeper(const Keeper &) = delete;
    Keeper &operator=(const Keeper &) = delete;
    Keeper(Keeper &&) = delete;
    Keeper &operator=(Keeper &&) = delete;

    /// False once the compositor is gone.
    [[nodiscard]] bool isRunning()
    {
        const std::lock_guard lock(m_mutex);
        return !m_hasEnded;
    }

    [[nodiscard]] Result<> show(Request request)
    {
        std::future<Result<>> answer;
        {
            const std::lock_guard lock(m_mutex);
            if (m_hasEnded) {
                return m_end;
            }
            m_request = std::move(request);
            m_answer = {};
            answer = m_answer.get_future();
        }
        wake();
        return answer.get(); // Every wait of the thread has its limit.
    }

  private:
    void run(const QString &display)
    {
        pthread_setname_np(pthread_self(), "wallpaper"); // Seen in top and debuggers.
        LayerShellBackgrounds backgrounds(display, QDeadlineTimer(m_limit));
        Result<> usable = backgrounds.usable();
        while (usable && !isStopping()) {
            answer(backgrounds);
            usable = backgrounds.follow(m_wake);
            drainWake();
        }
        if (!usable) {
            end(usable.failure());
        }
    }

    void answer(LayerShellBackgrounds &backgrounds)
    {
        std::optional<Request> request;
        {
            const std::lock_guard lock(m_mutex);
            request.swap(m_request);
        }
        if (request) {
            m_answer.set_value(
                backgrounds.show(request->picture, request->path, request->screens, QDeadlineTimer(m_limit)));
        }
    }

    void end(const Failure &failure)
    {
        const std::lock_guard lock(m_mutex);
        m_hasEnded = true;
        m_end = failure;
        if (std::exchange(m_request, std::nullopt)) {
            m_answer.set_value(failure);
        }
    }

    [[nodiscard]] bool isStopping()
    {
        const std::lock_guard lock(m_mutex);
        return m_isStopping;
    }

    void wake() const { ::eventfd_write(m_wake, 1); }
    void drainWake() const
    {
        eventfd_t count = 0;
        ::eventfd_read(m_wake, &count);
    }

    int m_wake;
    std::chrono::milliseconds m_limit;
    std::mutex m_mutex;
    std::optional<Request> m_request;
    std::promise<Result<>> m_answer;
    Failure m_end;
    bool m_isStopping = false;
    bool m_hasEnded = false;
    std::thread m_thread; ///< Last: it uses everything above.
};

DesktopPictureLayerShell::DesktopPictureLayerShell(QString display, QString reason, ProgramLife life,
                                                   std::chrono::milliseconds limit)
    : m_display(std::move(display))
    , m_reason(std::move(reason))
    , m_life(life)
    , m_limit(limit)
{
}

DesktopPictureLayerShell::~DesktopPictureLayerShell() = default;

QList<Screen> DesktopPictureLayerShell::screens()
{
    return waylandFacts(m_display, QDeadlineTimer(m_limit)).screens;
}

Result<> DesktopPictureLayerShell::setPicture(const QString &path, const QList<Screen> &screens)
{
    if (m_life == ProgramLife::OneCommand) {
        return Failure{Tr::tr("This desktop shows a background only while the program that drew it runs; "
                              "start Quorvane, then set the picture")};
    }
    // Decoding comes first, so that the compositor's time is not spent on it.
    const Result<PictureFile> file = readPicture(path);
    if (!file) {
        return file.failure();
    }
    if (!m_keeper || !m_keeper->isRunning()) {
        m_keeper.reset();
        m_keeper = std::make_unique<Keeper>(m_display, m_limit);
    }
    return m_keeper->show({file->image, path, screens});
}

void DesktopPictureLayerShell::remove()
{
    m_keeper.reset();
}

} // namespace quorvane
