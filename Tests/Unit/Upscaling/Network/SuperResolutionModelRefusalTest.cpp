#include "Unit/Upscaling/Network/SuperResolutionModelFixture.h"

#include "Providers/ProviderError.h"
#include "Upscaling/Network/ModelFiles.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString loadError(const QString &path)
{
    return thrown<ModelError>([&] { SuperResolutionModel(path, 1); });
}

} // namespace

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
        static_cast<void>(model.run(modelTile(), {}));
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
    EXPECT_EQ(text(thrown<ModelError>([&] { static_cast<void>(model.run(modelTile(), {})); })),
              "The model does not fit: it made [1, 3, 1024, 1024] of a tile; needed is [1, 3, 2048, 2048]");
}

TEST(SuperResolutionModel, aResultThatIsNoPictureCannotBeConverted)
{
    SuperResolutionModel model(modelFile("no-picture"), 1);
    EXPECT_EQ(text(thrown<ProviderError>([&] { static_cast<void>(model.run(modelTile(), {})); })),
              "Invalid response: Failed to convert upscaled tile to CGImage");
}

} // namespace quorvane
