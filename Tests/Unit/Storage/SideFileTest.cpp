#include "Unit/Storage/SideFileFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(SideFile, anObjectOfTextsIsRead)
{
    EXPECT_EQ(textMapFromBytes("{\"a.png\":\"a lake\",\"b.png\":\"\"}"),
              (TextMap{{text("a.png"), text("a lake")}, {text("b.png"), QString()}}));
    EXPECT_EQ(textMapFromBytes(" {\n \"a\" : \"\\u00e9\\n\" }\n"), (TextMap{{text("a"), text("é\n")}}));
}

TEST(SideFile, everythingElseIsNoMapAtAll)
{
    for (const char *bytes : {"", " ", "{", "}", "null", "\"a\"", "[]", "[\"a\",\"b\"]", "{\"a\":5}", "{\"a\":null}",
                              "{\"a\":[\"b\"]}", "{\"a\":{\"b\":\"c\"}}", "{\"a\":\"b\",\"c\":false}", "{\"a\":\"b\"}x",
                              "{\"a\":\"b\",}", "{'a':'b'}", "{\"a\":\"\xff\"}", "{\"a\":\"\xed\xa0\x80\"}"}) {
        EXPECT_EQ(textMapFromBytes(bytes), kNone) << bytes;
    }
    EXPECT_EQ(textMapFromBytes(QByteArray("{\"a\":\"b\"}\0", 10)), kNone);
}

TEST(SideFile, anArrayOfTextsIsReadInItsOrder)
{
    EXPECT_EQ(textListFromBytes("[\"b\",\"a\",\"b\"]"), (QStringList{text("b"), text("a"), text("b")}));
    EXPECT_EQ(textListFromBytes("[]"), QStringList());
}

TEST(SideFile, everythingElseIsNoListAtAll)
{
    for (const char *bytes :
         {"", "[", "{}", "{\"a\":\"b\"}", "[\"a\",1]", "[null]", "[[\"a\"]]", "[\"a\"]]", "[\"a\",]"}) {
        EXPECT_EQ(textListFromBytes(bytes), QStringList()) << bytes;
    }
}

TEST(SideFile, theLastOfARepeatedNameCounts)
{
    EXPECT_EQ(textMapFromBytes("{\"a\":\"1\",\"a\":\"2\"}"), (TextMap{{text("a"), text("2")}}));
    EXPECT_EQ(textMapFromBytes("{\"a\":1,\"a\":\"2\"}"), (TextMap{{text("a"), text("2")}}));
    EXPECT_EQ(textMapFromBytes("{\"a\":\"1\",\"a\":2}"), kNone);
}

TEST(SideFile, aByteOrderMarkIsSkippedBeforeTheContentAndKeptInATextOfIt)
{
    EXPECT_EQ(textMapFromBytes("\xef\xbb\xbf{\"\xef\xbb\xbf"
                               "a\":\"\xef\xbb\xbf\"}"),
              (TextMap{{QChar(0xfeff) + text("a"), QString(QChar(0xfeff))}}));
    EXPECT_EQ(textListFromBytes("[\"\xef\xbb\xbf\"]"), QStringList{QString(QChar(0xfeff))});
    EXPECT_EQ(textListFromBytes("[\xef\xbb\xbf\"a\"]"), QStringList());
}

TEST(SideFile, writesCompactAndSorted)
{
    EXPECT_EQ(bytesFromTextMap({}), QByteArray("{}"));
    EXPECT_EQ(bytesFromTextMap(
                  {{text("b"), text("2")}, {text("a10"), text("é")}, {text("B"), text("\"")}, {text("a2"), text("/")}}),
              QByteArray("{\"B\":\"\\\"\",\"a10\":\"é\",\"a2\":\"/\",\"b\":\"2\"}"));
    EXPECT_EQ(bytesFromTextList({}), QByteArray("[]"));
    EXPECT_EQ(bytesFromTextList({text("b"), text("a")}), QByteArray("[\"b\",\"a\"]"));
}

TEST(SideFile, theOrderInTheFileIsTheOrderOfTheMap)
{
    // Characters beyond the first plane come before U+E000 in UTF-16, though not in UTF-8.
    TextMap map;
    for (const char *name :
         {"", "!", "0", "A", "Z", "a", "z", "é", "日", "\xf0\x9f\x98\x80", "\xee\x80\x80", "\xef\xbc\x81"}) {
        map.emplace(text(name), QString());
    }
    QByteArray expected;
    for (const auto &[name, value] : map) {
        expected += (expected.isEmpty() ? "{\"" : ",\"") + name.toUtf8() + "\":\"\"";
    }
    EXPECT_EQ(bytesFromTextMap(map), expected + '}');
}

TEST(SideFile, everyTextComesBackAsItWas)
{
    const QString oddities[] = {QString(QChar(u'\0')),           QString(QChar(0xd800)),
                                QString(QChar(0xdc00)) + 'x'_L1, QString(QChar(0xfeff)),
                                QString(QChar(0xffff)),          text("\x01\x1f\x7f\u0080\u2028\"\\/"),
                                QString(5000, QChar(u'☃'))};
    TextMap map;
    QStringList list;
    for (const QString &oddity : oddities) {
        map.emplace(oddity, oddity);
        list.append(oddity);
    }
    const auto mapBytes = bytesFromTextMap(map);
    const auto listBytes = bytesFromTextList(list);
    ASSERT_TRUE(mapBytes && listBytes);
    EXPECT_TRUE(textMapFromBytes(*mapBytes) == map);
    EXPECT_TRUE(textListFromBytes(*listBytes) == list);
}

} // namespace quorvane
