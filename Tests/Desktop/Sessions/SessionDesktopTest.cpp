// Every desktop that a person logs in to, as it is: with two screens of different size, judged by what they show.

#include "SessionDesktopFixture.h"

#include <QJsonArray>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class SessionDesktopTest : public SessionDesktopFixture, public testing::WithParamInterface<TestedDesktop>
{
  protected:
    void SetUp() override { prepare(GetParam()); }
};

TEST_P(SessionDesktopTest, fillsEachScreenWhateverTheFolderIsCalledAndHoweverOftenThePathIsTheSame)
{
    ASSERT_TRUE(desktop().start());
    const QString name = QString::fromUtf8("o'brien $(touch x) #1 100% %41 \"q\" \n Ünïcødé 日本/picture.png");
    const QJsonObject first = set(save(name, 40));
    EXPECT_EQ(first.value("failure"_L1).toString().toStdString(), "");
    EXPECT_TRUE(first.value("failure"_L1).isNull());
    EXPECT_EQ(first.value("desktop"_L1).toString(), desktop().plan().way);
    EXPECT_TRUE(first.value("reason"_L1).toString().startsWith(u"XDG_CURRENT_DESKTOP names"_s));
    EXPECT_EQ(waitForPicture(40), "");
    for (const int mark : {200, 90, 140}) {
        EXPECT_EQ(failureToSet(save(name, mark)), "");
        EXPECT_EQ(waitForPicture(mark), "");
    }
    const QJsonObject other = set(save(u"other.png"_s, 60));
    EXPECT_TRUE(other.value("failure"_L1).isNull());
    EXPECT_EQ(waitForPicture(60), "");
    QStringList sizes;
    for (const QRect &area : desktop().areas()) {
        sizes.append(u"%1x%2"_s.arg(area.width()).arg(area.height()));
    }
    QStringList toldSizes;
    for (const QJsonValue &screen : other.value("screens"_L1).toArray()) {
        toldSizes.append(screen.toString().section(' '_L1, 1));
    }
    EXPECT_EQ(toldSizes.join(' '_L1).toStdString(), sizes.join(' '_L1).toStdString());
    EXPECT_EQ(sizes.size(), 2);
    EXPECT_NE(sizes.constFirst(), sizes.constLast());
    EXPECT_EQ(failureToSet(save(name, 240)), "");
    EXPECT_EQ(waitForPicture(240), "");
}

TEST_P(SessionDesktopTest, aScreenThatComesLaterShowsThePictureToo)
{
    ASSERT_TRUE(desktop().start());
    desktop().session().setVariable(u"QT_QPA_PLATFORM"_s, desktop().platform());
    const auto keeper = desktop().session().start(QStringLiteral(WALLPAPER_KEEPER), {save(u"picture.png"_s, 80)});
    ASSERT_EQ(keeper->readLine(), "Wallpaper set!") << keeper->errors().constData();
    EXPECT_EQ(waitForPicture(80), "");
    ASSERT_TRUE(desktop().plugIn());
    EXPECT_EQ(waitForPicture(80), "");
}

TEST_P(SessionDesktopTest, isUsedOnceItIsThereAndMissedWhenItIsKilled)
{
    const QString picture = save(u"picture.png"_s, 40);
    const std::string painter = desktop().plan().painter.toStdString();
    EXPECT_THAT(failureToSet(picture), testing::HasSubstr(painter));

    ASSERT_TRUE(desktop().start());
    EXPECT_EQ(failureToSet(picture), "");
    EXPECT_EQ(waitForPicture(40), "");

    // Killed while it is asked: whether it took the picture before is a matter of luck, an answer comes in any case.
    desktop().freeze();
    ask(save(u"other.png"_s, 200));
    ASSERT_TRUE(desktop().kill());
    EXPECT_TRUE(answer().contains("failure"_L1));
    EXPECT_THAT(failureToSet(picture), testing::HasSubstr(painter));
}

INSTANTIATE_TEST_SUITE_P(Real, SessionDesktopTest, testing::ValuesIn(testedDesktops()),
                         [](const testing::TestParamInfo<TestedDesktop> &tested) {
                             return tested.param.name.toStdString();
                         });

} // namespace quorvane
