#include "Upscaling/ModelInstall.h"
#include "Providers/ProviderError.h"
#include "Support/Files.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(ModelInstall, copiesAModelThatFits)
{
    const HomeWithModel home;
    installModel(modelFile("dynamic"));
    EXPECT_EQ(findModel(), userModelPath());
    EXPECT_EQ(contentOf(userModelPath()), contentOf(modelFile("dynamic")));
    EXPECT_EQ(text(describeModel(userModelPath())), "float32, tiles of any size, in \"tile\", out \"result\"");
}

TEST(ModelInstall, whatDoesNotFitLeavesTheModelInUseAlone)
{
    const HomeWithModel home("nearest");
    EXPECT_NE(thrown<ModelError>([] { installModel(modelFile("wrong-size")); }), QString());
    EXPECT_NE(thrown<ModelError>([] { installModel(modelFile("undeclared-scale")); }), QString());
    EXPECT_NE(thrown<ModelError>([] { installModel(modelFile("garbage")); }), QString());
    EXPECT_NE(thrown<ModelError>([] { installModel(u"/nowhere.onnx"_s); }), QString());
    EXPECT_NE(thrown<ProviderError>([] { installModel(modelFile("black")); }), QString());
    EXPECT_NE(thrown<ProviderError>([] { installModel(modelFile("not-a-number")); }), QString());
    EXPECT_EQ(contentOf(userModelPath()), contentOf(modelFile("nearest")));
}

TEST(ModelInstall, aPlaceThatCannotBeWrittenIsAnError)
{
    const HomeWithModel home;
    QDir().mkpath(home.path() + u"/.local"_s);
    QFile taken(home.path() + u"/.local/share"_s);
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    EXPECT_EQ(text(thrown<ModelError>([] { installModel(modelFile("nearest")); })),
              "The model cannot be copied: Not a directory");
}

TEST(ModelInstall, aStopRequestEndsIt)
{
    const HomeWithModel home;
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(installModel(modelFile("nearest"), stop.get_token()), UpscaleStopped);
    EXPECT_EQ(findModel(), std::nullopt);
}

} // namespace quorvane
