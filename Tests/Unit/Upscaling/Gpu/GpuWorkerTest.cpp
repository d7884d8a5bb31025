#include "Upscaling/Gpu/GpuWorker.h"
#include "Support/WaitFor.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/TilePixels.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::minutes kPatience(2);
const QString kRealWorker = QStringLiteral(GPU_WORKER);
const QString kProcessor = u"CPUExecutionProvider"_s;

constexpr QSize kTile(512, 512);
constexpr std::size_t kResultSize = std::size_t(3) * 2048 * 2048;

std::vector<float> sampleTile()
{
    std::vector<float> planes(std::size_t(3) * 512 * 512);
    planesFromTile(positions(512, 512).convertToFormat(QImage::Format_RGBX8888), planes);
    return planes;
}

/// Not gone, and not dead and waiting to be collected.
bool isAlive(const QString &process)
{
    QFile stat(u"/proc/%1/stat"_s.arg(process));
    if (!stat.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray line = stat.readAll();
    const char state = line.mid(line.lastIndexOf(')') + 2).at(0);
    return state != 'Z' && state != 'X';
}

/// What the real worker says when it is asked for WebGPU while the Vulkan loader knows the one driver alone.
QByteArray refusal(const QString &driver)
{
    QProcess worker;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VK_DRIVER_FILES"_s, driver);
    environment.insert(u"VK_ICD_FILENAMES"_s, driver);
    worker.setProcessEnvironment(environment);
    worker.start(kRealWorker, {modelFile("nearest"), u"WebGpuExecutionProvider"_s});
    worker.closeWriteChannel();
    EXPECT_TRUE(worker.waitForFinished(60'000));
    EXPECT_EQ(worker.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(worker.exitCode(), EXIT_FAILURE);
    EXPECT_TRUE(worker.readAllStandardOutput().isEmpty());
    return worker.readAllStandardError().trimmed().split('\n').back();
}

QString softwareDriver()
{
    const QDir drivers(u"/usr/share/vulkan/icd.d"_s);
    const QStringList found = drivers.entryList({u"lvp_icd*.json"_s}, QDir::Files);
    return found.isEmpty() ? QString() : drivers.filePath(found.front());
}

} // namespace

TEST(GpuWorker, givesWhatTheNetworkGives)
{
    const std::vector<float> tile = sampleTile();
    SuperResolutionModel model(modelFile("convolutions"), 2);
    GpuWorker worker(kRealWorker, {modelFile("convolutions"), kProcessor});
    std::vector<float> result(kResultSize);
    for (int again = 0; again < 2; ++again) {
        std::fill(result.begin(), result.end(), -1.0F);
        ASSERT_TRUE(worker.run(tile, kTile, result, kPatience));
        const auto expected = model.run(tile, {});
        float difference = 0;
        for (std::size_t index = 0; index < result.size(); ++index) {
            difference = std::max(difference, std::abs(result[index] - expected[index]));
        }
        EXPECT_LE(difference, 1e-5F);
    }
}

TEST(GpuWorker, takesTilesOfAnySizeThatATileMayHave)
{
    SuperResolutionModel model(modelFile("reach"), 2);
    GpuWorker worker(kRealWorker, {modelFile("reach"), kProcessor});
    const QImage picture = positions(640, 100).convertToFormat(QImage::Format_RGBX8888);
    for (const QSize size : {QSize(513, 40), QSize(1, 1), QSize(640, 100)}) {
        const QImage part = picture.copy(QRect(QPoint(0, 0), size));
        std::vector<float> tile(std::size_t(3) * std::size_t(size.width()) * std::size_t(size.height()));
        planesFromTile(part, tile);
        std::vector<float> result(16 * tile.size());
        ASSERT_TRUE(worker.run(tile, size, result, kPatience));
        const auto expected = model.run(tile, {}, size);
        EXPECT_TRUE(std::equal(result.begin(), result.end(), expected.begin(), expected.end()));
    }
    for (const GpuWorker::Header none : {GpuWorker::Header{0, 5}, {5, -1}, {769, 1}, {1, 1 << 30}}) {
        EXPECT_EQ(none.tileSize(), 0U) << none.width << ' ' << none.height;
    }
}

TEST(GpuWorker, takesTheFirstProviderThatWorks)
{
    GpuWorker worker(kRealWorker, {modelFile("nearest"), u"NoSuchProvider"_s, kProcessor});
    std::vector<float> result(kResultSize);
    EXPECT_TRUE(worker.run(sampleTile(), kTile, result, kPatience));
}

TEST(GpuWorker, whateverGoesWrongFailsForGood)
{
    const std::vector<float> tile = sampleTile();
    std::vector<float> result(kResultSize);
    for (const char *behaviour : {"crash", "too-little", "nothing", "too-much"}) {
        GpuWorker worker(QStringLiteral(GPU_WORKER_DOUBLE), {modelFile("nearest"), QLatin1String(behaviour), u"2"_s});
        EXPECT_TRUE(worker.run(tile, kTile, result, kPatience)) << behaviour;
        EXPECT_FALSE(worker.run(tile, kTile, result, kPatience)) << behaviour;
        EXPECT_FALSE(worker.run(tile, kTile, result, kPatience)) << behaviour;
    }
    for (const QStringList &arguments : {QStringList{u"/nowhere/network.onnx"_s, kProcessor},
                                         {modelFile("garbage"), kProcessor},
                                         {modelFile("no-picture"), kProcessor},
                                         {modelFile("nearest"), u"CUDAExecutionProvider"_s}}) {
        GpuWorker worker(kRealWorker, arguments);
        EXPECT_FALSE(worker.run(tile, kTile, result, kPatience)) << text(arguments.join(' '_L1));
    }
    GpuWorker worker(u"/nowhere/worker"_s, {});
    EXPECT_FALSE(worker.run(tile, kTile, result, kPatience));
}

TEST(GpuWorker, isLeftAtTheLimit)
{
    GpuWorker worker(QStringLiteral(GPU_WORKER_DOUBLE), {modelFile("nearest"), u"hang"_s, u"1"_s});
    std::vector<float> result(kResultSize);
    EXPECT_FALSE(worker.run(sampleTile(), kTile, result, std::chrono::milliseconds(300)));
    EXPECT_FALSE(worker.run(sampleTile(), kTile, result, kPatience));
}

TEST(GpuWorker, anotherThreadEndsARun)
{
    GpuWorker worker(QStringLiteral(GPU_WORKER_DOUBLE), {modelFile("nearest"), u"hang"_s, u"1"_s});
    std::vector<float> result(kResultSize);
    const std::jthread other([&worker] { worker.end(); });
    EXPECT_FALSE(worker.run(sampleTile(), kTile, result, std::chrono::hours(1)));
}

TEST(GpuWorker, theProcessIsGoneWithIt)
{
    const QSet<QString> before = childProcesses();
    {
        GpuWorker worker(QStringLiteral(GPU_WORKER_DOUBLE), {modelFile("nearest"), u"hang"_s, u"1"_s});
        std::vector<float> result(kResultSize);
        EXPECT_FALSE(worker.run(sampleTile(), kTile, result, std::chrono::milliseconds(1)));
        EXPECT_EQ(childProcesses().size(), before.size() + 1);
    }
    EXPECT_EQ(childProcesses(), before);
}

TEST(GpuWorker, theProgramEndsWithItsInput)
{
    QProcess worker;
    worker.start(kRealWorker, {modelFile("nearest"), kProcessor});
    worker.closeWriteChannel();
    ASSERT_TRUE(worker.waitForFinished(60'000));
    EXPECT_EQ(worker.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(worker.exitCode(), EXIT_SUCCESS);
    EXPECT_TRUE(worker.readAllStandardOutput().isEmpty());
}

TEST(GpuWorker, theProgramDiesWithTheOneThatStartedIt)
{
    // The input is a pipe of the test's, so that it does not end when the shell between is killed.
    const QTemporaryDir folder;
    const QString input = folder.filePath(u"input"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(input).constData(), 0600), 0);
    const int pipe = open(QFile::encodeName(input).constData(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(pipe, 0);
    QProcess shell;
    shell.start(u"sh"_s, {u"-c"_s, u"\"$0\" \"$1\" \"$2\" <\"$3\" & wait"_s, kRealWorker, modelFile("nearest"),
                          kProcessor, input});
    ASSERT_TRUE(shell.waitForStarted());

    const std::vector<float> tile = sampleTile();
    const std::jthread feeding([&tile, pipe] {
        const GpuWorker::Header header{kTile.width(), kTile.height()};
        EXPECT_EQ(write(pipe, &header, sizeof header), static_cast<ssize_t>(sizeof header));
        const auto size = static_cast<ssize_t>(tile.size() * sizeof(float));
        EXPECT_EQ(write(pipe, tile.data(), static_cast<std::size_t>(size)), size);
    });
    qsizetype written = 0;
    const auto readsTheNext = [&] {
        written += shell.readAllStandardOutput().size();
        return written == static_cast<qsizetype>(kResultSize * sizeof(float));
    };
    ASSERT_TRUE(waitFor(readsTheNext, kPatience));
    const QSet<QString> workers = childProcesses(shell.processId());
    ASSERT_EQ(workers.size(), 1);
    shell.kill();
    ASSERT_TRUE(shell.waitForFinished());
    EXPECT_TRUE(waitFor([&] { return !isAlive(*workers.begin()); }));
    close(pipe);
}

TEST(GpuWorker, vulkanOnTheProcessorIsRefused)
{
    const QString driver = softwareDriver();
    if (driver.isEmpty()) {
        GTEST_SKIP() << "mesa-vulkan-drivers is not installed";
    }
    const QTemporaryDir folder;
    const QString renamed = folder.filePath(u"hardware.json"_s);
    ASSERT_TRUE(QFile::copy(driver, renamed));
    EXPECT_EQ(refusal(renamed), "Vulkan computes on the processor");
    EXPECT_EQ(refusal(driver), "Vulkan finds no graphics card");
}

TEST(GpuWorker, withoutAVulkanDriverThereIsNoCard)
{
    EXPECT_EQ(refusal(u"/nowhere/driver.json"_s), "Vulkan finds no graphics card");
}

} // namespace quorvane
