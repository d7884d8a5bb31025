#include "UI/Play/FrameWatch.h"

#include <QAbstractEventDispatcher>
#include <QEvent>
#include <QMetaEnum>
#include <QThread>

#include <ctime>

using namespace Qt::StringLiterals;

namespace quorvane {

FrameWatch::FrameWatch(int &argc, char **argv)
    : QGuiApplication(argc, argv)
{
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, &FrameWatch::beginTurn);
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &FrameWatch::beginTurn);
}

std::chrono::microseconds FrameWatch::processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::seconds(now.tv_sec) +
                                                                 std::chrono::nanoseconds(now.tv_nsec));
}

void FrameWatch::beginTurn()
{
    m_turn = {};
    m_heaviest = {};
}

FrameWatch::Longest FrameWatch::takeLongest()
{
    return std::exchange(static_cast<FrameWatch *>(instance())->m_longest, {});
}

bool FrameWatch::notify(QObject *receiver, QEvent *event)
{
    if (m_depth > 0 || thread() != QThread::currentThread()) {
        return QGuiApplication::notify(receiver, event);
    }
    // Both may be gone afterwards.
    const char *name = receiver->metaObject()->className();
    const int type = event->type();
    const std::chrono::microseconds before = processorTime();
    ++m_depth;
    const bool isHandled = QGuiApplication::notify(receiver, event);
    --m_depth;
    const std::chrono::microseconds taken = processorTime() - before;
    m_turn += taken;
    if (taken > m_heaviest.time) {
        const char *key = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
        m_heaviest = {taken, u"%1 of %2"_s.arg(QLatin1String(key), QLatin1String(name))};
    }
    if (m_turn > m_longest.time) {
        m_longest = {m_turn, m_heaviest.what};
    }
    return isHandled;
}

} // namespace quorvane
