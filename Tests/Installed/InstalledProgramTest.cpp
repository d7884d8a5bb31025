// What the installed program can do with nothing but what is installed.

#include "InstalledTree.h"

#include "Support/Files.h"
#include "demo-service/DemoService.h"

#include <QImage>
#include <QJsonObject>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

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
    const CommandRun told = run({u"--version"_s});
    EXPECT_EQ(told.status, 0) << told.errors.constData();
    EXPECT_EQ(told.output, "quorvane " PROJECT_VERSION "\n");
}

TEST_F(InstalledProgramTest, findsTheInstalledNetwork)
{
    if (!HAS_ENGINE) {
        GTEST_SKIP() << "the build has no inference engine";
    }
    const QString network = installed(u"share/quorvane/models/RealESRGAN.onnx"_s);
    const CommandRun told = run({u"model"_s, u"--json"_s});
    EXPECT_EQ(told.status, 0) << told.errors.constData();
    EXPECT_EQ(told.json()["file"_L1].toString(), network);
    // Also where nobody told of the prefix.
    session.environment().remove(u"XDG_DATA_DIRS"_s);
    EXPECT_TRUE(run({u"model"_s, u"--json"_s})
                    .json()["file"_L1]
                    .toString()
                    .endsWith(u"/share/quorvane/models/RealESRGAN.onnx"_s));
}

TEST_F(InstalledProgramTest, makesAndEnlargesAPicture)
{
    DemoService service;
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(16, 9, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        return image;
    });
    session.environment().insert(u"QUORVANE_GEMINI_BASE_URL"_s, service.baseAddress().toString());
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY\n").status, 0);
    const CommandRun made = run({u"generate"_s, u"--prompt"_s, u"a lake"_s, u"--json"_s});
    EXPECT_EQ(made.status, 0) << made.errors.constData();
    EXPECT_EQ(made.json()["status"_L1].toString(), u"Wallpaper set!"_s);
    const QString file = made.json()["file"_L1].toString();
    EXPECT_EQ(QImage(file).size(), QSize(16, 9));
    if (HAS_ENGINE) {
        ASSERT_EQ(run({u"settings"_s, u"upscaleMethod"_s, u"local"_s}).status, 0);
        const CommandRun enlarged = run({u"upscale"_s, file, u"--json"_s});
        EXPECT_EQ(enlarged.status, 0) << enlarged.errors.constData();
        EXPECT_EQ(QImage(enlarged.json()["file"_L1].toString()).size(), QSize(64, 36));
    }
}

TEST_F(InstalledProgramTest, looksForLibrariesBesideItselfAndNeverInTheBuild)
{
    SKIP_WITHOUT("readelf");
    const CommandRun told = runOther(u"readelf"_s, {u"--dynamic"_s, program()});
    ASSERT_EQ(told.status, 0) << told.errors.constData();
    EXPECT_FALSE(namesTheBuild(told.output)) << told.output.constData();
    EXPECT_FALSE(told.output.contains("RPATH)")) << told.output.constData();
    const QString folder = QStringLiteral(LIBRARY_FOLDER "/quorvane");
    const bool isPrivate = QFile::exists(installed(folder + u"/libonnxruntime.so.1"_s));
    const QByteArray path = "(RUNPATH)            Library runpath: [$ORIGIN/../" + folder.toUtf8() + "]";
    EXPECT_EQ(told.output.contains("RUNPATH"), isPrivate) << told.output.constData();
    EXPECT_EQ(told.output.simplified().contains(path.simplified()), isPrivate) << told.output.constData();
}

TEST_F(InstalledProgramTest, opensNothingOfTheBuild)
{
    SKIP_WITHOUT("strace");
    const QString log = session.home().path() + u"/trace"_s;
    const CommandRun traced =
        runOther(u"strace"_s, {u"-f"_s, u"-e"_s, u"trace=file"_s, u"-o"_s, log, program(), u"model"_s});
    if (traced.errors.contains("ptrace")) {
        GTEST_SKIP() << "processes may not be traced here";
    }
    const QByteArray opened = contentOf(log);
    EXPECT_EQ(traced.status == 0, bool(HAS_ENGINE)) << traced.errors.constData();
    EXPECT_TRUE(opened.contains(program().toUtf8()));
    EXPECT_FALSE(namesTheBuild(opened)) << opened.constData();
}

} // namespace quorvane
