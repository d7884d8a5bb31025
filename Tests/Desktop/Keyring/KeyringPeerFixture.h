#pragma once

#include "KeyringSession.h"

#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <functional>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A peer on the bus that answers method calls as it is told, and writes down which ones came.
class Peer : public QDBusVirtualObject
{
  public:
    /// The arguments of the reply; nothing to keep the caller waiting.
    using Answer = std::function<std::optional<QVariantList>(const QString &method, const QVariantList &arguments)>;

    Peer(QDBusConnection connection, const QString &name, const QString &path, Answer answer)
        : m_connection(std::move(connection))
        , m_answer(std::move(answer))
    {
        m_isThere = m_connection.registerVirtualObject(path, this, QDBusConnection::SubPath) &&
                    m_connection.registerService(name);
    }

    [[nodiscard]] bool isThere() const { return m_isThere; }
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        calls.append(message.member());
        if (const auto reply = m_answer(message.member(), message.arguments())) {
            connection.send(message.createReply(*reply));
        } else {
            m_waiting.append(message);
        }
        return true;
    }

    /// Tells everybody who waits that it went wrong.
    void refuseAll()
    {
        for (const QDBusMessage &message : std::as_const(m_waiting)) {
            m_connection.send(message.createErrorReply(QDBusError::Failed, u"too late"_s));
        }
        m_waiting.clear();
    }

    QStringList calls;

  private:
    QDBusConnection m_connection;
    Answer m_answer;
    QList<QDBusMessage> m_waiting;
    bool m_isThere = false;
};

class KeyringPeer : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (const QString reason = whyNoBus(); !reason.isEmpty()) {
            GTEST_SKIP() << qPrintable(reason);
        }
        ASSERT_TRUE(m_session.startBus());
    }

    KeyringSession m_session;
};

} // namespace quorvane
