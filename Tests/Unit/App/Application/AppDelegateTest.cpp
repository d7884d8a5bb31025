#include "App/Application/AppDelegate.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvane {

using Reply = AppDelegate::TerminateReply;

class AppDelegateTest : public testing::Test
{
  protected:
    void add(const std::string &name, bool canBecomeMain, bool isVisible)
    {
        windows.push_back({canBecomeMain, isVisible, [this, name, index = windows.size()] {
                               closed.push_back(name);
                               windows[index].isVisible = false;
                           }});
    }

    std::vector<ApplicationWindow> windows;
    std::vector<std::string> closed;
    AppDelegate delegate{[this] { return windows; }};
};

TEST_F(AppDelegateTest, withoutWindowsItTerminates)
{
    EXPECT_FALSE(delegate.shouldReallyQuit());
    EXPECT_EQ(delegate.applicationShouldTerminate(), Reply::TerminateNow);
}

TEST_F(AppDelegateTest, openWindowsAreClosedInTheirOrderAndTheProgramStays)
{
    add("main", true, true);
    add("settings", true, true);
    EXPECT_EQ(delegate.applicationShouldTerminate(), Reply::TerminateCancel);
    EXPECT_EQ(closed, (std::vector<std::string>{"main", "settings"}));
    EXPECT_EQ(delegate.applicationShouldTerminate(), Reply::TerminateNow);
    EXPECT_EQ(closed.size(), 2U);
}

TEST_F(AppDelegateTest, hiddenWindowsAndPopUpsKeepNobodyFromQuitting)
{
    add("hidden", true, false);
    add("tool tip", false, true);
    EXPECT_EQ(delegate.applicationShouldTerminate(), Reply::TerminateNow);
    EXPECT_TRUE(closed.empty());
    add("main", true, true);
    EXPECT_EQ(delegate.applicationShouldTerminate(), Reply::TerminateCancel);
    EXPECT_EQ(closed, std::vector<std::string>{"main"});
}

TEST_F(AppDelegateTest, theMenusQuitAsksNoWindow)
{
    add("main", true, true);
    add("settings", true, true);
    delegate.setShouldReallyQuit();
    EXPECT_EQ(delegate.applicationShouldTerminate(), Reply::TerminateNow);
    EXPECT_TRUE(closed.empty());
    EXPECT_TRUE(delegate.shouldReallyQuit());
}

TEST_F(AppDelegateTest, theLastWindowTakesNothingWithIt)
{
    EXPECT_FALSE(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
}

} // namespace quorvane
