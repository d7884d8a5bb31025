#include "Desktop/Pictures/DesktopPictureLayerShellFixture.h"

#include "Support/Files.h"
#include "Support/Results.h"

#include <csignal>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

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

} // namespace quorvane
