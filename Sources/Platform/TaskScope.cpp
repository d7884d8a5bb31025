#include "Platform/TaskScope.h"

#include <QEventLoop>

namespace quorvane {

struct TaskScope::State
{
    int running = 0;
    std::stop_source stop;
    QEventLoop *draining = nullptr;
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
        if (state->running == 0 && state->draining != nullptr) {
            state->draining->quit();
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

void TaskScope::drain()
{
    m_state->stop.request_stop();
    if (m_state->running == 0) {
        return;
    }
    QEventLoop loop;
    m_state->draining = &loop;
    loop.exec();
    m_state->draining = nullptr;
}

} // namespace quorvane
