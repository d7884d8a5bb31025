#include "Platform/X11/X11Connection.h"

#include "Support/Desktop/PrivateXServer.h"
#include "Support/Results.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

class X11ConnectionTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = PrivateXServer::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        m_server = std::make_unique<PrivateXServer>(QSize(64, 64));
        ASSERT_TRUE(m_server->isReady());
    }

    std::unique_ptr<PrivateXServer> m_server;
};

} // namespace

TEST_F(X11ConnectionTest, whatTheServerRefusesFailsOnceAndSaysWhich)
{
    const X11Connection x(m_server->display());
    ASSERT_TRUE(x.isUsable());
    EXPECT_EQ(x.finish(), kDone);
    xcb_free_pixmap(x.get(), x.screen()->root);
    xcb_map_window(x.get(), 1);
    EXPECT_EQ(wordsOf(x.finish()), u"X error 4, request 54.0"_s) << "of two, the first is the cause";
    EXPECT_EQ(x.finish(), kDone) << "an error is told once";
}

TEST_F(X11ConnectionTest, aServerThatIsGoneIsAFailure)
{
    const X11Connection x(m_server->display());
    ASSERT_TRUE(x.isUsable());
    m_server->program().signal(SIGKILL);
    EXPECT_EQ(wordsOf(x.finish()), qt_error_string(ECONNRESET));
    EXPECT_FALSE(x.isUsable());
}

} // namespace quorvane
