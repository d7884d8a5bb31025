#pragma once

#include "Platform/Failure.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <memory>

namespace quorvane {

/// The process's connection to a message bus. All that name the same address share one, whichever threads they are on:
/// it is opened for the first and closed with the last. One that was lost stays so for those who have it, and who comes
/// later gets a new one.
///
/// Opening it knows no time limit, so where a bus may hang it is done inside withinLimit(). The calls that wait, all
/// together, wait until the deadline at most.
class MessageBus
{
  public:
    explicit MessageBus(const QString &address, QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever));

    /// The same connection with another deadline.
    [[nodiscard]] MessageBus until(QDeadlineTimer deadline) const;

    /// Where the session's bus listens: DBUS_SESSION_BUS_ADDRESS, or "bus" in the run-time folder. Empty where there is
    /// none; no bus is ever started.
    [[nodiscard]] static QString sessionAddress();

    /// The same of the machine's bus.
    [[nodiscard]] static QString systemAddress();

    [[nodiscard]] bool isConnected() const;

    /// For objects, for signals, and for calls that nobody waits for. Not for longer than this object or a copy is
    /// there.
    [[nodiscard]] QDBusConnection connection() const;

    /// Calls and waits for the answer, whose arguments it gives. Fails when the other side refused, is not there, or
    /// does not answer, in its own words where it said any. Nobody is started by being called.
    [[nodiscard]] Result<QVariantList> call(const QString &name, const QString &path, const QString &interface,
                                            const QString &method, const QVariantList &arguments = {}) const;

    /// The same for those who may be started by it.
    [[nodiscard]] Result<QVariantList> callOrStart(const QString &name, const QString &path, const QString &interface,
                                                   const QString &method, const QVariantList &arguments = {}) const;

    /// The names that somebody owns.
    [[nodiscard]] Result<QStringList> names() const;

    /// Whether somebody owns the name now; false also where the bus does not say.
    [[nodiscard]] bool isOwned(const QString &name) const;

    /// What every use of a bus that is not there ends with.
    [[nodiscard]] static Failure unreachable();

  private:
    struct Link;
    [[nodiscard]] static std::shared_ptr<const Link> linkTo(const QString &address);
    [[nodiscard]] Result<QVariantList> ask(const QDBusMessage &question) const;

    std::shared_ptr<const Link> m_link;
    QDeadlineTimer m_deadline;
};

} // namespace quorvane
