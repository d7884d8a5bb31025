#include "Platform/Secrets/SecretStore.h"
#include "Storage/Keychain.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A storage in memory that writes down what it is asked. The real one has its own tests against a real daemon.
class StoreInMemory final : public SecretStore
{
  public:
    std::optional<QByteArray> read(const QString &service, const QString &account) override
    {
        log.append(u"read "_s + account);
        EXPECT_EQ(service, u"app.quorvane.Quorvane"_s);
        const auto item = items.find(account);
        return item == items.end() ? std::nullopt : std::optional(item->second);
    }
    void remove(const QString &service, const QString &account) override
    {
        log.append(u"remove "_s + account);
        EXPECT_EQ(service, u"app.quorvane.Quorvane"_s);
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
    [[nodiscard]] QString file() const { return m_home.path() + u"/Library/Application Support/Quorvane/keys.json"_s; }

    PrivateHome m_home;
    StoreInMemory m_store;
    const QString m_geminiAccount = u"gemini-api-key"_s;
    const QString m_grokAccount = u"grok-api-key"_s;
    const QString m_openaiAccount = u"openai-api-key"_s;
};

} // namespace

TEST_F(LegacyKeysTest, nothingIsWrittenWhereNothingIsFound)
{
    Keychain::migrateLegacyKey(m_store);
    EXPECT_FALSE(QFileInfo::exists(file()));
    EXPECT_EQ(m_store.log, (QStringList{u"read gemini-api-key"_s, u"read gemini-api-key"_s, u"read grok-api-key"_s,
                                        u"read openai-api-key"_s}));
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
    EXPECT_EQ(m_store.log, (QStringList{u"read gemini-api-key"_s, u"remove gemini-api-key"_s, u"read gemini-api-key"_s,
                                        u"read grok-api-key"_s, u"read openai-api-key"_s}));
}

TEST_F(LegacyKeysTest, aKeyInTheFileWinsAndTheItemIsStillDeleted)
{
    EXPECT_TRUE(Keychain::save(u"typed in"_s, u"gemini"_s));
    EXPECT_TRUE(Keychain::save(QString(), u"grok"_s));
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
    EXPECT_EQ(Keychain::load(u"gemini"_s), QChar(0xfeff) + u"k1\n"_s);
    EXPECT_EQ(Keychain::load(u"grok"_s), u"a"_s + QChar(u'\0') + 'b'_L1);
}

TEST_F(LegacyKeysTest, anItemThatCannotBeDeletedDoesNoHarm)
{
    m_store.items = {{m_geminiAccount, "k1"}};
    m_store.removable = false;
    Keychain::migrateLegacyKey(m_store);
    EXPECT_TRUE(Keychain::save(u"newer"_s, u"gemini"_s));
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(contentOf(file()), "{\"gemini\":\"newer\"}");
}

TEST_F(LegacyKeysTest, anItemIsKeptWhenTheFileCannotBeWritten)
{
    ASSERT_TRUE(putFile(m_home.path() + u"/Library"_s));
    m_store.items = {{m_geminiAccount, "k1"}};
    Keychain::migrateLegacyKey(m_store);
    EXPECT_EQ(m_store.items.size(), 1U);
}

} // namespace quorvane
