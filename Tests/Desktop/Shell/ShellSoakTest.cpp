// What the application costs while it waits in the tray: nothing but its memory, and that does not grow.
//
// The real program with its real windows on a headless sway. QUORVANE_SOAK=full looks on for minutes and makes a
// thousand pictures, the short form takes seconds and some tens. Judged are counts: system calls, bytes and
// descriptors; never time.

#include "ShellFixture.h"

#include "App/Control/ControlCalls.h"
#include "Platform/System/GraphicsProcessor.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/Files.h"
#include "Support/ProcessMemory.h"
#include "Support/WaitFor.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

bool isFull()
{
    return qgetenv("QUORVANE_SOAK") == "full";
}

constexpr qint64 kKibibytesPerMebibyte = 1024;

#ifdef __SANITIZE_ADDRESS__
constexpr qint64 kTimes = 1000; // A sanitizer's own memory says nothing.
#else
constexpr qint64 kTimes = 1;
#endif
// About twice what was measured.
constexpr qint64 kMostOfItsOwn = 8 * kKibibytesPerMebibyte * kTimes;
constexpr qint64 kMostOfItsOwnAfterWindows = 20 * kKibibytesPerMebibyte * kTimes;
constexpr qint64 kMostResident = 45 * kKibibytesPerMebibyte * kTimes;
constexpr qint64 kNoise = 2 * kKibibytesPerMebibyte * kTimes;

void print(const char *what, const ProcessMemory &memory, int descriptors)
{
    const auto mebibytes = [](qint64 kibibytes) { return static_cast<double>(kibibytes) / kKibibytesPerMebibyte; };
    std::printf("%-34s resident %5.1f MB, proportional %5.1f MB, of files %5.1f MB, its own %5.1f MB; %d descriptors\n",
                what, mebibytes(memory.resident), mebibytes(memory.proportional), mebibytes(memory.ofFiles()),
                mebibytes(memory.anonymous), descriptors);
    std::fflush(stdout);
}

} // namespace

