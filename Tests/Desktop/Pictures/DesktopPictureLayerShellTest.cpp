// The backgrounds of our own surfaces on a real sway, judged by the pixels of its outputs.

#include "Platform/Desktops/DesktopPictureLayerShell.h"

#include "Platform/Wayland/WaylandFacts.h"
#include "Support/Desktop/NestedSway.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QDir>

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <thread>

#include <sys/syscall.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kFirst = u"HEADLESS-1"_s;
const QString kSecond = u"HEADLESS-2"_s;
constexpr QSize kSource(1200, 1000);

/// A picture with as much detail as its pixels can have, so that any scaling or moving would be seen.
QImage finePicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525U + 1013904223U;
            picture.setPixel(x, y, 0xff000000U | (state >> 8U));
        }
    }
    return picture;
}

/// The one thread of this process that has the name.
QString folderOfThread(const QByteArray &name)
{
    const QDir tasks(u"/proc/self/task"_s);
    const QStringList ids = tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &id : ids) {
        if (contentOf(tasks.filePath(id) + u"/comm"_s).trimmed() == name) {
            return tasks.filePath(id);
        }
    }
    return {};
}

/// Whether the thread waits for descriptors, for as long as it takes.
bool sleepsWithoutLimit(const QString &thread)
{
    const QList<QByteArray> words = contentOf(thread + u"/syscall"_s).split(' ');
    if (words.size() < 4) {
        return false;
    }
    const int number = words.at(0).toInt();
    const quint64 third = words.at(3).toULongLong(nullptr, 0);
#ifdef SYS_poll
    if (number == SYS_poll) {
        return static_cast<qint32>(third) == -1; // Milliseconds.
    }
#endif
    return number == SYS_ppoll && third == 0; // A pointer to the limit.
}

QByteArray wakeUpsOf(const QString &thread)
{
    const QByteArray status = contentOf(thread + u"/status"_s);
    return status.mid(status.indexOf("voluntary_ctxt_switches")).split('\n').value(0);
}

} // namespace

class DesktopPictureLayerShellTest : public testing::Test
{
  protected:
    void start(const QList<QSize> &outputs = {QSize(800, 450), QSize(400, 600)})
    {
        m_sway = std::make_unique<PrivateSway>(outputs);
        ASSERT_TRUE(m_sway->isReady());
        m_desktop = makeDesktop();
    }

    void SetUp() override
    {
        const QString missing = PrivateSway::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
    }

    [[nodiscard]] QString display() const { return m_sway->runtimeFolder() + u"/wayland-1"_s; }

    [[nodiscard]] std::unique_ptr<DesktopPictureLayerShell>
    makeDesktop(std::chrono::milliseconds limit = kDesktopLimit) const
    {
        return std::make_unique<DesktopPictureLayerShell>(display(), QString(), ProgramLife::Application, limit);
    }

    [[nodiscard]] QString save(const QString &name, const QImage &picture) const
    {
        const QString path = m_home.path() + '/'_L1 + name;
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(picture.save(path, "png"));
        return path;
    }
    [[nodiscard]] QString save(const QString &name, int mark) const
    {
        return save(name, positionPicture(kSource, mark));
    }

    void tell(const char *command) const
    {
        EXPECT_FALSE(outputOf(u"swaymsg"_s, {QString::fromUtf8(command)}, m_sway->clientEnvironment()).isNull())
            << command;
    }

    /// Why the output does not come to show the picture with the mark; empty when it does.
    template <typename Sway>
    [[nodiscard]] static QString waitForPicture(const Sway &sway, const QString &output, int mark)
    {
        QString difference;
        (void)waitFor(
            [&] { return (difference = differenceFromFill(sway.screenshot(output), kSource, mark)).isEmpty(); });
        return difference;
    }
    [[nodiscard]] QString waitForBoth(int mark) const
    {
        return waitForPicture(*m_sway, kFirst, mark) + waitForPicture(*m_sway, kSecond, mark);
    }

    PrivateHome m_home;
    std::unique_ptr<PrivateSway> m_sway;
    std::unique_ptr<DesktopPictureLayerShell> m_desktop;
};

TEST_F(DesktopPictureLayerShellTest, fillsEachOutputAroundTheCentreAndRefreshesTheSamePath)
{
    start();
    // Each version of sway tells them in another order.
    const QList<Screen> screens = m_desktop->screens();
    ASSERT_EQ(screens.size(), 2);
    EXPECT_TRUE(screens.contains({kFirst, QSize(800, 450)}));
    EXPECT_TRUE(screens.contains({kSecond, QSize(400, 600)}));
    const QString path = save(QString::fromUtf8("o'brien $(x) #1 100% \"q\" \n Ünïcødé 日本/one.png"), 40);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForBoth(40), QString());
    const QByteArray screenshots = qgetenv("QUORVANE_TEST_SCREENSHOTS");
    if (!screenshots.isEmpty()) {
        m_sway->screenshot(kFirst).save(QFile::decodeName(screenshots) + u"/layer-shell-1.png"_s);
        m_sway->screenshot(kSecond).save(QFile::decodeName(screenshots) + u"/layer-shell-2.png"_s);
    }
    ASSERT_TRUE(positionPicture(kSource, 200).save(path));
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForBoth(200), QString());
}

