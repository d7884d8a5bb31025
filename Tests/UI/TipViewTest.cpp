#include "UI/ViewFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kSidebarWidth = 280;

} // namespace

class TipView : public ViewTest
{
  protected:
    /// The panel that is shown, with its frame.
    [[nodiscard]] QRectF panel() const
    {
        const QQuickItem *text = find(u"toolTip"_s);
        const QQuickItem *item = text != nullptr ? text->parentItem()->parentItem()->parentItem() : nullptr;
        return item != nullptr ? item->mapRectToScene(QRectF(0, 0, item->width(), item->height())) : QRectF();
    }
    [[nodiscard]] bool isShown() const { return isSeen(u"toolTip"_s); }
    void hoverOver(const QString &name)
    {
        ASSERT_TRUE(waitFor([&] { return isReachable(name); }));
        hover(middleOf(find(name)));
        ASSERT_TRUE(waitFor([&] { return isShown(); }));
    }
    [[nodiscard]] static QString longText(int words) { return u"mountain "_s.repeated(words).trimmed(); }
};

TEST_F(TipView, anAlbumsTipStandsAtTheAlbumAndNotOverTheSidebar)
{
    QStringList prompts;
    for (int number = 0; number < 4; ++number) {
        prompts.append(QString::number(number) + ' '_L1 + longText(24));
        (void)putPainting(u"%1.png"_s.arg(number), prompts.last());
    }
    start();
    ASSERT_NE(open(), nullptr);
    for (const QString &prompt : std::as_const(prompts)) {
        hoverOver(u"album "_s + prompt);
        EXPECT_EQ(textOf(find(u"toolTip"_s)), prompt);
        const QRectF tile = placeOf(u"album "_s + prompt);
        EXPECT_TRUE(QRectF(QPointF(), window->size()).contains(panel()));
        EXPECT_GT(panel().left(), kSidebarWidth);
        EXPECT_LT(panel().left(), tile.right());
        EXPECT_GT(panel().right(), tile.left());
        EXPECT_LT(std::min(std::abs(panel().bottom() - tile.top()), std::abs(panel().top() - tile.bottom())), 10);
        hover(QPoint(5, 5));
        ASSERT_TRUE(waitFor([&] { return !isShown(); }));
    }
}

TEST_F(TipView, whateverItsLengthItLeavesWhatItExplainsFree)
{
    const QStringList prompts{longText(60), longText(90), longText(800)};
    for (const QString &prompt : prompts) {
        (void)putPainting(QString::number(prompt.size()) + u".png"_s, prompt);
    }
    start();
    ASSERT_NE(open(), nullptr);
    window->resize(960, 640);
    for (const QString &prompt : prompts) {
        const QString album = u"album "_s + prompt;
        hoverOver(album);
        EXPECT_FALSE(panel().intersects(placeOf(album))) << prompt.size();
        click(album);
        EXPECT_TRUE(waitFor([&] { return isReachable(u"albumsButton"_s); }));
        hover(QPoint(5, 5));
        click(u"albumsButton"_s);
        ASSERT_TRUE(waitFor([&] { return !isShown(); }));
    }
}

TEST_F(TipView, anyKeyAndAnyClickEndIt)
{
    const QString prompt = longText(800);
    for (const char *name : {"one.png", "two.png", "three.png"}) {
        (void)putPainting(QLatin1String(name), prompt);
    }
    start();
    ASSERT_NE(open(), nullptr);
    window->resize(960, 640);
    const QString album = u"album "_s + prompt;
    hoverOver(album);
    hover(panel().center().toPoint());
    QTest::mouseClick(window, Qt::LeftButton, {}, panel().center().toPoint());
    EXPECT_TRUE(waitFor([&] { return !isShown(); })) << "by a click in it";

    hover(QPoint(5, 5));
    hoverOver(album);
    hover(panel().center().toPoint());
    find(u"albumGrid"_s)->forceActiveFocus();
    QTest::keyClick(window, Qt::Key_Shift);
    EXPECT_TRUE(waitFor([&] { return !isShown(); })) << "by a key";
}

TEST_F(TipView, theKeyThatEndsItDeletesNothingBelowIt)
{
    const QString prompt = longText(1200);
    for (int number = 0; number < 6; ++number) {
        (void)putPainting(u"%1.png"_s.arg(number), prompt);
    }
    start();
    ASSERT_NE(open(), nullptr);
    window->resize(960, 640);
    click(u"album "_s + prompt);
    const QStringList files = manager->albums().back().images;
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + files[0]); }));
    hover(placeOf(u"tile "_s + files[0]).bottomLeft().toPoint() + QPoint(20, -25));
    ASSERT_TRUE(waitFor([&] { return isShown() && panel().contains(middleOf(find(u"tile "_s + files[2]))); }));
    auto *grid = find(u"imageGrid"_s);
    grid->forceActiveFocus();
    grid->setProperty("currentIndex", 2);
    hold(Qt::Key_Delete, 0);
    EXPECT_TRUE(waitFor([&] { return !isShown(); }));
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 6);
    // Now it is seen.
    hold(Qt::Key_Delete, 0);
    manager->waitUntilIdle();
    EXPECT_FALSE(manager->history().contains(files[2]));
}

TEST_F(TipView, itGoesWithWhatItExplains)
{
    const QString prompt = longText(800);
    (void)putPainting(u"one.png"_s, prompt);
    start();
    ASSERT_NE(open(), nullptr);
    hoverOver(u"album "_s + prompt);
    hover(panel().center().toPoint());
    find(u"albumGrid"_s)->setVisible(false);
    EXPECT_TRUE(waitFor([&] { return !isShown(); }));
}

TEST_F(TipView, aShortTipStandsOverTheMiddleOfItsButton)
{
    const QString path = putPainting(u"one.png"_s, u"a hill"_s);
    start();
    ASSERT_NE(open(), nullptr);
    click(u"album a hill"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + path); }));
    hover(middleOf(find(u"tile "_s + path)));
    hoverOver(u"star"_s);
    EXPECT_LE(std::abs(panel().center().x() - placeOf(u"star"_s).center().x()), panel().width() / 2);
    EXPECT_LT(placeOf(u"star"_s).top() - panel().bottom(), 10);
}

TEST_F(TipView, aPromptThatIsLongerThanTheWindowIsAllThere)
{
    const QString prompt = longText(700) + u" the end"_s;
    const QString path = putPainting(u"one.png"_s, prompt);
    start();
    ASSERT_NE(open(), nullptr);
    click(u"album "_s + prompt);
    const QString tile = u"tile "_s + path;
    ASSERT_TRUE(waitFor([&] { return isReachable(tile); }));
    // Its caption, below the picture.
    hover(QPoint(int(placeOf(tile).center().x()), int(placeOf(tile).top()) + 145));
    ASSERT_TRUE(waitFor([&] { return isShown(); }));
    const QQuickItem *text = find(u"toolTip"_s);
    EXPECT_EQ(textOf(text), prompt);
    EXPECT_FALSE(text->property("truncated").toBool());
    EXPECT_TRUE(QRectF(QPointF(), window->size()).contains(panel()));
    EXPECT_GT(text->height(), panel().height());

    // The wheel leads to its end; the pointer that is in it keeps it.
    EXPECT_TRUE(waitFor([&] {
        turnWheelDown(panel().center().toPoint());
        return placeOf(u"toolTip"_s).bottom() <= panel().bottom();
    }));
    EXPECT_TRUE(isShown());

    // It goes when the pointer does.
    hover(QPoint(5, 5));
    EXPECT_TRUE(waitFor([&] { return !isShown(); }));
}

} // namespace quorvane
