// The windows in other languages: every text has its place, and languages from right to left mirror the whole.

#include "Manager/SettingsKeys.h"
#include "Support/SpokenLanguage.h"
#include "UI/ViewFixture.h"

#include <cstdlib>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvane {

class TranslatedView : public ViewTest, public testing::WithParamInterface<const char *>
{
  protected:
    ~TranslatedView() override { QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto); }

    /// Everything that the windows can say at once: missing keys, a schedule, a warning, albums and a favourite.
    void putEverything()
    {
        store(SettingsKeys::kLastPrompt, u"a lake"_s);
        store(SettingsKeys::kFourKEnabled, true);
        store(SettingsKeys::kAutoEnabled, true);
        store(SettingsKeys::kIntervalMinutes, 1440);
        store(SettingsKeys::kProviderOverride, u"grok"_s);
        (void)putPainting(u"a.png"_s, u"a lake"_s);
        (void)putPainting(u"b.png"_s, QString());
        start();
        manager->toggleFavorite(manager->history().first());
        manager->waitUntilIdle();
        manager->generateAndSet();
    }

    /// The texts in the window that are cut, or reach out of it.
    [[nodiscard]] std::string cutTexts() const
    {
        QStringList cut;
        collectCut(window->contentItem(), cut);
        return cut.join('\n'_L1).toStdString();
    }

    enum class Side { Left, Right, Unclear };

    /// Where the chevron that is painted in the button points to: its tip is in the middle of its height.
    [[nodiscard]] Side pointsTo(const QString &name) const
    {
        const QQuickItem *symbol = symbolBelow(find(name));
        if (symbol == nullptr) {
            ADD_FAILURE() << "no symbol in " << name.toStdString();
            return Side::Unclear;
        }
        const QRectF place = symbol->mapRectToScene(QRectF(0, 0, symbol->width(), symbol->height()));
        const QImage image = window->grabWindow().copy(place.toRect());
        const auto inkOf = [&](int x, int y) { return std::abs(qGray(image.pixel(x, y)) - qGray(image.pixel(0, 0))); };
        const auto middleOfRows = [&](int first, int end) {
            double sum = 0;
            double weighted = 0;
            for (int y = first; y < end; ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    sum += inkOf(x, y);
                    weighted += x * inkOf(x, y);
                }
            }
            return weighted / sum;
        };
        const int height = image.height();
        const double shift = middleOfRows(height * 3 / 8, height * 5 / 8) - middleOfRows(0, height * 3 / 8);
        return shift < -1 ? Side::Left : shift > 1 ? Side::Right : Side::Unclear;
    }

    void settle()
    {
        (void)waitFor([] { return false; }, std::chrono::milliseconds(300));
    }

  private:
    [[nodiscard]] static const QQuickItem *symbolBelow(const QQuickItem *item)
    {
        if (item == nullptr || !item->isVisible()) {
            return nullptr; // A button's spinner has a symbol, too.
        }
        if (item->property("isDirected").isValid()) {
            return item;
        }
        const QQuickItem *found = nullptr;
        for (const QQuickItem *child : item->childItems()) {
            found = found != nullptr ? found : symbolBelow(child);
        }
        return found;
    }
    void collectCut(const QQuickItem *item, QStringList &cut) const
    {
        if (!item->isVisible()) {
            return;
        }
        if (item->inherits("QQuickText")) {
            const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
            const bool isWithin = place.left() >= 0 && place.right() <= window->width();
            const bool isWhole =
                !item->property("truncated").toBool() && item->property("contentWidth").toDouble() <= item->width() + 1;
            if (!textOf(item).isEmpty() && !(isWithin && isWhole)) {
                cut.append(textOf(item));
            }
        }
        for (const QQuickItem *child : item->childItems()) {
            collectCut(child, cut);
        }
    }
};

TEST_P(TranslatedView, everyTextHasItsPlace)
{
    const SpokenLanguage spoken{QLatin1String(GetParam())};
    putEverything();
    ASSERT_NE(open(), nullptr);
    window->setWidth(window->minimumWidth());
    EXPECT_TRUE(waitFor([&] { return isSeen(u"album a lake"_s) && isSeen(u"status"_s); }));
    settle();
    EXPECT_EQ(cutTexts(), "");
    click(u"album a lake"_s);
    EXPECT_TRUE(waitFor([&] { return isReachable(u"albumsButton"_s); }));
    settle();
    EXPECT_EQ(cutTexts(), "");
    click(u"tile "_s + ImageStore::directory() + u"/a.png"_s);
    EXPECT_TRUE(waitFor([&] { return isReachable(u"upscaleButton"_s); }));
    settle();
    EXPECT_EQ(cutTexts(), "");

    ASSERT_NE(open(u"SettingsWindow"_s), nullptr);
    settle();
    EXPECT_EQ(cutTexts(), "");
    click(u"advancedTab"_s);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"upscaleMethodRow"_s); }));
    settle();
    EXPECT_EQ(cutTexts(), "");
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslatedView, testing::Values("en", "de", "es", "fr", "ja", "zh-CN"),
                         [](const auto &each) { return QByteArray(each.param).replace('-', "").toStdString(); });

