#include "X11ViewerFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(X11ViewerTest, itCoversTheScreenAndEscapeGivesTheWindowBack)
{
    start(server->clientEnvironment(), "xcb");
    openViewer();
    EXPECT_TRUE(waitFor([&] { return activeTitle() == "Quorvane"; }));
    EXPECT_TRUE(waitFor([&] { return !isPointerSeen(); }));
    act({u"key"_s, u"Escape"_s});
    EXPECT_TRUE(waitFor([&] { return isPointerSeen(); }));
    expectWindowBack();
}

TEST_F(X11ViewerTest, itHidesThePointerUntilAClickEndsIt)
{
    start(server->clientEnvironment(), "xcb");
    openViewer();
    EXPECT_TRUE(waitFor([&] { return !isPointerSeen(); }));
    act({u"click"_s, u"1"_s});
    EXPECT_TRUE(waitFor([&] { return isPointerSeen(); }));
    expectWindowBack();
}

} // namespace quorvane
