#include "KeyringSession.h"
#include "Support/WaitFor.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

// Storages that no daemon at hand can play: one that stops answering in the middle, and Plasma's wallet.
namespace quorvane {

namespace {

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

class WalletPeer : public KeyringPeer
{
  protected:
    void SetUp() override
    {
        m_session.environment().insert(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
        m_session.environment().insert(u"KDE_SESSION_VERSION"_s, u"5"_s);
        KeyringPeer::SetUp();
        if (!IsSkipped()) {
            m_wallet = std::make_unique<Peer>(
                m_session.connection(), u"org.kde.kwalletd5"_s, u"/modules/kwalletd5"_s,
                [this](const QString &method, const QVariantList &arguments) { return answer(method, arguments); });
            ASSERT_TRUE(m_wallet->isThere());
        }
    }

    [[nodiscard]] std::optional<QVariantList> answer(const QString &method, const QVariantList &arguments)
    {
        const auto is = [&method](const char *name) { return method == QLatin1String(name); };
        if (is("networkWallet")) {
            return QVariantList{u"kdewallet"_s};
        }
        if (is("isOpen")) {
            return QVariantList{m_isOpen};
        }
        if (is("keyDoesNotExist")) {
            return QVariantList{arguments.value(1) != u"app.quorvane.Quorvane"_s ||
                                arguments.value(2) != u"grok-api-key"_s || !m_hasKey};
        }
        if (is("open")) {
            return QVariantList{1};
        }
        if (is("entryType")) {
            return QVariantList{m_hasKey ? 1 : 0};
        }
        if (is("readPassword")) {
            return QVariantList{u"ké 2"_s};
        }
        if (is("removeEntry")) {
            m_hasKey = false;
            return QVariantList{0};
        }
        return QVariantList{};
    }

    bool m_isOpen = true;
    bool m_hasKey = true;
    std::unique_ptr<Peer> m_wallet;
};

} // namespace

TEST_F(KeyringPeer, aStorageThatFallsSilentInTheMiddleDelaysALittleAndMayAnswerLater)
{
    Peer service(m_session.connection(), u"org.freedesktop.secrets"_s, u"/org/freedesktop/secrets"_s,
                 [](const QString &method, const QVariantList &) -> std::optional<QVariantList> {
                     if (method != u"SearchItems"_s) {
                         return std::nullopt;
                     }
                     const QList readable{QDBusObjectPath(u"/org/freedesktop/secrets/collection/login/1"_s)};
                     return QVariantList{QVariant::fromValue(readable), QVariant::fromValue(QList<QDBusObjectPath>())};
                 });
    ASSERT_TRUE(service.isThere());
    const auto milliseconds = m_session.beginMigration();
    ASSERT_TRUE(milliseconds);
    EXPECT_LT(*milliseconds, 5000);
    EXPECT_TRUE(m_session.keyFile().isNull());
    ASSERT_GT(service.calls.size(), 1) << "QtKeychain did not come as far as asking";

    service.refuseAll();
    EXPECT_TRUE(m_session.endMigration());
    EXPECT_TRUE(m_session.keyFile().isNull());
}

TEST_F(WalletPeer, aKeyInAnOpenWalletMoves)
{
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"grok\":\"ké 2\"}");
    EXPECT_FALSE(m_hasKey);
}

TEST_F(WalletPeer, aClosedWalletIsNeverOpened)
{
    m_isOpen = false;
    ASSERT_TRUE(m_session.migrate());
    EXPECT_TRUE(m_session.keyFile().isNull());
    EXPECT_FALSE(m_wallet->calls.contains(u"open"_s));
    EXPECT_TRUE(m_hasKey);
}

TEST_F(WalletPeer, aWalletWithoutOurKeysIsNeverOpened)
{
    m_hasKey = false;
    const auto milliseconds = m_session.quickestMigration();
    ASSERT_TRUE(milliseconds);
    EXPECT_LT(*milliseconds, 200);
    EXPECT_TRUE(m_session.keyFile().isNull());
    EXPECT_FALSE(m_wallet->calls.contains(u"open"_s));
}

} // namespace quorvane
