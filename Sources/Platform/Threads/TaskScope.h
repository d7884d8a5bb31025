#pragma once

#include <QCoroTask>

#include <memory>
#include <stop_token>

namespace quorvane {

/// Holds the tasks that nobody awaits. Whoever owns a scope drains it before it goes, so that no task ever outlives
/// what it works on. Belongs to one thread, which has an event loop.
class TaskScope
{
  public:
    TaskScope();
    ~TaskScope(); ///< Drains.
    TaskScope(const TaskScope &) = delete;
    TaskScope &operator=(const TaskScope &) = delete;
    TaskScope(TaskScope &&) = delete;
    TaskScope &operator=(TaskScope &&) = delete;

    /// Keeps the task until it ends. What it throws beyond its own handling is a mistake of ours and ends the program.
    void start(QCoro::Task<void> task);

    /// How many tasks have not ended yet.
    [[nodiscard]] int running() const;

    /// Asked to stop once drain() begins; long work looks at it.
    [[nodiscard]] std::stop_token stopToken() const;

    /// Runs the event loop until every task has ended.
    void wait();

    /// Asks every task to stop, then waits.
    void drain();

  private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace quorvane
