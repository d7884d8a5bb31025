#include "Upscaling/Network/ModelFiles.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace quorvane {

namespace {

QString put(const QString &folder)
{
    const QString path = folder + QStringLiteral("/quorvane/models/RealESRGAN.onnx");
    QDir().mkpath(QFileInfo(path).path());
    return QFile::copy(modelFile("nearest"), path) ? path : QString();
}

} // namespace

TEST(ModelFiles, theUsersModelGoesBeforeTheInstalledOnesInTheirOrder)
{
    const HomeWithModel home;
    const QString first = home.path() + QStringLiteral("/first");
    const QString second = home.path() + QStringLiteral("/second");
    qputenv("XDG_DATA_DIRS", QFile::encodeName(QStringLiteral("relative:") + first + QLatin1Char(':') + second));
    EXPECT_EQ(findModel(), std::nullopt);
    const QString inSecond = put(second);
    EXPECT_EQ(findModel(), inSecond);
    const QString inFirst = put(first);
    EXPECT_EQ(findModel(), inFirst);
    const QString own = put(home.path() + QStringLiteral("/.local/share"));
    EXPECT_EQ(own, userModelPath());
    EXPECT_EQ(findModel(), own);
}

TEST(ModelFiles, aFolderOfThatNameIsNoModel)
{
    const HomeWithModel home;
    ASSERT_TRUE(QDir().mkpath(userModelPath()));
    EXPECT_EQ(findModel(), std::nullopt);
}

} // namespace quorvane
