#include "WindowFixture.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace quorvane {

/// With another program beside, which takes what is dropped into its window.
class X11DropTest : public X11WindowTest
{
  protected:
    void prepareDisplay() override
    {
        receiver.emplace(QStringLiteral(DROP_RECEIVER), QStringList(), session.environment(), session.home().path());
        ASSERT_TRUE(waitFor([&] { return server->rootWindow().pixelColor(kTarget) == QColor(Qt::blue); }))
            << receiver->errors().constData();
    }
    void moveTo(QPoint place) const { act({u"mousemove"_s, QString::number(place.x()), QString::number(place.y())}); }
    /// Takes what is at a place and lets it go over the other program; what that was given.
    [[nodiscard]] QByteArray dropped(QPoint from)
    {
        // What was dropped before is forgotten.
        EXPECT_TRUE(waitFor([&] { return isTitled(u"nothing is over it"_s); }));
        moveTo(from);
        act({u"mousedown"_s, u"1"_s});
        // It is carried once the pointer has gone some way, and is over the other program with the first move there.
        moveTo(from + QPoint(20, 5));
        moveTo(from + QPoint(40, 10));
        int step = 0;
        EXPECT_TRUE(waitFor([&] {
            moveTo(kTarget + QPoint(++step % 20, 0));
            return isTitled(u"something is over it"_s);
        }));
        act({u"mouseup"_s, u"1"_s});
        return receiver->readLine().trimmed();
    }
    /// Whether the other program's window has that title.
    [[nodiscard]] bool isTitled(const QString &title) const
    {
        return !outputOf(u"xdotool"_s, {u"search"_s, u"--name"_s, title}, server->clientEnvironment()).isEmpty();
    }
    [[nodiscard]] static QByteArray copyOfPicture()
    {
        return "copy " + QUrl::fromLocalFile(ImageStore::allImages().value(0)).toEncoded();
    }

    static constexpr QPoint kTarget{1080, 400};
    std::optional<OwnedProgram> receiver;
};

TEST_F(X11DropTest, aTileGivesItsFileToTheProgramItIsDroppedOn)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "a lake, 1 picture");
    const auto tile =
        button([](const QString &name) { return name.startsWith("a lake, "_L1) && name != "a lake, 1 picture"_L1; });
    ASSERT_TRUE(tile.has_value());
    EXPECT_EQ(dropped(tree->areaOf(*tile).topLeft() + QPoint(60, 80)), copyOfPicture());
    // It was a drag and no click, and the next one works as well.
    EXPECT_FALSE(tree->find(kButton, u"Close"_s));
    EXPECT_EQ(dropped(tree->areaOf(*tile).topLeft() + QPoint(60, 80)), copyOfPicture());
}

TEST_F(X11DropTest, thePreviewGivesItsFileToTheProgramItIsDroppedOn)
{
    start(server->clientEnvironment(), "xcb");
    openPreview();
    ASSERT_TRUE(waitFor([&] { return server->rootWindow().pixelColor(620, 300) == QColor(Qt::red); }));
    EXPECT_EQ(dropped({620, 300}), copyOfPicture());
    EXPECT_TRUE(comes(kButton, u"Close"_s));
}

} // namespace quorvane
