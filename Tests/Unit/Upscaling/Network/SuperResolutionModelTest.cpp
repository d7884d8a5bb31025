#include "Upscaling/Network/SuperResolutionModel.h"
#include "Providers/ProviderError.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/TilePixels.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

std::vector<float> sampleTile()
{
    std::vector<float> planes(std::size_t(3) * 512 * 512);
    planesFromTile(positions(512, 512).convertToFormat(QImage::Format_RGBX8888), planes);
    return planes;
}

QString loadError(const QString &path)
{
    return thrown<ModelError>([&] { SuperResolutionModel(path, 1); });
}

} // namespace

TEST(SuperResolutionModel, runsWhatFits)
{
    const std::vector<float> tile = sampleTile();
    for (const char *name : {"nearest", "dynamic", "float16"}) {
        SuperResolutionModel model(modelFile(name), 2);
        const auto result = model.run(tile, {});
        ASSERT_EQ(result.size(), std::size_t(3) * 2048 * 2048);
        // Some places in every plane; float16 has eleven bits.
        for (const std::size_t place : {0U, 300U * 512U + 7U, 262144U + 511U, 2U * 262144U + 262143U}) {
            const std::size_t plane = place / 262144;
            const std::size_t y = place % 262144 / 512;
            const std::size_t x = place % 512;
            EXPECT_NEAR(result[plane * 4194304 + (4 * y + 3) * 2048 + 4 * x + 2], tile[place], 0.0005) << name;
        }
    }
}

TEST(SuperResolutionModel, saysWhatItIs)
{
    EXPECT_EQ(text(SuperResolutionModel(modelFile("nearest"), 1).description()),
              "float32, tiles of 512 × 512, in \"tile\", out \"result\"");
    EXPECT_EQ(text(SuperResolutionModel(modelFile("float16"), 1).description()),
              "float16, tiles of 512 × 512, in \"tile\", out \"result\"");
}

TEST(SuperResolutionModel, saysHowFarItLooks)
{
    EXPECT_EQ(SuperResolutionModel(modelFile("reach"), 1).reach(), 1);
    EXPECT_EQ(SuperResolutionModel(modelFile("blurred"), 1).reach(), 0);
    // A network of one size can be given nothing else, whatever it says.
    EXPECT_EQ(SuperResolutionModel(modelFile("reach-of-one-size"), 1).reach(), 0);
}

TEST(SuperResolutionModel, refusesWhatDoesNotFitAndSaysWhatWould)
{
    struct Case
    {
        const char *model;
        const char *line;
    };
    const Case cases[] = {
        {"wrong-size", "The model does not fit: its input is float32 [1, 3, 256, 256]; needed is float32 or float16 "
                       "[1, 3, 512, 512], or any height and width"},
        {"wrong-scale",
         "The model does not fit: its output is float32 [1, 3, 1024, 1024]; needed is float32 or float16 "
         "[1, 3, 2048, 2048], or any height and width"},
        {"grey", "The model does not fit: its input is float32 [1, 1, 512, 512]; needed is float32 or float16 "
                 "[1, 3, 512, 512], or any height and width"},
        {"bytes", "The model does not fit: its input is element type 2 [1, 3, 512, 512]; needed is float32 or float16 "
                  "[1, 3, 512, 512], or any height and width"},
        {"two-inputs", "The model does not fit: it has 2 inputs and 1 outputs; needed is one picture in and one out"},
        {"huge-shape", "The model does not fit: its input is float32 [1, 3, 1000000, 1000000]; needed is float32 or "
                       "float16 [1, 3, 512, 512], or any height and width"},
        {"reach-600", "The model does not fit: its reach is \"600\"; needed is a whole number of 1 to 128"},
        {"reach-abc", "The model does not fit: its reach is \"abc\"; needed is a whole number of 1 to 128"},
    };
    for (const Case &known : cases) {
        EXPECT_EQ(text(loadError(modelFile(known.model))), known.line);
    }
}

