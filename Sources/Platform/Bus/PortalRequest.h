#pragma once

#include "Platform/Bus/MessageBus.h"

#include <QObject>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace quorvane {

/// One request to a portal of the desktop: a call whose answer comes as a signal, after the user was asked if need be.
/// For one thread; waiting runs an event loop, and needs none around it.
class PortalRequest : public QObject
{
    Q_OBJECT

  public:
    explicit PortalRequest(MessageBus bus);

    /// The option "handle_token" that the call must carry.
    [[nodiscard]] QString token() const { return m_token; }

    struct Answer
    {
        enum class Response : uint { Done = 0, RefusedByUser = 1 }; ///< Anything else is another end.

        Response response;
        QVariantMap results;
    };
    /// How long to wait. An answer that takes longer than patience means that the user is being asked: then asking is
    /// called, and the wait goes on until there is an answer, the portal goes away, stop is requested, or nobody can
    /// still be there.
    struct Wait
    {
        std::chrono::milliseconds patience;
        std::function<void()> asking;
        std::stop_token stop;
    };
    [[nodiscard]] Result<Answer> ask(const QString &interface, const QString &method, const QVariantList &arguments,
                                     const Wait &wait);

  private Q_SLOTS:
    void answered(uint response, const QVariantMap &results);

  Q_SIGNALS:
    void ended();
    void stopped(); ///< From any thread.

  private:
    void end(const Result<Answer> &outcome);

    MessageBus m_bus;
    QString m_token;
    QString m_path;
    std::optional<Result<Answer>> m_outcome;
};

/// Whether the session has a portal with the interface; starts the portal where it does not run.
[[nodiscard]] bool hasPortal(const MessageBus &bus, const QString &interface);

} // namespace quorvane
