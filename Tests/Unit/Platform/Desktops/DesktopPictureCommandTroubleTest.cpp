#include "Unit/Platform/Desktops/DesktopPictureCommandFixture.h"

#include "Support/Results.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(DesktopPictureCommandTest, aFailureIsDescribedByStandardErrorAndStopsThere)
{
    EXPECT_EQ(set(script("echo call >> \"$here/calls\"; echo; echo '  no such outpüt '; echo ignored >&1\n"
                         "echo '  no such outpüt ' >&2; exit 3")),
              Failure{QString::fromUtf8("no such outpüt")});
    EXPECT_EQ(content("calls"), "call\n");
}

TEST_F(DesktopPictureCommandTest, aSilentFailureIsDescribedByItsStatus)
{
    const QString silent = script("exit 3");
    EXPECT_EQ(set(silent), Failure{u"The wallpaper command \"%1\" ended with status 3"_s.arg(silent)});
    const QString killed = script("kill -9 $$");
    EXPECT_EQ(set(killed), Failure{u"The wallpaper command \"%1\" was ended by a signal"_s.arg(killed)});
}

TEST_F(DesktopPictureCommandTest, aProgramThatIsNotThereIsNamed)
{
    const QString words = wordsOf(set(u"/nowhere/setter"_s));
    EXPECT_TRUE(words.startsWith(u"The wallpaper command \"/nowhere/setter\" cannot be started: "_s))
        << words.toStdString();
    EXPECT_TRUE(words.contains(u"No such file"_s)) << words.toStdString();
}

} // namespace quorvane
