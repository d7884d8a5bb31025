// What the installed program can do with nothing but what is installed.

#include "InstalledTree.h"

#include "Support/Files.h"
#include "demo-service/DemoService.h"

#include <QImage>
#include <QJsonObject>
#include <QStandardPaths>

namespace quorvane {

using InstalledProgramTest = InstalledTest;

namespace {

/// Whether any line names something below the folders of the build or of the sources.
bool namesTheBuild(const QByteArray &text)
{
    return text.contains(BUILD_FOLDER "/") || text.contains(SOURCE_FOLDER "/");
}

} // namespace

TEST_F(InstalledProgramTest, tellsItsVersion)
{
    const CommandRun told = run({QStringLiteral("--version")});
    EXPECT_EQ(told.status, 0) << told.errors.constData();
    EXPECT_EQ(told.output, "quorvane " PROJECT_VERSION "\n");
}

TEST_F(InstalledProgramTest, findsTheInstalledNetwork)
{
    if (!HAS_ENGINE) {
        GTEST_SKIP() << "the build has no inference engine";
    }
    const QString network = installed(QStringLiteral("share/quorvane/models/RealESRGAN.onnx"));
    const CommandRun told = run({QStringLiteral("model"), QStringLiteral("--json")});
    EXPECT_EQ(told.status, 0) << told.errors.constData();
    EXPECT_EQ(told.json()[QLatin1String("file")].toString(), network);
    // Also where nobody told of the prefix.
    session.environment().remove(QStringLiteral("XDG_DATA_DIRS"));
    EXPECT_TRUE(run({QStringLiteral("model"), QStringLiteral("--json")})
                    .json()[QLatin1String("file")]
                    .toString()
                    .endsWith(QStringLiteral("/share/quorvane/models/RealESRGAN.onnx")));
}

TEST_F(InstalledProgramTest, makesAndEnlargesAPicture)
{
    DemoService service;
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(16, 9, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        return image;
    });
    session.environment().insert(QStringLiteral("QUORVANE_GEMINI_BASE_URL"), service.baseAddress().toString());
    ASSERT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY\n").status, 0);
    const CommandRun made = run(
        {QStringLiteral("generate"), QStringLiteral("--prompt"), QStringLiteral("a lake"), QStringLiteral("--json")});
    EXPECT_EQ(made.status, 0) << made.errors.constData();
    EXPECT_EQ(made.json()[QLatin1String("status")].toString(), QStringLiteral("Wallpaper set!"));
    const QString file = made.json()[QLatin1String("file")].toString();
    EXPECT_EQ(QImage(file).size(), QSize(16, 9));
    if (HAS_ENGINE) {
        ASSERT_EQ(run({QStringLiteral("settings"), QStringLiteral("upscaleMethod"), QStringLiteral("local")}).status,
                  0);
        const CommandRun enlarged = run({QStringLiteral("upscale"), file, QStringLiteral("--json")});
        EXPECT_EQ(enlarged.status, 0) << enlarged.errors.constData();
        EXPECT_EQ(QImage(enlarged.json()[QLatin1String("file")].toString()).size(), QSize(64, 36));
    }
}

TEST_F(InstalledProgramTest, looksForLibrariesBesideItselfAndNeverInTheBuild)
{
    SKIP_WITHOUT("readelf");
    const CommandRun told = runOther(QStringLiteral("readelf"), {QStringLiteral("--dynamic"), program()});
    ASSERT_EQ(told.status, 0) << told.errors.constData();
    EXPECT_FALSE(namesTheBuild(told.output)) << told.output.constData();
    EXPECT_FALSE(told.output.contains("RPATH)")) << told.output.constData();
    const QString folder = QStringLiteral(LIBRARY_FOLDER "/quorvane");
    const bool isPrivate = QFile::exists(installed(folder + QStringLiteral("/libonnxruntime.so.1")));
    const QByteArray path = "(RUNPATH)            Library runpath: [$ORIGIN/../" + folder.toUtf8() + "]";
    EXPECT_EQ(told.output.contains("RUNPATH"), isPrivate) << told.output.constData();
    EXPECT_EQ(told.output.simplified().contains(path.simplified()), isPrivate) << told.output.constData();
}

TEST_F(InstalledProgramTest, opensNothingOfTheBuild)
{
    SKIP_WITHOUT("strace");
    const QString log = session.home().path() + QStringLiteral("/trace");
    const CommandRun traced =
        runOther(QStringLiteral("strace"), {QStringLiteral("-f"), QStringLiteral("-e"), QStringLiteral("trace=file"),
                                            QStringLiteral("-o"), log, program(), QStringLiteral("model")});
    if (traced.errors.contains("ptrace")) {
        GTEST_SKIP() << "processes may not be traced here";
    }
    const QByteArray opened = contentOf(log);
    EXPECT_EQ(traced.status == 0, bool(HAS_ENGINE)) << traced.errors.constData();
    EXPECT_TRUE(opened.contains(program().toUtf8()));
    EXPECT_FALSE(namesTheBuild(opened)) << opened.constData();
}

} // namespace quorvane
