#include "Support/Desktop/PrivateXServer.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(PrivateXServer, aServerThatIsKilledLendsItsDisplayToNobody)
{
    const QString missing = PrivateXServer::missingProgram();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    PrivateXServer killed(QSize(320, 200));
    ASSERT_TRUE(killed.isReady());
    EXPECT_EQ(killed.rootWindow().size(), QSize(320, 200));
    killed.program().signal(SIGKILL);

    const PrivateXServer neighbour(QSize(640, 400));
    ASSERT_TRUE(neighbour.isReady());
    EXPECT_NE(neighbour.display(), killed.display());
    EXPECT_EQ(neighbour.rootWindow().size(), QSize(640, 400));
    EXPECT_TRUE(killed.rootWindow().isNull());
}

} // namespace quorvane
