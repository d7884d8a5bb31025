#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <unistd.h>

namespace quorvane {

/// Temporary folders that are made while the object lives lie in memory where that is possible: for tests of who writes
/// after whom, because on a disk that many use, waiting for it alone takes longer than anybody waits for a lock.
class InMemory
{
  public:
    InMemory()
        : m_before(qgetenv("TMPDIR"))
    {
        if (m_before.isNull() && ::access("/dev/shm", W_OK) == 0) {
            qputenv("TMPDIR", "/dev/shm");
        }
    }
    ~InMemory() { m_before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_before); }
    InMemory(const InMemory &) = delete;
    InMemory &operator=(const InMemory &) = delete;
    InMemory(InMemory &&) = delete;
    InMemory &operator=(InMemory &&) = delete;

  private:
    QByteArray m_before;
};

} // namespace quorvane
