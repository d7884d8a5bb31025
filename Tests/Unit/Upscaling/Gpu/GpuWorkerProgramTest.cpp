#include "Unit/Upscaling/Gpu/GpuWorkerFixture.h"

#include "Support/WaitFor.h"
#include "Upscaling/Gpu/GpuWorker.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

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
