#include "Platform/Threads/TaskScope.h"

#include <QEventLoop>

#include <utility>

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
