#pragma once

#include "Platform/Failure.h"

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

#include <memory>

namespace quorvane {

/// One instance where there is no session bus: a lock and a socket in the run-time folder.
class InstanceLock : public QObject
{
    Q_OBJECT

  public:
    explicit InstanceLock(QObject *parent = nullptr);

    /// Whether this process is the application from now on.
    [[nodiscard]] bool take();

    /// Asks the application that holds the lock to show its window. Fails, in the system's words, when it does not
    /// listen.
    [[nodiscard]] static Result<> activateOther();

  Q_SIGNALS:
    void activated(const QString &token);

  private:
    void receive();

    QLockFile m_lock;
    QLocalServer m_server;
};

} // namespace quorvane
