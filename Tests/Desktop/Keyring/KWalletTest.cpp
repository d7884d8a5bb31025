#include "KeyringSession.h"
#include "Support/Desktop/OwnedProgram.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The old keys in Plasma's real wallet: by its own interface, as on Plasma, and by the Secret Service that the same
// daemon offers to everybody else. The wallet is opened as the login does it, by the hash of a password.
namespace quorvane {

namespace {

const QString kDaemon = u"org.kde.kwalletd5"_s;
const QString kWallet = u"kdewallet"_s;

class KWallet : public testing::Test
{
  protected:
    void SetUp() override
    {
        for (const QString &missing : {firstMissing({u"kwalletd5"_s, u"secret-tool"_s}), whyNoBus()}) {
            if (!missing.isEmpty()) {
                GTEST_SKIP() << qPrintable(missing) << " is not installed";
            }
        }
        // Nobody is there to answer its questions.
        ASSERT_TRUE(putFile(m_session.home().path() + u"/.config/kwalletrc"_s,
                            "[Wallet]\nEnabled=true\nFirst Use=false\nPrompt on Open=false\nLeave Open=true\n"
                            "Default Wallet=kdewallet\n[org.freedesktop.secrets]\napiEnabled=true\n"));
        m_session.environment().insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        ASSERT_TRUE(m_session.startBus());
        // The first start makes the wallet; what exists when the daemon starts is the Secret Service's default.
        ASSERT_TRUE(startDaemon() && openWallet());
        stopDaemon();
        ASSERT_TRUE(startDaemon() && openWallet());
    }

    /// Plasma's own session, where QtKeychain and the program go to the wallet.
    void becomePlasma()
    {
        m_session.environment().insert(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
        m_session.environment().insert(u"KDE_SESSION_VERSION"_s, u"5"_s);
    }

    [[nodiscard]] bool startDaemon()
    {
        m_daemon = std::make_unique<OwnedProgram>(u"kwalletd5"_s, QStringList(), m_session.environment(),
                                                  m_session.home().path());
        return waitFor([this] { return isOnBus(kDaemon) && isOnBus(u"org.freedesktop.secrets"_s); });
    }

    void stopDaemon()
    {
        m_daemon.reset();
        EXPECT_TRUE(waitFor([this] { return !isOnBus(kDaemon); }));
    }

    [[nodiscard]] bool isOnBus(const QString &name) const
    {
        return m_session.connection().interface()->isServiceRegistered(name).value();
    }

    [[nodiscard]] QVariant ask(const QString &method, const QVariantList &arguments) const
    {
        QDBusMessage question =
            QDBusMessage::createMethodCall(kDaemon, u"/modules/kwalletd5"_s, u"org.kde.KWallet"_s, method);
        question.setArguments(arguments);
        return m_session.connection().call(question).arguments().value(0);
    }

    [[nodiscard]] bool openWallet() const
    {
        constexpr int kHashBytes = 56;
        (void)ask(u"pamOpen"_s, {kWallet, QByteArray(kHashBytes, 'h'), 0});
        return isOpen();
    }
    void closeWallet() const
    {
        (void)ask(u"close"_s, {kWallet, true});
        EXPECT_FALSE(isOpen());
    }
    [[nodiscard]] bool isOpen() const { return ask(u"isOpen"_s, {kWallet}).toBool(); }

    /// Whether the wallet has the key under the names that QtKeychain gives.
    [[nodiscard]] bool isInWallet(const QString &account) const
    {
        return !ask(u"keyDoesNotExist"_s, {kWallet, u"app.quorvane.Quorvane"_s, account}).toBool();
    }

    KeyringSession m_session;
    const QString m_gemini = u"gemini-api-key"_s;
    const QString m_grok = u"grok-api-key"_s;
    std::unique_ptr<OwnedProgram> m_daemon;
};

} // namespace

TEST_F(KWallet, itemsOfItsSecretServiceMoveIntoTheKeyFile)
{
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "ké 1"));
    ASSERT_TRUE(m_session.storeSecret(m_grok, "k2"));
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"gemini\":\"ké 1\",\"grok\":\"k2\"}");
    EXPECT_EQ(m_session.secret(m_gemini), std::nullopt);
    EXPECT_EQ(m_session.secret(m_grok), std::nullopt);
}

TEST_F(KWallet, entriesOfTheOpenWalletMoveOnPlasma)
{
    becomePlasma();
    ASSERT_TRUE(m_session.runHelper({u"write"_s, m_gemini, u"text"_s, u"ké 1"_s}));
    ASSERT_TRUE(m_session.runHelper({u"write"_s, m_grok, u"binary"_s, u"ké 2"_s}));
    // An open wallet tells of what was written into it only after the next login.
    closeWallet();
    ASSERT_TRUE(openWallet());
    ASSERT_TRUE(isInWallet(m_gemini) && isInWallet(m_grok));
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"gemini\":\"ké 1\",\"grok\":\"ké 2\"}");
    EXPECT_FALSE(isInWallet(m_gemini) || isInWallet(m_grok));
}

TEST_F(KWallet, aClosedWalletStaysClosedAndItsEntriesMoveAfterTheNextLogin)
{
    becomePlasma();
    ASSERT_TRUE(m_session.runHelper({u"write"_s, m_gemini, u"text"_s, u"k1"_s}));
    closeWallet();
    ASSERT_TRUE(m_session.migrate());
    EXPECT_TRUE(m_session.keyFile().isNull());
    EXPECT_FALSE(isOpen());

    ASSERT_TRUE(openWallet());
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"gemini\":\"k1\"}");
    EXPECT_FALSE(isInWallet(m_gemini));
}

TEST_F(KWallet, anotherSessionLeavesALockedSecretServiceAlone)
{
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "k1"));
    closeWallet();
    ASSERT_TRUE(m_session.migrate());
    EXPECT_TRUE(m_session.keyFile().isNull());
    EXPECT_FALSE(isOpen());
    ASSERT_TRUE(openWallet());
    EXPECT_EQ(m_session.secret(m_gemini), "k1");
}

} // namespace quorvane
