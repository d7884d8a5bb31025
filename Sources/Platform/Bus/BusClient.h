#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QString>
#include <QVariantList>

namespace quorvane {

/// A connection to a bus for one thread and one piece of work. Connecting knows no time limit, so it is used inside
/// withinLimit().
class BusClient
{
  public:
    explicit BusClient(const QString &address);
    ~BusClient();
    BusClient(const BusClient &) = delete;
    BusClient &operator=(const BusClient &) = delete;
    BusClient(BusClient &&) = delete;
    BusClient &operator=(BusClient &&) = delete;

    [[nodiscard]] QDBusConnection &bus() { return m_bus; }

    /// Whether somebody owns the name now.
    [[nodiscard]] bool isOwned(const QString &name, QDeadlineTimer deadline);

    struct Answer
    {
        QVariantList arguments;
        QString error; ///< The other side's own words; empty on success.
    };
    [[nodiscard]] Answer call(QDBusMessage question, const QVariantList &arguments, QDeadlineTimer deadline);

  private:
    QString m_name;
    QDBusConnection m_bus;
};

} // namespace quorvane
