// The portal of a real GNOME, which asks the user before the first picture and remembers the answer.

#include "DesktopPicturePortalFixture.h"

#include "Support/Results.h"

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(DesktopPicturePortalTest, onceAllowedThePictureIsShown)
{
    EXPECT_FALSE(DesktopPicturePortal::answers(m_session->busAddress())) << "nobody has started it yet";
    ASSERT_NO_FATAL_FAILURE(startPortal());
    EXPECT_TRUE(DesktopPicturePortal::answers(m_session->busAddress()));
    ASSERT_NO_FATAL_FAILURE(permit(u"yes"_s));
    const auto desktop = makeDesktop();
    const QList<Screen> screens = desktop->screens();
    ASSERT_EQ(screens.size(), 1);
    EXPECT_EQ(screens.constFirst().pixels, kScreen);
    const QString path = save(QString::fromUtf8("o'brien #1 100% \"q\" \n Ünïcødé 日本/one.png"), 40);
    ASSERT_EQ(desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(waitForPicture(40), QString());
    ASSERT_TRUE(positionPicture(kSource, 200).save(path));
    ASSERT_EQ(desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(waitForPicture(200), QString());

    EXPECT_NE(desktop->setPicture(m_home.path() + u"/missing.png"_s, screens), kDone);
    ASSERT_NO_FATAL_FAILURE(permit(u"no"_s));
    EXPECT_NE(desktop->setPicture(save(u"two.png"_s, 90), screens), kDone);
    EXPECT_EQ(waitForPicture(200), QString());
}

TEST_F(DesktopPicturePortalTest, whileTheUserIsAskedItSaysSoAndWaitsUntilItIsTold)
{
    ASSERT_NO_FATAL_FAILURE(startPortal());
    const QString path = save(u"one.png"_s, 40);
    std::atomic<int> questions = 0;
    const auto ask = [&](DesktopPicturePortal &desktop, const std::function<void()> &then) {
        desktop.asking = [&questions](const QString &line) { questions += line.isEmpty() ? 0 : 1; };
        const int before = questions;
        Result<> shown;
        std::atomic<bool> hasEnded = false;
        std::jthread setting([&] {
            shown = desktop.setPicture(path, desktop.screens());
            hasEnded = true;
        });
        EXPECT_TRUE(waitFor([&] { return questions > before; }, kStartLimit));
        EXPECT_FALSE(hasEnded);
        then();
        EXPECT_TRUE(waitFor([&] { return hasEnded.load(); }, kStartLimit));
        setting.join();
        return wordsOf(shown);
    };

    // The user allows it.
    const auto allowed = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*allowed, [&] { EXPECT_TRUE(waitFor([this] { return shellDid(kAllow); }, kStartLimit)); }),
              u"done"_s);
    EXPECT_EQ(waitForPicture(40), QString());

    ASSERT_NO_FATAL_FAILURE(permit(u"ask"_s));
    // The program ends while the question is open, and no new one is asked.
    const auto ending = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*ending, [&] { ending->stopAsking(); }), u"Nobody waits for the desktop's question any more"_s);

    // Newer portals leave the question open although nobody waits for the answer, and ask no other meanwhile.
    ASSERT_TRUE(waitFor([this] { return shellDid(kNoQuestion); }, kStartLimit));

    // The portal dies.
    const auto orphan = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*orphan, [&] { m_portal->signal(SIGKILL); }), u"The desktop's portal ended before it answered"_s);
}

} // namespace quorvane
