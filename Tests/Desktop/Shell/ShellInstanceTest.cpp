// One instance, and how it is reached: second starts, signals, commands.

#include "ShellInstanceFixture.h"

#include "Support/WaitFor.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(ShellInstanceTest, aSecondStartOpensTheWindowOfTheFirstAndEnds)
{
    const auto first = startAndWait();
    const auto hidden = start();
    EXPECT_EQ(hidden->waitForEnd(), 0);
    EXPECT_EQ(first->count("main opened"), 0);
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0);
    EXPECT_TRUE(first->says("main opened"));
    const auto third = start({});
    EXPECT_EQ(third->waitForEnd(), 0);
    EXPECT_EQ(first->count("main opened"), 1);
    EXPECT_TRUE(first->isRunning());
}

TEST_F(ShellInstanceTest, withoutADisplayASecondStartStillReachesTheFirst)
{
    const auto first = startAndWait();
    session.environment().remove(u"QT_QPA_PLATFORM"_s);
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0);
    EXPECT_TRUE(first->says("main opened"));
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    EXPECT_EQ(first->waitForEnd(), 0);
    const auto alone = start({});
    EXPECT_EQ(alone->waitForEnd(), 1);
    EXPECT_EQ(alone->count("there is no display"), 1);
}

TEST_F(ShellInstanceTest, ofTenStartsAtOnceOneStays)
{
    std::vector<std::unique_ptr<Application>> all;
    for (int each = 0; each < 10; ++each) {
        all.push_back(start({}));
    }
    const auto running = [&all] {
        return std::count_if(all.begin(), all.end(), [](const auto &each) { return each->isRunning(); });
    };
    ASSERT_TRUE(waitFor([&] { return running() == 1; }));
    int opened = 0;
    for (const auto &each : all) {
        EXPECT_TRUE(each->isRunning() || each->waitForEnd() == 0) << each->errors().constData();
        opened += each->count("main opened");
    }
    EXPECT_LE(opened, 1);
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    EXPECT_TRUE(waitFor([&] { return running() == 0; }));
}

TEST_F(ShellInstanceTest, withoutABusALockKeepsItOne)
{
    session.stopBus();
    session.environment().remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    QFile::remove(session.environment().value(u"XDG_RUNTIME_DIR"_s) + u"/bus"_s);
    const auto first = start({});
    ASSERT_TRUE(first->says("main opened"));
    first->tell("Ctrl+Q");
    ASSERT_TRUE(first->says("main closed"));
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0) << second->errors().constData();
    EXPECT_TRUE(first->says("main opened", 2));
    // Commands do their work themselves.
    EXPECT_EQ(command({u"settings"_s, u"intervalMinutes"_s, u"5"_s}).status, 0);
    EXPECT_EQ(command({u"quit"_s}).status, 1);
    const auto action = start({u"--action"_s, u"settings"_s});
    EXPECT_EQ(action->waitForEnd(), 1);
    EXPECT_EQ(action->errors(),
              "quorvane: the application runs already and can be told nothing without a session bus\n");
    first->signal(SIGTERM);
    EXPECT_EQ(first->waitForEnd(), 0);
}

TEST_F(ShellInstanceTest, theTokenOfASecondStartIsThereWhenTheWindowComesUp)
{
    const auto first = startAndWait();
    session.environment().insert(u"XDG_ACTIVATION_TOKEN"_s, u"token 1"_s);
    EXPECT_EQ(start({})->waitForEnd(), 0);
    ASSERT_TRUE(first->says("main opened"));
    first->tell("$XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(first->says("XDG_ACTIVATION_TOKEN=token 1\n"));
    // What X11 desktops give; and for a window that is open already.
    session.environment().remove(u"XDG_ACTIVATION_TOKEN"_s);
    session.environment().insert(u"DESKTOP_STARTUP_ID"_s, u"token 2"_s);
    EXPECT_EQ(start({})->waitForEnd(), 0);
    EXPECT_EQ(first->count("main opened"), 1);
    first->tell("$XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(first->says("XDG_ACTIVATION_TOKEN=token 2\n"));
}

} // namespace quorvane