TEST_F(DesktopPictureLayerShellTest, thePictureGoesWithTheObject)
{
    start();
    const QImage before = m_sway->screenshot(kFirst);
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), m_desktop->screens()), kDone);
    ASSERT_EQ(waitForBoth(40), QString());
    EXPECT_TRUE(m_desktop->endsWithTheProgram());
    m_desktop.reset();
    EXPECT_TRUE(waitFor([&] { return m_sway->screenshot(kFirst) == before; }));
}

TEST_F(DesktopPictureLayerShellTest, isExactToThePixelAtAnyScaleAndTurn)
{
    start({QSize(800, 450)});
    const auto shows = [this](const QImage &picture) {
        return waitFor([&] { return m_sway->screenshot(kFirst).convertToFormat(QImage::Format_RGB32) == picture; });
    };
    const QImage wide = finePicture(QSize(800, 450));
    ASSERT_EQ(m_desktop->setPicture(save(u"wide.png"_s, wide), m_desktop->screens()), kDone);
    EXPECT_TRUE(shows(wide));
    // The surface follows each change by itself.
    for (const char *scale : {"output HEADLESS-1 scale 2", "output HEADLESS-1 scale 1.25"}) {
        tell(scale);
        EXPECT_TRUE(shows(wide)) << scale;
    }
    tell("output HEADLESS-1 scale 1 transform 90");
    ASSERT_TRUE(waitFor([&] { return m_desktop->screens().value(0).pixels == QSize(450, 800); }));
    const QImage high = finePicture(QSize(450, 800));
    ASSERT_EQ(m_desktop->setPicture(save(u"high.png"_s, high), m_desktop->screens()), kDone);
    EXPECT_TRUE(shows(high));
}

TEST_F(DesktopPictureLayerShellTest, followsModesScalesTurnsAndNewOutputsByItself)
{
    start();
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 90), m_desktop->screens()), kDone);
    ASSERT_EQ(waitForBoth(90), QString());
    tell("output HEADLESS-1 mode 1024x768");
    ASSERT_TRUE(waitFor([&] { return m_sway->screenshot(kFirst).size() == QSize(1024, 768); }));
    EXPECT_EQ(waitForPicture(*m_sway, kFirst, 90), QString());
    tell("output HEADLESS-1 scale 2");
    EXPECT_EQ(waitForPicture(*m_sway, kFirst, 90), QString());
    tell("output HEADLESS-2 transform 270");
    ASSERT_TRUE(waitFor([&] { return m_sway->screenshot(kSecond).size() == QSize(600, 400); }));
    EXPECT_EQ(waitForPicture(*m_sway, kSecond, 90), QString());
    tell("create_output");
    EXPECT_EQ(waitForPicture(*m_sway, u"HEADLESS-3"_s, 90), QString());
}

TEST_F(DesktopPictureLayerShellTest, anOutputThatIsUnpluggedAndComesBackShowsThePicture)
{
    const PrivateSway outer({QSize(1000, 600)});
    ASSERT_TRUE(outer.isReady());
    const NestedSway inner(outer, 2);
    ASSERT_TRUE(inner.isReady());
    DesktopPictureLayerShell desktop(outer.runtimeFolder() + u"/wayland-2"_s, QString(), ProgramLife::Application);
    ASSERT_EQ(desktop.screens().size(), 2);
    ASSERT_EQ(desktop.setPicture(save(u"one.png"_s, 120), desktop.screens()), kDone);
    EXPECT_EQ(waitForPicture(inner, u"WL-2"_s, 120), QString());
    ASSERT_TRUE(inner.unplug(u"WL-2"_s));
    ASSERT_TRUE(waitFor([&] { return desktop.screens().size() == 1; }));
    ASSERT_TRUE(inner.plugIn());
    EXPECT_EQ(waitForPicture(inner, u"WL-3"_s, 120), QString());
    EXPECT_EQ(waitForPicture(inner, u"WL-1"_s, 120), QString());
}

TEST_F(DesktopPictureLayerShellTest, onePictureFollowsTheOtherWithoutAFrameInBetween)
{
    start({QSize(800, 450)});
    const QString even = save(u"even.png"_s, 40);
    const QString odd = save(u"odd.png"_s, 200);
    ASSERT_EQ(m_desktop->setPicture(even, m_desktop->screens()), kDone);
    ASSERT_EQ(waitForPicture(*m_sway, kFirst, 40), QString());
    std::atomic<int> shots = 0;
    std::atomic<int> neither = 0;
    std::jthread watching([&](const std::stop_token &stop) {
        while (!stop.stop_requested()) {
            const QImage shot = m_sway->screenshot(kFirst);
            const bool isOne =
                differenceFromFill(shot, kSource, 40).isEmpty() || differenceFromFill(shot, kSource, 200).isEmpty();
            neither += isOne ? 0 : 1;
            ++shots;
        }
    });
    for (int turn = 0; shots < 20; ++turn) {
        ASSERT_EQ(m_desktop->setPicture(turn % 2 == 0 ? odd : even, m_desktop->screens()), kDone);
    }
    watching.request_stop();
    watching.join();
    EXPECT_EQ(neither, 0) << "of " << shots;
}