class ShellSoakTest : public ShellTest
{
  protected:
    void SetUp() override
    {
        QString missing = PrivateSway::missingProgram();
        if (missing.isEmpty()) {
            missing = firstMissing({u"strace"_s});
        }
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        ShellTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        sway = std::make_unique<PrivateSway>(QList<QSize>{{1280, 800}});
        ASSERT_TRUE(sway->isReady());
        QProcessEnvironment &environment = session.environment();
        environment.insert(u"WAYLAND_DISPLAY"_s, sway->runtimeFolder() + u"/wayland-1"_s);
        environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        environment.remove(u"QT_QUICK_BACKEND"_s); // As the program itself chooses.
        service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
            QImage image(960, 540, QImage::Format_RGB32);
            image.fill(Qt::darkCyan);
            return image;
        });
        ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
        ASSERT_EQ(command({u"settings"_s, u"lastPrompt"_s, u"a lake"_s}).status, 0);
        ASSERT_EQ(command({u"settings"_s, u"intervalMinutes"_s, u"1440"_s}).status, 0);
        ASSERT_EQ(command({u"auto"_s, u"on"_s}).status, 0);
        application = startAndWait();
        ASSERT_TRUE(property(u"AutoEnabled"_s).toBool());
    }

    void note(const char *what) const { print(what, memory(), descriptorsOf(application->pid())); }
    [[nodiscard]] ProcessMemory memory() const { return memoryOf(application->pid()); }

    [[nodiscard]] bool hasWindow() const
    {
        return outputOf(u"swaymsg"_s, {u"-rt"_s, u"get_tree"_s}, sway->clientEnvironment())
            .contains("app.quorvane.Quorvane");
    }
    void openWindow()
    {
        (void)call(Control::objectPath(), Control::applicationInterface(), u"Activate"_s, {QVariantMap()});
        ASSERT_TRUE(waitFor([this] { return hasWindow(); }));
    }
    void closeWindow()
    {
        (void)outputOf(u"swaymsg"_s, {u"[title=\".*\"] kill"_s}, sway->clientEnvironment());
        ASSERT_TRUE(waitFor([this] { return !hasWindow(); }));
        // An answer says that what the close left to do is done.
        (void)property(u"Status"_s);
    }

    /// After windows or pictures: the pages of files go last.
    void waitForTidying(const ProcessMemory &busy) const
    {
        EXPECT_TRUE(waitFor([&] { return memory().ofFiles() < busy.ofFiles() / 2; }));
        EXPECT_LE(memory().resident, kMostResident);
    }

    void generate(int times)
    {
        for (int each = 0; each < times; ++each) {
            const QDBusMessage reply =
                call(Control::objectPath(), Control::interfaceName(), u"Generate"_s, {QVariantMap()});
            ASSERT_TRUE(reply.arguments().value(0).toString().contains(u"Wallpaper set!"_s))
                << reply.arguments().value(0).toString().toStdString() << reply.errorMessage().toStdString();
        }
    }

    /// Looks on for two minutes, or ten seconds: the system calls that all threads made.
    [[nodiscard]] QByteArrayList callsWhileIdle() const
    {
        const QString log = session.home().path() + u"/calls"_s;
        const std::chrono::seconds duration(isFull() ? 120 : 10);
        const qint64 ticks = processorTicksOf(application->pid());
        QProcess strace;
        strace.start(u"strace"_s, {u"-f"_s, u"-o"_s, log, u"-p"_s, QString::number(application->pid())});
        EXPECT_TRUE(waitFor([&] { return strace.readAllStandardError().contains("attached"); }));
        (void)waitFor([&strace] { return strace.state() == QProcess::NotRunning; }, duration);
        EXPECT_EQ(strace.state(), QProcess::Running) << strace.readAllStandardError().constData();
        strace.terminate();
        strace.waitForFinished();
        QByteArrayList calls = contentOf(log).split('\n');
        // Not what each thread was waiting in when it was looked at, and is waiting in still.
        calls.removeIf([](const QByteArray &line) {
            return line.isEmpty() || line.contains("resuming interrupted") || line.endsWith("<detached ...>") ||
                   line.contains("<unfinished ...>");
        });
        std::printf("%d s of idling: %d system calls, %lld ticks of processor time\n",
                    static_cast<int>(duration.count()), static_cast<int>(calls.size()),
                    static_cast<long long>(processorTicksOf(application->pid()) - ticks));
        std::fflush(stdout);
        return calls;
    }

    void expectIdle() const
    {
        // Threads that are no longer needed end, and a connection that is no longer needed closes: some calls each,
        // once. A timer that ticks every second would make hundreds.
        const QByteArrayList calls = callsWhileIdle();
        EXPECT_LE(calls.size(), 100) << calls.join('\n').constData();
    }

    std::unique_ptr<PrivateSway> sway;
    std::unique_ptr<Application> application;
};

TEST_F(ShellSoakTest, itIdlesInTheTrayAndItsMemoryDoesNotGrow)
{
    note("in the tray, never opened");
    expectIdle();
    EXPECT_LE(memory().anonymous, kMostOfItsOwn);
    EXPECT_LE(memory().resident, kMostResident);

    openWindow();
    const ProcessMemory open = memory();
    note("window open");
    closeWindow();
    waitForTidying(open);
    note("in the tray again");
    expectIdle();
    const ProcessMemory afterWindow = memory();
    note("the same, later");
    EXPECT_LT(afterWindow.anonymous, open.anonymous);
    if (!hasGraphicsProcessor()) {
        EXPECT_LE(afterWindow.anonymous, kMostOfItsOwnAfterWindows);
    }
    openWindow();
    closeWindow();
    waitForTidying(open);
    note("after the second window");
    EXPECT_LE(memory().anonymous, afterWindow.anonymous + kNoise);

    // The first pictures load what all the others need.
    generate(10);
    const ProcessMemory afterFew = memory();
    const int descriptors = descriptorsOf(application->pid());
    note("after 10 pictures");
    const int more = isFull() ? 990 : 40;
    generate(more);
    const ProcessMemory busy = memory();
    note(isFull() ? "after 1000 pictures" : "after 50 pictures");
    waitForTidying(busy);
    expectIdle();
    note("the same, later");
    EXPECT_LE(descriptorsOf(application->pid()), descriptors);
    EXPECT_LE(memory().anonymous, afterFew.anonymous + kNoise);
}

} // namespace quorvane