TEST_F(TranslatedView, aLanguageFromRightToLeftMirrorsTheMainWindow)
{
    QGuiApplication::setLayoutDirection(directionFor({u"ar-EG"_s}));
    putEverything();
    ASSERT_NE(open(), nullptr);
    EXPECT_TRUE(waitFor([&] { return isReachable(u"album a lake"_s); }));
    const double width = window->width();
    EXPECT_EQ(placeOf(u"generateButton"_s), QRectF(width - 260, placeOf(u"generateButton"_s).y(), 240, 40));
    EXPECT_GT(placeOf(u"providerName"_s).left(), width - 140);
    EXPECT_LT(placeOf(u"intervalPicker"_s).left(), width - 200);
    // The first album stands on the right, and the way back with it.
    EXPECT_EQ(placeOf(u"album Favorites"_s).right(), width - 280 - 24);
    click(u"album a lake"_s);
    EXPECT_TRUE(waitFor([&] { return isReachable(u"albumsButton"_s); }));
    EXPECT_EQ(placeOf(u"albumsButton"_s).right(), width - 280 - 24);
    EXPECT_TRUE(waitFor([&] { return pointsTo(u"albumsButton"_s) == Side::Right; }));
    EXPECT_LT(placeOf(u"usePromptButton"_s).left(), 40);
    const QString tile = u"tile "_s + ImageStore::directory() + u"/a.png"_s;
    ASSERT_TRUE(waitFor([&] { return isReachable(tile); }));
    EXPECT_LT(placeOf(u"star"_s).left(), placeOf(tile).center().x());
}

TEST_F(TranslatedView, thePreviewStepsTowardsTheArrowInEitherDirection)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QGuiApplication::setLayoutDirection(direction);
        if (direction == Qt::LeftToRight) {
            putEverything();
        }
        ASSERT_NE(open(), nullptr);
        EXPECT_TRUE(waitFor([&] { return isReachable(u"album Favorites"_s); }));
        click(u"album Favorites"_s);
        const QString first = u"tile "_s + manager->history().first();
        EXPECT_TRUE(waitFor([&] { return isReachable(first); }));
        click(first);
        EXPECT_TRUE(waitFor([&] { return isReachable(u"closeButton"_s); }));
        const bool previousIsLeft = placeOf(u"leftButton"_s).center().x() < placeOf(u"rightButton"_s).center().x();
        EXPECT_EQ(previousIsLeft, direction == Qt::LeftToRight);
        // Both point outward.
        const Side back = previousIsLeft ? Side::Left : Side::Right;
        const Side forward = previousIsLeft ? Side::Right : Side::Left;
        EXPECT_TRUE(waitFor([&] { return pointsTo(u"leftButton"_s) == back; }));
        EXPECT_TRUE(waitFor([&] { return pointsTo(u"rightButton"_s) == forward; }));
    }
}

TEST_F(TranslatedView, aSpecialAlbumIsShownByItsTranslatedName)
{
    const SpokenLanguage german(u"de"_s);
    putEverything();
    ASSERT_NE(open(), nullptr);
    click(u"album Favorites"_s);
    EXPECT_TRUE(waitFor([&] { return isReachable(u"albumsButton"_s); }));
    EXPECT_EQ(textOf(find(u"albumTitle"_s)), u"Favoriten"_s);
    EXPECT_EQ(textOf(find(u"albumsButton"_s)), u"Alben"_s);
    EXPECT_FALSE(isSeen(u"usePromptButton"_s));
}

TEST_F(TranslatedView, theSettingsAreMirroredToo)
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    start();
    ASSERT_NE(open(u"SettingsWindow"_s), nullptr);
    EXPECT_TRUE(waitFor([&] { return isReachable(u"geminiSave"_s); }));
    EXPECT_LT(placeOf(u"geminiSave"_s).left(), placeOf(u"geminiField"_s).left());
    EXPECT_GT(placeOf(u"apiKeysTab"_s).left(), placeOf(u"advancedTab"_s).left());
}

} // namespace quorvane
