#include "Integration/CommandsFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(CommandsTest, upscaleMakesACopyThroughTheService)
{
    const QString path = generate(u"a lake"_s);
    // The copy must not be made in the second that named its source.
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString older = home.library() + u"/older.png"_s;
    ASSERT_TRUE(source.save(older));
    const CommandRun made = run({u"upscale"_s, u"older.png"_s, u"--json"_s});
    EXPECT_EQ(made.status, 0) << made.errors.constData();
    EXPECT_EQ(made.json()["original"_L1], QJsonValue(older));
    const QString copy = made.json()["file"_L1].toString();
    EXPECT_EQ(QImage(copy).width(), 3840);
    EXPECT_TRUE(made.errors.startsWith("Upscaling to 4K...\n"));
    const QJsonValue newest = run({u"history"_s, u"--json"_s}).json()[0];
    EXPECT_EQ(newest["variant"_L1].toString(), u"older.png"_s);
    EXPECT_TRUE(QFile::exists(path) || path == copy);
}

TEST_F(CommandsTest, withoutANetworkLocalUpscalingSaysSo)
{
    const CommandRun none = run({u"model"_s});
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.errors.contains("RealESRGAN model not found in app bundle"));
    EXPECT_TRUE(run({u"model"_s, u"--json"_s}).json()["file"_L1].isNull());
    EXPECT_EQ(run({u"model"_s, u"install"_s, u"/etc/passwd"_s}).status, 1);
    EXPECT_EQ(run({u"settings"_s, u"upscaleMethod"_s, u"local"_s}).status, 0);
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString picture = home.path() + u"/a.png"_s;
    ASSERT_TRUE(source.save(picture));
    const CommandRun failed = run({u"upscale"_s, picture});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.output, "Upscale failed: Invalid response: RealESRGAN model not found in app bundle\n");
}

} // namespace quorvane
