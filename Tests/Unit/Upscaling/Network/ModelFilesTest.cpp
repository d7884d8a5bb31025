#include "Upscaling/Network/ModelFiles.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString put(const QString &folder)
{
    const QString path = folder + u"/quorvane/models/RealESRGAN.onnx"_s;
    QDir().mkpath(QFileInfo(path).path());
    return QFile::copy(modelFile("nearest"), path) ? path : QString();
}

} // namespace

TEST(ModelFiles, theUsersModelGoesBeforeTheInstalledOnesInTheirOrder)
{
    const HomeWithModel home;
    const QString first = home.path() + u"/first"_s;
    const QString second = home.path() + u"/second"_s;
    qputenv("XDG_DATA_DIRS", QFile::encodeName(u"relative:"_s + first + ':'_L1 + second));
    EXPECT_EQ(findModel(), std::nullopt);
    const QString inSecond = put(second);
    EXPECT_EQ(findModel(), inSecond);
    const QString inFirst = put(first);
    EXPECT_EQ(findModel(), inFirst);
    const QString own = put(home.path() + u"/.local/share"_s);
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
