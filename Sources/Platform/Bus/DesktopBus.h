#pragma once

#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <optional>

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

    /// The names that somebody owns; empty without a bus.
    [[nodiscard]] QStringList names();

    /// Nothing when somebody owns one of the names, those of what draws the background of the desktop with that title;
    /// why not otherwise.
    [[nodiscard]] std::optional<QString> failureToFind(const QStringList &painters, const QString &title);

    /// The arguments of the answer; nothing when the other side refused, is not there, or does not answer.
    [[nodiscard]] std::optional<QVariantList> call(const QString &name, const QString &path, const QString &interface,
                                                   const QString &method, const QVariantList &arguments = {});

    /// Why the last call gave nothing, in the words of the other side where it said any.
    [[nodiscard]] QString error() const { return m_error; }

  private:
    QString m_connectionName;
    QDBusConnection m_connection;
    QDeadlineTimer m_deadline;
    QString m_error;
};

} // namespace quorvane
