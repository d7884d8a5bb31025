#pragma once

#include "Platform/Bus/BusClient.h"

#include <QObject>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace quorvane {

/// One request to a portal of the desktop: a call whose answer comes as a signal, after the user was asked if need be.
/// For one thread, which needs no event loop of its own.
class PortalRequest : public QObject
{
    Q_OBJECT

  public:
    explicit PortalRequest(BusClient &client);

    /// The option "handle_token" that the call must carry.
    [[nodiscard]] QString token() const { return m_token; }

    struct Outcome
    {
        /// 0 done, 1 the user said no, 2 it ended otherwise; nothing when there was no answer.
        std::optional<uint> response;
        QString error; ///< What failed instead, in the other side's own words.
    };
    /// Calls and waits. An answer that takes longer than limit means that the user is being asked: then this calls
    /// asking and waits on, until there is an answer, the portal goes away, stop is requested, or nobody can still be
    /// there.
    [[nodiscard]] Outcome ask(const QDBusMessage &question, const QVariantList &arguments,
                              std::chrono::milliseconds limit, const std::function<void()> &asking,
                              const std::stop_token &stop);

  private Q_SLOTS:
    void answered(uint response, const QVariantMap &results);

  Q_SIGNALS:
    void ended();
    void stopped(); ///< From any thread.

  private:
    BusClient &m_client;
    QString m_token;
    QString m_path;
    Outcome m_outcome;
};

} // namespace quorvane
