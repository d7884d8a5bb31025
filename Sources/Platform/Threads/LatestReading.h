#pragma once

#include "Platform/Threads/PoolTask.h"

#include <QFutureWatcher>

#include <functional>
#include <memory>
#include <utility>

namespace quorvane {

/// Reads something from the disk on another thread, for an object that shows it: only what was asked for last arrives,
/// and never two readings run at once. Belongs to one thread, which has an event loop.
template <typename Result> class LatestReading
{
  public:
    using Read = std::function<Result()>;

    /// arrived is called on this thread.
    explicit LatestReading(std::function<void(Result)> arrived)
        : m_arrived(std::move(arrived))
    {
        QObject::connect(&m_watcher, &QFutureWatcherBase::finished, &m_watcher, [this] { end(); });
    }

    /// read owns what it uses: it may run on when this object is gone, and nothing arrives then.
    void ask(Read read)
    {
        m_next = std::move(read);
        if (!m_isUnderWay) {
            begin();
        }
    }

    /// Whether something is still to arrive.
    [[nodiscard]] bool isUnderWay() const { return m_isUnderWay; }

  private:
    void begin()
    {
        m_isUnderWay = true;
        m_result = std::make_shared<Result>();
        auto body = [result = m_result, read = std::exchange(m_next, {})] {
            *result = read();
            ThreadHandover::giving(result.get());
        };
        // Not QFuture::then(), which calls at once where the other thread was quick.
        m_watcher.setFuture(runOnPool(QThreadPool::globalInstance(), std::move(body)));
    }

    void end()
    {
        ThreadHandover::taking(m_result.get());
        if (m_next) {
            begin();
            return;
        }
        m_isUnderWay = false;
        m_arrived(std::move(*m_result));
    }

    std::function<void(Result)> m_arrived;
    Read m_next;
    bool m_isUnderWay = false;
    std::shared_ptr<Result> m_result; ///< Of the reading under way, which may outlive this object.
    QFutureWatcher<void> m_watcher;
};

} // namespace quorvane
