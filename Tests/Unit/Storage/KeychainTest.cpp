#include "Storage/Keychain.h"
#include "Support/FileMode.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

class KeychainTest : public testing::Test
{
  protected:
    [[nodiscard]] QString folder() const { return m_home.path() + u"/Library/Application Support/Quorvane"_s; }
    [[nodiscard]] QString file() const { return folder() + u"/keys.json"_s; }
    [[nodiscard]] QByteArray content() const { return contentOf(file()); }

    PrivateHome m_home;
    const QString m_gemini = u"gemini"_s;
    const QString m_grok = u"grok"_s;
    const QString m_openai = u"openai"_s;
};

} // namespace

TEST_F(KeychainTest, withoutAFileThereIsNoKeyAndReadingMakesOnlyTheFolder)
{
    for (const QString &id : {m_gemini, m_grok, m_openai}) {
        EXPECT_EQ(Keychain::load(id), std::nullopt);
    }
    EXPECT_TRUE(Keychain::readAll().empty());
    EXPECT_TRUE(QFileInfo(folder()).isDir());
    EXPECT_FALSE(QFileInfo::exists(file()));
}

TEST_F(KeychainTest, theFirstKeyMakesAFileWithThatEntryOnly)
{
    EXPECT_TRUE(Keychain::save(u"k1"_s, m_grok));
    EXPECT_EQ(content(), "{\"grok\":\"k1\"}");
}

TEST_F(KeychainTest, keysAreSortedReplacedAndKeptExactlyAsGiven)
{
    EXPECT_TRUE(Keychain::save(u"k1"_s, m_openai));
    EXPECT_TRUE(Keychain::save(u"old"_s, m_gemini));
    EXPECT_TRUE(Keychain::save(u"  \"ké\n "_s, m_gemini));
    EXPECT_EQ(content(), "{\"gemini\":\"  \\\"ké\\n \",\"openai\":\"k1\"}");
    EXPECT_EQ(Keychain::load(m_gemini), u"  \"ké\n "_s);
}

TEST_F(KeychainTest, anEmptyTextIsAStoredKey)
{
    EXPECT_TRUE(Keychain::save(QString(), m_gemini));
    ASSERT_TRUE(Keychain::load(m_gemini).has_value());
    EXPECT_EQ(Keychain::load(m_gemini), QString());
    EXPECT_EQ(content(), "{\"gemini\":\"\"}");
}

TEST_F(KeychainTest, removingTheLastKeyLeavesAnEmptyObject)
{
    EXPECT_TRUE(Keychain::save(u"k1"_s, m_gemini));
    EXPECT_TRUE(Keychain::remove(m_gemini));
    EXPECT_EQ(Keychain::load(m_gemini), std::nullopt);
    EXPECT_EQ(content(), "{}");
}

TEST_F(KeychainTest, removingWhatIsNotStoredRewritesTheFileAndItsPermissions)
{
    ASSERT_TRUE(putFile(file(), "{ \"openai\": \"k2\", \"grok\": \"k1\" }\n"));
    ASSERT_EQ(::chmod(QFile::encodeName(file()).constData(), 0644), 0);
    EXPECT_TRUE(Keychain::remove(m_gemini));
    EXPECT_EQ(content(), "{\"grok\":\"k1\",\"openai\":\"k2\"}");
    EXPECT_EQ(modeOf(file()), 0600U);
}

TEST_F(KeychainTest, oneWrongValueMakesTheWholeFileEmpty)
{
    for (const char *wrong : {"{\"gemini\":5}", "{\"gemini\":\"k\",\"grok\":null}", "[\"gemini\"]", "k", ""}) {
        ASSERT_TRUE(putFile(file(), wrong));
        EXPECT_TRUE(Keychain::readAll().empty()) << wrong;
        EXPECT_EQ(Keychain::load(m_gemini), std::nullopt);
        EXPECT_TRUE(Keychain::save(u"k1"_s, m_grok));
        EXPECT_EQ(content(), "{\"grok\":\"k1\"}");
    }
}

TEST_F(KeychainTest, onlyTheOwnerMayEnterTheFolderAndReadTheFile)
{
    const mode_t umaskBefore = ::umask(0);
    EXPECT_TRUE(Keychain::save(u"k1"_s, m_gemini));
    ::umask(umaskBefore);
    EXPECT_EQ(modeOf(file()), 0600U);
    EXPECT_EQ(modeOf(folder()), 0700U);
}

TEST_F(KeychainTest, whatIsThereIsNotReplacedByWhatShouldFillAGap)
{
    EXPECT_TRUE(Keychain::saveIfAbsent(u"k1"_s, m_gemini));
    EXPECT_TRUE(Keychain::saveIfAbsent(u"k2"_s, m_gemini));
    EXPECT_EQ(Keychain::load(m_gemini), u"k1"_s);
}

} // namespace quorvane
