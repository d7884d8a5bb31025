#include "KeyringPeerFixture.h"

using namespace Qt::StringLiterals;

// Storages that no daemon at hand can play: one that stops answering in the middle, and Plasma's wallet.

namespace quorvane {

namespace {

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