TEST(SuperResolutionModel, passesOnWhatTheEngineSaysOfABrokenFile)
{
    EXPECT_NE(text(loadError(modelFile("garbage"))).find("protobuf parsing failed"), std::string::npos)
        << text(loadError(modelFile("garbage")));
    EXPECT_NE(text(loadError(modelFile("truncated"))).find("protobuf parsing failed"), std::string::npos);
}

TEST(SuperResolutionModel, aFileThatReadsOtherFilesIsRefused)
{
    // The other file lies where an engine could find it: beside the model, and in the current folder.
    const HomeWithModel home("external-weights");
    const QString before = QDir::currentPath();
    QDir::setCurrent(home.path());
    for (const QString &folder : {home.path(), QFileInfo(userModelPath()).path()}) {
        QFile weights(folder + u"/weights.bin"_s);
        ASSERT_TRUE(weights.open(QIODevice::WriteOnly));
        weights.write(QByteArray(36, '\0'));
    }
    const std::string refusal = "The model does not fit: it keeps weights in other files; needed is one file with "
                                "everything in it";
    EXPECT_EQ(text(loadError(userModelPath())), refusal);
    EXPECT_EQ(text(loadError(modelFile("foreign-weights"))), refusal);
    QDir::setCurrent(before);
}

TEST(SuperResolutionModel, aFileThatWantsAllMemoryEndsAsAnError)
{
    const QString error = thrown<ModelError>([] {
        SuperResolutionModel model(modelFile("huge-constant"), 1);
        static_cast<void>(model.run(sampleTile(), {}));
    });
    // Our bound, and not the system's.
    EXPECT_NE(text(error).find("The model needs more than"), std::string::npos) << text(error);
}

TEST(SuperResolutionModel, unreadableEmptyAndEndlessFilesAreRefused)
{
    EXPECT_EQ(text(loadError(u"/nowhere/model.onnx"_s)), "The model cannot be read: No such file or directory");
    EXPECT_EQ(text(loadError(u"/dev/null"_s)), "The model cannot be read: Not a regular file");
    EXPECT_EQ(text(loadError(u"/dev/zero"_s)), "The model cannot be read: Not a regular file");
    QTemporaryFile empty;
    ASSERT_TRUE(empty.open());
    EXPECT_EQ(text(loadError(empty.fileName())), "The model does not fit: its file is empty; needed is an ONNX file");
}

TEST(SuperResolutionModel, aResultOfAnotherScaleIsRefused)
{
    SuperResolutionModel model(modelFile("undeclared-scale"), 1);
    EXPECT_EQ(text(thrown<ModelError>([&] { static_cast<void>(model.run(sampleTile(), {})); })),
              "The model does not fit: it made [1, 3, 1024, 1024] of a tile; needed is [1, 3, 2048, 2048]");
}

TEST(SuperResolutionModel, aResultThatIsNoPictureCannotBeConverted)
{
    SuperResolutionModel model(modelFile("no-picture"), 1);
    EXPECT_EQ(text(thrown<ProviderError>([&] { static_cast<void>(model.run(sampleTile(), {})); })),
              "Invalid response: Failed to convert upscaled tile to CGImage");
}

TEST(SuperResolutionModel, aStopRequestEndsARunInsideTheTile)
{
    std::stop_source stop;
    stop.request_stop();
    SuperResolutionModel model(modelFile("convolutions"), 2);
    EXPECT_THROW(static_cast<void>(model.run(sampleTile(), stop.get_token())), UpscaleStopped);
}

TEST(SuperResolutionModel, itsThreadsEndWithIt)
{
    const std::vector<float> tile = sampleTile();
    const QSet<QString> before = threads();
    QSet<QString> during;
    {
        SuperResolutionModel model(modelFile("convolutions"), 4);
        static_cast<void>(model.run(tile, {}));
        during = threads() - before;
    }
    EXPECT_GE(during.size(), 3);
    EXPECT_TRUE(areGone(during));
}

} // namespace quorvane
