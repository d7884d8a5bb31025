#include "Manager/WallpaperSetter.h"

#include "Platform/System/Screens.h"
#include "Support/PrivateHome.h"
#include "Support/RecordingDesktop.h"

#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class WallpaperSetterTest : public testing::Test
{
  protected:
    /// An existing file; a setter applies no other one again.
    [[nodiscard]] QString file(const QString &name) const
    {
        const QString path = home.path() + '/'_L1 + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path;
    }

    void set(const QString &url) { tasks.start(setting(url)); }

    [[nodiscard]] QCoro::Task<> setting(QString url) { outcome = co_await setter.setting(url); }

    PrivateHome home;
    TaskScope tasks;
    RecordingDesktop desktop;
    Screens screens;
    WallpaperSetter setter{tasks, desktop, &screens};
    Result<> outcome;
};

TEST_F(WallpaperSetterTest, thePictureIsCurrentOnceTheScreensHaveTakenIt)
{
    const QSignalSpy told(&setter, &WallpaperSetter::currentChanged);
    set(u"/a.png"_s);
    EXPECT_EQ(setter.current(), QString());
    tasks.wait();
    EXPECT_TRUE(outcome);
    EXPECT_EQ(setter.current(), u"/a.png"_s);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(WallpaperSetterTest, aRefusalAndAMissingScreenLeaveTheCurrentOne)
{
    setter.setCurrent(u"/before.png"_s);
    desktop.refusal = u"out of paint"_s;
    set(u"/a.png"_s);
    tasks.wait();
    EXPECT_EQ(outcome.failure().words, u"Failed: out of paint"_s);
    desktop.attached.clear();
    set(u"/a.png"_s);
    tasks.wait();
    EXPECT_EQ(outcome.failure().words, u"No screen found"_s);
    EXPECT_EQ(setter.current(), u"/before.png"_s);
}

TEST_F(WallpaperSetterTest, theLastPictureAskedForIsTheOneThatStays)
{
    for (const char *name : {"/a.png", "/b.png", "/c.png"}) {
        set(QLatin1String(name));
    }
    tasks.wait();
    EXPECT_EQ(desktop.shown(), (QStringList{u"/a.png"_s, u"/b.png"_s, u"/c.png"_s}));
    EXPECT_EQ(setter.current(), u"/c.png"_s);
}

TEST_F(WallpaperSetterTest, aChangeOfTheScreensWhileOneIsSetAppliesTheNewOneAgain)
{
    const QString before = file(u"before.png"_s);
    const QString after = file(u"after.png"_s);
    setter.setCurrent(before);
    set(after);
    Q_EMIT screens.changed();
    Q_EMIT screens.changed();
    tasks.wait();
    EXPECT_EQ(desktop.shown(), (QStringList{after, after}));
}

TEST_F(WallpaperSetterTest, whatEndsWithTheProgramComesBackAtTheNextStart)
{
    setter.setCurrent(file(u"a.png"_s));
    setter.renew();
    tasks.wait();
    EXPECT_TRUE(desktop.shown().isEmpty());
    desktop.isGoneWithTheProgram = true;
    setter.renew();
    tasks.wait();
    EXPECT_EQ(desktop.shown(), QStringList{setter.current()});
}

TEST_F(WallpaperSetterTest, aFailureToSetItAgainIsTold)
{
    setter.setCurrent(file(u"a.png"_s));
    const QSignalSpy told(&setter, &WallpaperSetter::syncFailed);
    desktop.refusal = u"no room"_s;
    Q_EMIT screens.changed();
    tasks.wait();
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told.first().first().toString(), u"Failed to sync wallpaper: no room"_s);
}

TEST_F(WallpaperSetterTest, closedItBeginsNothingByItself)
{
    setter.setCurrent(file(u"a.png"_s));
    setter.close();
    EXPECT_FALSE(desktop.mayAsk);
    Q_EMIT screens.changed();
    tasks.wait();
    EXPECT_TRUE(desktop.shown().isEmpty());
}

} // namespace quorvane
