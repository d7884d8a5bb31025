#pragma once

#include "Platform/Failure.h"

#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QString>
#include <QStringList>
#include <QVariantList>

namespace quorvane {

/// A short connection of its own to the desktop's message bus, for one thread. All calls together wait until the
/// deadline at most. Nobody is started by being called: what does not run cannot show a picture.
class DesktopBus
{
  public:
    DesktopBus(const QString &address, QDeadlineTimer deadline);
    ~DesktopBus();
    DesktopBus(const DesktopBus &) = delete;
    DesktopBus &operator=(const DesktopBus &) = delete;
    DesktopBus(DesktopBus &&) = delete;
    DesktopBus &operator=(DesktopBus &&) = delete;

    /// The names that somebody owns.
    [[nodiscard]] Result<QStringList> names();

    /// Whether somebody owns one of the names, those of what draws the background of the desktop with that title.
    [[nodiscard]] Result<> findOneOf(const QStringList &painters, const QString &title);

    /// The arguments of the answer; fails when the other side refused, is not there, or does not answer, in its own
    /// words where it said any.
    [[nodiscard]] Result<QVariantList> call(const QString &name, const QString &path, const QString &interface,
                                            const QString &method, const QVariantList &arguments = {});

  private:
    QString m_connectionName;
    QDBusConnection m_connection;
    QDeadlineTimer m_deadline;
};

} // namespace quorvane