TEST_F(DesktopPictureLayerShellTest, sleepsOnceItHasDrawnAndHoldsNothing)
{
    start();
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), m_desktop->screens()), kDone);
    ASSERT_EQ(waitForBoth(40), QString());
    const QString thread = folderOfThread("wallpaper");
    ASSERT_NE(thread, QString());
    if (contentOf(thread + u"/syscall"_s).isEmpty()) {
        GTEST_SKIP() << "this kernel does not tell what a thread waits for";
    }
    ASSERT_TRUE(waitFor([&] { return sleepsWithoutLimit(thread); }));
    const QByteArray before = wakeUpsOf(thread);
    for (int frame = 0; frame < 5; ++frame) {
        EXPECT_FALSE(m_sway->screenshot(kFirst).isNull());
    }
    EXPECT_EQ(wakeUpsOf(thread), before) << "frames of the compositor are none of its business";
    EXPECT_TRUE(sleepsWithoutLimit(thread));
    EXPECT_FALSE(contentOf(u"/proc/self/maps"_s).contains("memfd:wallpaper"));
    const QDir descriptors(u"/proc/self/fd"_s);
    const QStringList names = descriptors.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
    for (const QString &name : names) {
        EXPECT_FALSE(QFile::symLinkTarget(descriptors.filePath(name)).contains(u"memfd:wallpaper"_s));
    }
}

TEST_F(DesktopPictureLayerShellTest, refusesWhatItCannotShowAndLeavesThePictureThatIsThere)
{
    start();
    const QList<Screen> screens = m_desktop->screens();
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), screens), kDone);
    EXPECT_NE(m_desktop->setPicture(m_home.path() + u"/missing.png"_s, screens), kDone);
    const QString other = save(u"other.png"_s, 240);
    EXPECT_EQ(m_desktop->setPicture(other, screens + QList<Screen>{{u"DP-9"_s, QSize(1, 1)}}),
              Failure{u"The compositor has no screen \"DP-9\""_s});
    DesktopPictureLayerShell command(display(), QString(), ProgramLife::OneCommand);
    EXPECT_EQ(command.screens(), screens);
    EXPECT_TRUE(wordsOf(command.setPicture(other, screens)).contains(u"start Quorvane"_s));
    EXPECT_EQ(waitForBoth(40), QString());
}

TEST_F(DesktopPictureLayerShellTest, aKilledCompositorIsAnErrorAndHasNoScreens)
{
    start();
    const QList<Screen> screens = m_desktop->screens();
    const QString path = save(u"one.png"_s, 40);
    ASSERT_EQ(m_desktop->setPicture(path, screens), kDone);
    m_sway->program().signal(SIGSTOP);
    Result<> shown;
    std::jthread setting([&] { shown = m_desktop->setPicture(path, screens); });
    m_sway->program().signal(SIGKILL); // Wherever the other thread is by now, it was not answered.
    setting.join();
    EXPECT_FALSE(shown);
    EXPECT_EQ(m_desktop->screens(), QList<Screen>());
    EXPECT_EQ(m_desktop->setPicture(path, screens), Failure{u"The compositor cannot be reached"_s});
}

TEST_F(DesktopPictureLayerShellTest, aCompositorThatHangsIsGivenUpAndKeepsItsPicture)
{
    start();
    const QList<Screen> screens = m_desktop->screens();
    const auto impatient = makeDesktop(std::chrono::milliseconds(1000));
    ASSERT_EQ(impatient->setPicture(save(u"one.png"_s, 40), screens), kDone);
    m_sway->program().signal(SIGSTOP);
    EXPECT_EQ(impatient->setPicture(save(u"two.png"_s, 90), screens), Failure{u"The compositor does not answer"_s});
    m_sway->program().signal(SIGCONT);
    EXPECT_EQ(waitForBoth(40), QString());
    ASSERT_EQ(impatient->setPicture(save(u"three.png"_s, 140), screens), kDone);
    EXPECT_EQ(waitForBoth(140), QString());
}

TEST_F(DesktopPictureLayerShellTest, whatACompositorOffersIsToldWithoutStaying)
{
    start();
    const WaylandFacts facts = waylandFacts(display(), QDeadlineTimer(kDesktopLimit));
    EXPECT_TRUE(facts.isConnected);
    EXPECT_TRUE(facts.hasLayerShell);
    EXPECT_EQ(facts.screens.size(), 2);
    EXPECT_FALSE(waylandFacts(u"nobody-listens"_s, QDeadlineTimer(kDesktopLimit)).isConnected);
    EXPECT_FALSE(waylandFacts(QString(), QDeadlineTimer(kDesktopLimit)).isConnected);
}

} // namespace quorvane
