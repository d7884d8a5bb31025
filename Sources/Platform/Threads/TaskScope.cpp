#include "Platform/Threads/TaskScope.h"

#include <QEventLoop>

#include <utility>

// The idea: a coroutine that nobody awaits is a thread of control without an owner. When what it works on goes, it goes
// on, and the next time it is resumed it touches memory that is another's. So every such task has an owner, the scope,
// which counts it, can ask it to stop, and does not go before it has ended. "Started and forgotten" does not exist
// here.
//
// The end is an event loop: a task can only end when the loop resumes it, so drain() runs one instead of blocking, and
// everything else that the thread serves goes on meanwhile. State lies in a shared block, because a task may be the one
// that destroys the scope's owner.
//
// Not taken: cancelling by destroying the coroutine. Its frame may lie below one that is running, and a request that
// was paid for would be thrown away with its answer. And not taken: a guard (QPointer) in every task, which protects
// what the author thought of, and leaves a picture half kept when its owner went in between.

namespace quorvane {

struct TaskScope::State
{
    int running = 0;
    std::stop_source stop;
    QEventLoop *waiting = nullptr;
};

TaskScope::TaskScope()
    : m_state(std::make_shared<State>())
{
}

TaskScope::~TaskScope()
{
    drain();
}

void TaskScope::start(QCoro::Task<void> task)
{
    ++m_state->running;
    auto finish = [state = m_state] {
        --state->running;
        if (state->running == 0 && state->waiting != nullptr) {
            state->waiting->quit();
        }
    };
    auto failed = [](const std::exception &) { std::terminate(); };
    task.then(std::move(finish), std::move(failed));
}

int TaskScope::running() const
{
    return m_state->running;
}

std::stop_token TaskScope::stopToken() const
{
    return m_state->stop.get_token();
}

void TaskScope::wait()
{
    if (m_state->running == 0) {
        return;
    }
    QEventLoop loop;
    QEventLoop *outer = std::exchange(m_state->waiting, &loop);
    loop.exec();
    m_state->waiting = outer;
    // A wait inside a wait ends both: nothing runs any more.
    if (outer != nullptr) {
        outer->quit();
    }
}

void TaskScope::drain()
{
    m_state->stop.request_stop();
    wait();
}

} // namespace quorvane
