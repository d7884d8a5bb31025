#include "KeyringSession.h"
#include "Support/Files.h"
#include "Support/OwnedProgram.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <gtest/gtest.h>

// The old keys in Plasma's real wallet: by its own interface, as on Plasma, and by the Secret Service that the same
// daemon offers to everybody else. The wallet is opened as the login does it, by the hash of a password.
namespace quorvane {

namespace {

const QString kDaemon = QStringLiteral("org.kde.kwalletd5");
const QString kWallet = QStringLiteral("kdewallet");

class KWallet : public testing::Test
{
  protected:
    void SetUp() override
    {
        for (const QString &missing :
             {firstMissing({QStringLiteral("kwalletd5"), QStringLiteral("secret-tool")}), whyNoBus()}) {
            if (!missing.isEmpty()) {
                GTEST_SKIP() << qPrintable(missing) << " is not installed";
            }
        }
        // Nobody is there to answer its questions.
        ASSERT_TRUE(putFile(m_session.home().path() + QStringLiteral("/.config/kwalletrc"),
                            "[Wallet]\nEnabled=true\nFirst Use=false\nPrompt on Open=false\nLeave Open=true\n"
                            "Default Wallet=kdewallet\n[org.freedesktop.secrets]\napiEnabled=true\n"));
        m_session.environment().insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        ASSERT_TRUE(m_session.startBus());
        // The first start makes the wallet; what exists when the daemon starts is the Secret Service's default.
        ASSERT_TRUE(startDaemon() && openWallet());
        stopDaemon();
        ASSERT_TRUE(startDaemon() && openWallet());
    }

    /// Plasma's own session, where QtKeychain and the program go to the wallet.
    void becomePlasma()
    {
        m_session.environment().insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("KDE"));
        m_session.environment().insert(QStringLiteral("KDE_SESSION_VERSION"), QStringLiteral("5"));
    }

    [[nodiscard]] bool startDaemon()
    {
        m_daemon = std::make_unique<OwnedProgram>(QStringLiteral("kwalletd5"), QStringList(), m_session.environment(),
                                                  m_session.home().path());
        return waitFor([this] { return isOnBus(kDaemon) && isOnBus(QStringLiteral("org.freedesktop.secrets")); });
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
        QDBusMessage question = QDBusMessage::createMethodCall(kDaemon, QStringLiteral("/modules/kwalletd5"),
                                                               QStringLiteral("org.kde.KWallet"), method);
        question.setArguments(arguments);
        return m_session.connection().call(question).arguments().value(0);
    }

    [[nodiscard]] bool openWallet() const
    {
        constexpr int kHashBytes = 56;
        (void)ask(QStringLiteral("pamOpen"), {kWallet, QByteArray(kHashBytes, 'h'), 0});
        return isOpen();
    }
    void closeWallet() const
    {
        (void)ask(QStringLiteral("close"), {kWallet, true});
        EXPECT_FALSE(isOpen());
    }
    [[nodiscard]] bool isOpen() const { return ask(QStringLiteral("isOpen"), {kWallet}).toBool(); }

    /// Whether the wallet has the key under the names that QtKeychain gives.
    [[nodiscard]] bool isInWallet(const QString &account) const
    {
        return !ask(QStringLiteral("keyDoesNotExist"), {kWallet, QStringLiteral("app.quorvane.Quorvane"), account})
                    .toBool();
    }

    KeyringSession m_session;
    const QString m_gemini = QStringLiteral("gemini-api-key");
    const QString m_grok = QStringLiteral("grok-api-key");
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
    ASSERT_TRUE(
        m_session.runHelper({QStringLiteral("write"), m_gemini, QStringLiteral("text"), QStringLiteral("ké 1")}));
    ASSERT_TRUE(
        m_session.runHelper({QStringLiteral("write"), m_grok, QStringLiteral("binary"), QStringLiteral("ké 2")}));
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
    ASSERT_TRUE(m_session.runHelper({QStringLiteral("write"), m_gemini, QStringLiteral("text"), QStringLiteral("k1")}));
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
