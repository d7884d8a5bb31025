#include "Desktop/System/PowerEventsLogindFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(PowerEventsLogindTest, nobodyElseCanWakeUs)
{
    startLogind();
    tell(false, kStranger);
    EXPECT_EQ(wakings(kStranger), 0);
    stopLogind();
    tell(false, kStranger);
    EXPECT_EQ(wakings(kStranger), 0);
}

TEST_F(PowerEventsLogindTest, aSignalOfAnotherShapeIsIgnored)
{
    startLogind();
    send(kLogind, u"PrepareForSleep"_s);
    send(kLogind, u"PrepareForSleep"_s, {u"false"_s});
    EXPECT_EQ(wakings(), 0);
    tell(false);
    EXPECT_EQ(wakings(), 1);
}

TEST_F(PowerEventsLogindTest, withoutASystemBusThereIsNothingToListenTo)
{
    EXPECT_EQ(probe(u"unix:path=/nonexistent/bus"_s), "none");
}

} // namespace quorvane
