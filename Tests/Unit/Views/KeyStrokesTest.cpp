#include "Views/Keyboard/KeyStrokes.h"

#include <gtest/gtest.h>

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Event
{
    QEvent::Type type;
    quint64 time; ///< In milliseconds.
    bool isMarked = false;
    int key = Qt::Key_Delete;
};

constexpr auto kQuestion = QEvent::ShortcutOverride;
constexpr auto kDown = QEvent::KeyPress;
constexpr auto kUp = QEvent::KeyRelease;

/// How many strokes of the key those events are.
int strokesIn(const std::vector<Event> &events, int key = Qt::Key_Delete)
{
    KeyStrokes strokes;
    int count = 0;
    for (const Event &each : events) {
        QKeyEvent event(each.type, each.key, Qt::NoModifier, QString(), each.isMarked);
        event.setTimestamp(each.time);
        strokes.note(event);
        count += each.type == kDown && each.key == key && !strokes.isRepeat() ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(KeyStrokes, everyPressAfterAReleaseIsAStroke)
{
    EXPECT_EQ(strokesIn({{kDown, 1000}, {kUp, 1080}, {kDown, 1200}, {kUp, 1270}, {kDown, 1300}}), 3);
    EXPECT_EQ(strokesIn({{kDown, 1000}, {kUp, 1080}, {kDown, 1095}}), 2);
    EXPECT_EQ(strokesIn({{kQuestion, 1000}, {kDown, 1000}, {kUp, 1080}, {kQuestion, 1200}, {kDown, 1200}}), 2);
}

TEST(KeyStrokes, aReleaseAndAPressOfTheSameTimeAreAKeyThatIsHeld)
{
    std::vector<Event> events{{kQuestion, 1000}, {kDown, 1000}};
    for (quint64 time = 1660; time < 3000; time += 40) {
        // Qt marks the pairs of which it saw both halves at once.
        const bool isMarked = time % 400 == 60;
        events.insert(events.end(), {{kUp, time, isMarked}, {kQuestion, time, isMarked}, {kDown, time, isMarked}});
    }
    EXPECT_EQ(strokesIn(events), 1);
    events.insert(events.end(), {{kUp, 3010}, {kDown, 3200}});
    EXPECT_EQ(strokesIn(events), 2);
}

TEST(KeyStrokes, aPairThatWasTakenApartOnTheWayIsOneStill)
{
    EXPECT_EQ(strokesIn({{kDown, 1000}, {kUp, 1660}, {kDown, 1662}, {kUp, 1700}, {kDown, 1701}}), 1);
}

TEST(KeyStrokes, aKeyThatIsMarkedOrWasNotLetGoIsHeld)
{
    EXPECT_EQ(strokesIn({{kDown, 1000}, {kDown, 1500, true}, {kDown, 1540, true}, {kUp, 1560}}), 1);
    EXPECT_EQ(strokesIn({{kDown, 1000}, {kDown, 1500}, {kDown, 1540}}), 1);
}

TEST(KeyStrokes, aKeyThatWasHeldAlreadyWhenTheWindowGotTheKeyboardIsHeld)
{
    EXPECT_EQ(strokesIn({{kUp, 1660}, {kDown, 1660}, {kUp, 1700}, {kDown, 1700}}), 0);
}

TEST(KeyStrokes, everyKeyIsTakenForItself)
{
    const std::vector<Event> events{{kDown, 1000, false, Qt::Key_F},
                                    {kDown, 1005},
                                    {kUp, 1010, false, Qt::Key_F},
                                    {kDown, 1012, false, Qt::Key_Delete}};
    EXPECT_EQ(strokesIn(events), 1);
    EXPECT_EQ(strokesIn(events, Qt::Key_F), 1);
}

} // namespace quorvane
