#include "Platform/Pictures/PictureHandover.h"

#include "Platform/Files/Paths.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

class PictureHandoverTest : public testing::Test
{
  protected:
    /// Puts a picture at name as the library does: whole, in place of what was there.
    [[nodiscard]] QString save(const QString &name, int mark, const char *format = "png") const
    {
        const QString path = m_home.path() + '/'_L1 + name;
        const QString draft = m_home.path() + u"/draft"_s;
        EXPECT_TRUE(positionPicture(QSize(30, 20), mark).save(draft, format));
        EXPECT_EQ(::rename(QFile::encodeName(draft).constData(), QFile::encodeName(path).constData()), 0);
        return path;
    }

    /// Hands over, and the desktop shows it.
    HandedPicture show(const QString &path, const PictureHandover::Rules &rules = {})
    {
        const HandedPicture handed = valueOf(m_handover.handOver(path, rules));
        m_handover.succeeded(path, handed);
        return handed;
    }

    PrivateHome m_home;
    PictureHandover m_handover;
};

} // namespace

TEST_F(PictureHandoverTest, aNewPathIsHandedAsItIsAndAgainWhileItsContentStays)
{
    const QString path = save(u"one.png"_s, 10);
    EXPECT_EQ(show(path).path, path);
    EXPECT_EQ(show(path, {.loaded = {path}}).path, path);
    const QString other = save(u"two.jpg"_s, 10, "jpeg");
    EXPECT_EQ(show(other, {.loaded = {path}}).path, other);
}

TEST_F(PictureHandoverTest, newContentUnderTheSamePathIsANewCopyEachTime)
{
    const QString path = save(u"one.png"_s, 10);
    EXPECT_FALSE(show(path).isCopy);
    const auto second = show(save(u"one.png"_s, 20), {.loaded = {path}});
    EXPECT_TRUE(second.isCopy);
    EXPECT_TRUE(PictureCopy::isOurs(second.path));
    EXPECT_EQ(contentOf(second.path), contentOf(path));
    EXPECT_EQ(show(path, {.loaded = {second.path}}).path, second.path) << "the same content is the same copy";
    const auto third = show(save(u"one.png"_s, 30), {.loaded = {second.path}});
    EXPECT_TRUE(third.isCopy);
    EXPECT_NE(third.path, second.path);
    QFile::remove(third.path);
    EXPECT_NE(show(path).path, third.path) << "a copy that somebody deleted is made anew";
}

TEST_F(PictureHandoverTest, aProcessThatKnowsNothingTakesNoRisk)
{
    const QString path = save(u"one.png"_s, 10);
    EXPECT_TRUE(valueOf(m_handover.handOver(path, {.loaded = {path}})).isCopy);
    const auto copy = PictureCopy::write(PictureCopy::folders().constFirst(), "x", u"png"_s);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(valueOf(m_handover.handOver(path, {.loaded = {*copy}})).isCopy) << "it may be one of this path";
    EXPECT_FALSE(valueOf(m_handover.handOver(path, {.loaded = {m_home.path()}})).isCopy);
}

TEST_F(PictureHandoverTest, otherFormatsAndPathsThatTheDesktopCannotTakeAreCopied)
{
    const auto converted = valueOf(m_handover.handOver(save(u"one.png"_s, 10, "bmp"), {}));
    EXPECT_TRUE(converted.isCopy);
    EXPECT_EQ(QImage(converted.path, "png").size(), QSize(30, 20));
    const QString path = save(u"a b.png"_s, 10);
    PictureHandover::Rules rules;
    rules.takesPath = [](const QString &each) { return !each.contains(' '_L1); };
    EXPECT_TRUE(valueOf(m_handover.handOver(path, rules)).isCopy);
    rules.takesPath = [](const QString & /*each*/) { return false; };
    EXPECT_FALSE(m_handover.handOver(path, rules));
}

TEST_F(PictureHandoverTest, aFailureDeletesTheNewCopyButNotTheOneThatIsShown)
{
    const QString path = save(u"one.png"_s, 10);
    const auto shown = show(path, {.loaded = {path}});
    ASSERT_TRUE(shown.isCopy);
    m_handover.failed(valueOf(m_handover.handOver(path, {})));
    EXPECT_TRUE(QFile::exists(shown.path));
    const auto next = valueOf(m_handover.handOver(save(u"one.png"_s, 20), {}));
    m_handover.failed(next);
    EXPECT_FALSE(QFile::exists(next.path));
    EXPECT_TRUE(QFile::exists(shown.path));
    m_handover.failed(valueOf(m_handover.handOver(save(u"two.png"_s, 10), {})));
    EXPECT_TRUE(QFile::exists(m_home.path() + u"/two.png"_s)) << "it is the library's own";
}

TEST_F(PictureHandoverTest, whatIsNoPictureIsRefusedAtOnce)
{
    EXPECT_FALSE(m_handover.handOver(m_home.path() + u"/missing.png"_s, {}));
    const QString path = m_home.path() + u"/broken.png"_s;
    ASSERT_TRUE(putFile(path, "no picture"));
    EXPECT_FALSE(m_handover.handOver(path, {}));
    EXPECT_FALSE(QDir(Paths::stateHome() + u"/quorvane"_s).exists());
}

} // namespace quorvane
