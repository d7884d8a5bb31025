#include "Unit/Platform/Desktops/DesktopPictureCommandFixture.h"

#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(DesktopPictureCommandTest, isCalledOncePerScreenInOrderWithTheFileAndTheName)
{
    EXPECT_EQ(set(script(R"(printf '%s|%s|%s\n' "$#" "$1" "$2" >> "$here/calls")")), kDone);
    EXPECT_EQ(content("calls"), "2|/picture.png|DP-1\n2|/picture.png|DP-2\n");
}

TEST_F(DesktopPictureCommandTest, awkwardFileNamesArriveAsTheyAre)
{
    const QString path = QString::fromUtf8("/o'brien/a  b \"q\" $(touch x) `x` \\ #%;\n-- Ünïcødé 日本.png");
    EXPECT_EQ(set(script(R"(printf '%s' "$1" > "$here/argument")"), path), kDone);
    EXPECT_EQ(content("argument"), path.toUtf8());
}

TEST_F(DesktopPictureCommandTest, standardErrorMayBeOpenedByName)
{
    EXPECT_EQ(set(script("echo 'by name' > /dev/stderr; exit 1")), Failure{u"by name"_s});
}

TEST_F(DesktopPictureCommandTest, theDescriptionIsBoundedAndAFloodIsKilled)
{
    const auto longText = set(script("head -c 100000 /dev/zero | tr '\\0' x >&2; exit 1"));
    EXPECT_EQ(longText, Failure{QString(1000, 'x'_L1)});
    const auto flood = set(script("while :; do echo flood >&2; head -c 1000000 /dev/zero >&2; done"));
    EXPECT_TRUE(wordsOf(flood).startsWith(u"flood"_s));
}

TEST_F(DesktopPictureCommandTest, whatHangsIsKilledWithAllItStarted)
{
    const QString hanging =
        script("sleep 100 &\necho $! > \"$here/child.new\"; mv \"$here/child.new\" \"$here/child\"\n"
               "wait");
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(set(hanging, u"/p"_s, std::chrono::milliseconds(1500)),
              Failure{u"The wallpaper command \"%1\" did not end within 1.5 seconds"_s.arg(hanging)});
    EXPECT_LT(clock.elapsed(), 5000);
    const QByteArray child = content("child").trimmed();
    ASSERT_GT(child.toInt(), 0);
    // Killed, it takes a moment to end, and may stay in the table of processes until its new parent has looked.
    EXPECT_TRUE(waitFor([&child] {
        QFile state(u"/proc/%1/stat"_s.arg(QString::fromLatin1(child)));
        return !state.open(QIODevice::ReadOnly) || state.readAll().contains(") Z ");
    }));
}

TEST_F(DesktopPictureCommandTest, aPainterLeftBehindLivesOn)
{
    // It writes to its standard error after the command ended, which must neither kill it nor hold us up.
    const QByteArray text = "(while [ -d \"$here\" ] && [ ! -e \"$here/go\" ]; do sleep 0.02; done; echo painting >&2; "
                            "echo x > \"$here/done\") "
                            "&\n";
    EXPECT_EQ(set(script(text)), kDone);
    QFile go(m_home.path() + u"/go"_s);
    ASSERT_TRUE(go.open(QIODevice::WriteOnly));
    EXPECT_TRUE(waitFor([&] { return QFile::exists(m_home.path() + u"/done"_s); }));
}

TEST_F(DesktopPictureCommandTest, withoutAListOfScreensThereIsTheDefaultOne)
{
    DesktopPictureCommand desktop(script(R"(printf '%s' "$2" >> "$here/calls")"), u"why"_s,
                                  std::make_unique<DesktopPictureUnimplemented>(QString()));
    EXPECT_EQ(desktop.name(), u"command"_s);
    EXPECT_EQ(desktop.reason(), u"why"_s);
    EXPECT_EQ(desktop.screens(), (QList<Screen>{{u"default"_s, QSize(0, 0)}}));
    EXPECT_EQ(desktop.setPicture(u"/p"_s, desktop.screens()), kDone);
    EXPECT_EQ(content("calls"), "default");
}

} // namespace quorvane
