#include "Platform/Secrets/SecretStore.h"
#include "Storage/Keychain.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <map>

namespace quorvane {

namespace {

/// A storage in memory that writes down what it is asked. The real one has its own tests against a real daemon.
class StoreInMemory final : public SecretStore
{
  public:
    std::optional<QByteArray> read(const QString &service, const QString &account) override
    {
        log.append(QStringLiteral("read ") + account);
        EXPECT_EQ(service, QStringLiteral("app.quorvane.Quorvane"));
        const auto item = items.find(account);
        return item == items.end() ? std::nullopt : std::optional(item->second);
    }
    void remove(const QString &service, const QString &account) override
    {
        log.append(QStringLiteral("remove ") + account);
        EXPECT_EQ(service, QStringLiteral("app.quorvane.Quorvane"));
        if (removable) {
            items.erase(account);
        }
    }

    std::map<QString, QByteArray> items;
    QStringList log;
    bool removable = true;
};

class LegacyKeysTest : public testing::Test
{
  protected:
    [[nodiscard]] QString file() const
    {
        return m_home.path() + QStringLiteral("/Library/Application Support/Quorvane/keys.json");
    }

    PrivateHome m_home;
    StoreInMemory m_store;
    const QString m_geminiAccount = QStringLiteral("gemini-api-key");
    const QString m_grokAccount = QStringLiteral("grok-api-key");
    const QString m_openaiAccount = QStringLiteral("openai-api-key");
};

} // namespace

TEST_F(LegacyKeysTest, nothingIsWrittenWhereNothingIsFound)
{
    Keychain::migrateLegacyKey(m_store);
    EXPECT_FALSE(QFileInfo::exists(file()));
    EXPECT_EQ(m_store.log, (QStringList{QStringLiteral("read gemini-api-key"), QStringLiteral("read gemini-api-key"),
                                        QStringLiteral("read grok-api-key"), QStringLiteral("read openai-api-key")}));
}

TEST_F(LegacyKeysTest, everyKeyMovesIntoTheFile)
{
    m_store.items = {{m_geminiAccount, "k1"}, {m_grokAccount, "ké2"}, {m_openaiAccount, ""}};
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(contentOf(file()), "{\"gemini\":\"k1\",\"grok\":\"ké2\",\"openai\":\"\"}");
    EXPECT_TRUE(m_store.items.empty());
}

TEST_F(LegacyKeysTest, theOldestKeyIsGoneBeforeTheOthersAreLookedAt)
{
    m_store.items = {{m_geminiAccount, "k1"}};
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(m_store.log, (QStringList{QStringLiteral("read gemini-api-key"), QStringLiteral("remove gemini-api-key"),
                                        QStringLiteral("read gemini-api-key"), QStringLiteral("read grok-api-key"),
                                        QStringLiteral("read openai-api-key")}));
}

TEST_F(LegacyKeysTest, aKeyInTheFileWinsAndTheItemIsStillDeleted)
{
    Keychain::save(QStringLiteral("typed in"), QStringLiteral("gemini"));
    Keychain::save(QString(), QStringLiteral("grok"));
    m_store.items = {{m_geminiAccount, "k1"}, {m_grokAccount, "k2"}};
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(contentOf(file()), "{\"gemini\":\"typed in\",\"grok\":\"\"}");
    EXPECT_TRUE(m_store.items.empty());
}

TEST_F(LegacyKeysTest, anItemThatIsNoTextStaysWhereItIs)
{
    const std::map<QString, QByteArray> items{
        {m_geminiAccount, "\xff\xfe"}, {m_grokAccount, "good"}, {m_openaiAccount, "half \xc3"}};
    m_store.items = items;
    for (int launch = 0; launch < 2; ++launch) {
        Keychain::migrateLegacyKey(m_store);
        EXPECT_EQ(contentOf(file()), "{\"grok\":\"good\"}");
        EXPECT_EQ(m_store.items,
                  (std::map<QString, QByteArray>{{m_geminiAccount, "\xff\xfe"}, {m_openaiAccount, "half \xc3"}}));
    }
}

TEST_F(LegacyKeysTest, textIsKeptToTheLastByte)
{
    m_store.items = {{m_geminiAccount, "\xef\xbb\xbfk1\n"}, {m_grokAccount, QByteArray("a\0b", 3)}};
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(Keychain::load(QStringLiteral("gemini")), QChar(0xfeff) + QStringLiteral("k1\n"));
    EXPECT_EQ(Keychain::load(QStringLiteral("grok")), QStringLiteral("a") + QChar(u'\0') + QLatin1Char('b'));
}

TEST_F(LegacyKeysTest, anItemThatCannotBeDeletedDoesNoHarm)
{
    m_store.items = {{m_geminiAccount, "k1"}};
    m_store.removable = false;
    Keychain::migrateLegacyKey(m_store);
    Keychain::save(QStringLiteral("newer"), QStringLiteral("gemini"));
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(contentOf(file()), "{\"gemini\":\"newer\"}");
}

TEST_F(LegacyKeysTest, anItemIsKeptWhenTheFileCannotBeWritten)
{
    ASSERT_TRUE(putFile(m_home.path() + QStringLiteral("/Library")));
    m_store.items = {{m_geminiAccount, "k1"}};
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(m_store.items.size(), 1U);
}

} // namespace quorvane
