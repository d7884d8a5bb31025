#pragma once

#include <QString>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace quorvane {

using namespace Qt::StringLiterals;

constexpr int kWriters = 3;
constexpr int kWritesEach = 20;

inline QString nameOf(int writer, int number)
{
    return u"%1-%2.png"_s.arg(writer).arg(number);
}

/// Runs work in a process of its own; the process id.
template <typename Work> pid_t inProcess(Work work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    return child;
}

[[nodiscard]] inline bool endedWell(pid_t child)
{
    int status = -1;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace quorvane
