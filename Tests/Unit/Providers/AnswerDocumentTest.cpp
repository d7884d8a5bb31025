#include "Providers/AnswerDocument.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QByteArray textOf(const AnswerDocument &document, const char *key)
{
    QByteArray storage;
    return document.textOf(document.object().value(QLatin1String(key)), &storage).toByteArray();
}

} // namespace

TEST(AnswerDocument, readsShortAndLongTextsAlike)
{
    for (const qsizetype size : {0, 1, 4095, 4096, 4097, 100000}) {
        const QByteArray text(size, 'x');
        const auto document = AnswerDocument::parse(R"({"before":1,"text":")" + text + R"(","after":[true]})");
        ASSERT_TRUE(document) << size;
        EXPECT_EQ(textOf(*document, "text"), text) << size;
        EXPECT_EQ(document->object().value("after"_L1).toArray().size(), 1) << size;
    }
}

TEST(AnswerDocument, tellsSeveralLongTextsApart)
{
    const QByteArray first(5000, 'a');
    const QByteArray second(6000, 'b');
    const auto document = AnswerDocument::parse(R"({"a":")" + first + R"(","b":")" + second + R"("})");
    ASSERT_TRUE(document);
    EXPECT_EQ(textOf(*document, "a"), first);
    EXPECT_EQ(textOf(*document, "b"), second);
}

TEST(AnswerDocument, longTextsWithEscapesOrOtherScriptsKeepTheirMeaning)
{
    const QByteArray filler(5000, 'x');
    const auto document = AnswerDocument::parse(R"({"slash":"a\/)" + filler + R"(","quote":")" + filler +
                                                R"(\"b\\","umlaut":")" + filler + "\xc3\xbc" + R"("})");
    ASSERT_TRUE(document);
    EXPECT_EQ(textOf(*document, "slash"), "a/" + filler);
    EXPECT_EQ(textOf(*document, "quote"), filler + "\"b\\");
    EXPECT_EQ(textOf(*document, "umlaut"), filler + "\xc3\xbc");
}

TEST(AnswerDocument, aLongNameIsAnEntryLikeAnyOther)
{
    const QByteArray name(5000, 'n');
    const auto document = AnswerDocument::parse(R"({")" + name + R"(":1,"text":"t"})");
    ASSERT_TRUE(document);
    EXPECT_EQ(textOf(*document, "text"), "t");
}

TEST(AnswerDocument, refusesWhatIsNoJsonObject)
{
    const QByteArray filler(5000, 'x');
    for (const QByteArray &answer :
         {QByteArray(), QByteArray("[]"), QByteArray("text"), QByteArray("\"text\""), QByteArray("{"),
          QByteArray("{\"a\":\""), "{\"a\":\"" + filler, "{\"a\":\"" + filler + "\"", "[\"" + filler + "\"]",
          "{\"a\":\"" + filler + "\"\"b\"}", "{\"a\":\"" + filler + "\\u12\"}", "{\"a\":\"" + filler + "\xff\"}"}) {
        EXPECT_FALSE(AnswerDocument::parse(answer)) << answer.left(40).constData();
    }
}

TEST(AnswerDocument, leavingLongTextsOutDoesNotChangeWhatCountsAsJson)
{
    const QByteArray filler(5000, 'x');
    for (const QByteArray &odd : {"\n" + filler, filler + "\\q", filler + "\\", filler + "\\\"",
                                  QByteArray("\\\"") + filler, filler + '\0', filler + "\xc3\xbc", filler + "\x7f"}) {
        const QByteArray answer = "{\"a\":\"" + odd + "\",\"b\":\"" + filler + "\"}";
        EXPECT_EQ(AnswerDocument::parse(answer).has_value(), QJsonDocument::fromJson(answer).isObject())
            << odd.left(3).toHex().constData() << " … " << odd.right(3).toHex().constData();
    }
}

TEST(AnswerDocument, nestingWithoutEndIsRefusedNotFollowed)
{
    EXPECT_FALSE(AnswerDocument::parse("{\"a\":" + QByteArray(1000000, '[') + QByteArray(1000000, ']') + "}"));
}

} // namespace quorvane
