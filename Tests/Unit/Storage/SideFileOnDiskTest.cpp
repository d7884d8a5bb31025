#include "Unit/Storage/SideFileFixture.h"

#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(SideFile, whatIsTooLargeIsNeitherReadNorWritten)
{
    const qsizetype frame = qsizetype(sizeof("{\"a\":\"\"}")) - 1;
    const QString largest(kLargestSideFileBytes - frame, 'x'_L1);
    const auto bytes = bytesFromTextMap({{text("a"), largest}});
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->size(), kLargestSideFileBytes);
    EXPECT_TRUE(textMapFromBytes(*bytes) == (TextMap{{text("a"), largest}}));

    EXPECT_EQ(textMapFromBytes(*bytes + ' '), kNone);
    EXPECT_FALSE(bytesFromTextMap({{text("a"), largest + 'x'_L1}}));
}

TEST(SideFile, filesAreReadWhole)
{
    const PrivateHome home;
    const QString path = home.path() + u"/prompts.json"_s;
    ASSERT_TRUE(putFile(path, "{\"a\":\"b\"}"));
    EXPECT_EQ(readTextMap(path), (TextMap{{text("a"), text("b")}}));
    ASSERT_TRUE(putFile(path, "[\"a\"]"));
    EXPECT_EQ(readTextList(path), QStringList{text("a")});
}

TEST(SideFile, whatIsNoRegularFileIsEmptyAndNeverWaitedFor)
{
    const PrivateHome home;
    EXPECT_EQ(readTextMap(home.path() + u"/missing"_s), kNone);
    EXPECT_EQ(readTextMap(home.path()), kNone);
    EXPECT_EQ(readTextMap(u"/dev/zero"_s), kNone);
    const QString pipe = home.path() + u"/pipe"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(readTextMap(pipe), kNone);
    EXPECT_EQ(readTextList(pipe), QStringList());
}

} // namespace quorvane
