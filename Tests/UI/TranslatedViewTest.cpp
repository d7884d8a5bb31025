// The windows in other languages: every text has its place, and languages from right to left mirror the whole.

#include "Manager/SettingsKeys.h"
#include "Support/SpokenLanguage.h"
#include "UI/ViewFixture.h"

#include <optional>

namespace quorvane {

class TranslatedView : public ViewTest, public testing::WithParamInterface<const char *>
{
  protected:
    ~TranslatedView() override { QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto); }

    /// Everything that the windows can say at once: missing keys, a schedule, a warning, albums and a favourite.
    void putEverything()
    {
        store(SettingsKeys::kLastPrompt, QStringLiteral("a lake"));
        store(SettingsKeys::kFourKEnabled, true);
        store(SettingsKeys::kAutoEnabled, true);
        store(SettingsKeys::kIntervalMinutes, 1440);
        store(SettingsKeys::kProviderOverride, QStringLiteral("grok"));
        (void)putPainting(QStringLiteral("a.png"), QStringLiteral("a lake"));
        (void)putPainting(QStringLiteral("b.png"), QString());
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
        return cut.join(QLatin1Char('\n')).toStdString();
    }

    /// Where the item lies in its window.
    [[nodiscard]] QRectF placeOf(const QString &name) const
    {
        const QQuickItem *item = find(name);
        return item != nullptr ? item->mapRectToScene(QRectF(0, 0, item->width(), item->height())) : QRectF();
    }

    void settle()
    {
        (void)waitFor([] { return false; }, std::chrono::milliseconds(300));
    }

  private:
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
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("album a lake")) && isSeen(QStringLiteral("status")); }));
    settle();
    EXPECT_EQ(cutTexts(), "");
    click(QStringLiteral("album a lake"));
    EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("albumsButton")); }));
    settle();
    EXPECT_EQ(cutTexts(), "");
    click(QStringLiteral("tile ") + ImageStore::directory() + QStringLiteral("/a.png"));
    EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("upscaleButton")); }));
    settle();
    EXPECT_EQ(cutTexts(), "");

    ASSERT_NE(open(QStringLiteral("SettingsWindow")), nullptr);
    settle();
    EXPECT_EQ(cutTexts(), "");
    click(QStringLiteral("advancedTab"));
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("upscaleMethodRow")); }));
    settle();
    EXPECT_EQ(cutTexts(), "");
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslatedView, testing::Values("en", "de", "es", "fr", "ja", "zh-CN"),
                         [](const auto &each) { return QByteArray(each.param).replace('-', "").toStdString(); });

TEST_F(TranslatedView, aLanguageFromRightToLeftMirrorsTheMainWindow)
{
    QGuiApplication::setLayoutDirection(directionFor({QStringLiteral("ar-EG")}));
    putEverything();
    ASSERT_NE(open(), nullptr);
    EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("album a lake")); }));
    const double width = window->width();
    EXPECT_EQ(placeOf(QStringLiteral("generateButton")),
              QRectF(width - 260, placeOf(QStringLiteral("generateButton")).y(), 240, 40));
    EXPECT_GT(placeOf(QStringLiteral("providerName")).left(), width - 140);
    EXPECT_LT(placeOf(QStringLiteral("intervalPicker")).left(), width - 200);
    // The first album stands on the right, and the way back with it.
    EXPECT_EQ(placeOf(QStringLiteral("album Favorites")).right(), width - 280 - 24);
    click(QStringLiteral("album a lake"));
    EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("albumsButton")); }));
    EXPECT_EQ(placeOf(QStringLiteral("albumsButton")).right(), width - 280 - 24);
    EXPECT_EQ(find(QStringLiteral("albumsButton"))->property("symbol"), QStringLiteral("chevron.right"));
    EXPECT_LT(placeOf(QStringLiteral("usePromptButton")).left(), 40);
    const QString tile = QStringLiteral("tile ") + ImageStore::directory() + QStringLiteral("/a.png");
    ASSERT_TRUE(waitFor([&] { return isReachable(tile); }));
    EXPECT_LT(placeOf(QStringLiteral("star")).left(), placeOf(tile).center().x());
}

TEST_F(TranslatedView, thePreviewStepsTowardsTheArrowInEitherDirection)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QGuiApplication::setLayoutDirection(direction);
        if (direction == Qt::LeftToRight) {
            putEverything();
        }
        ASSERT_NE(open(), nullptr);
        EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("album Favorites")); }));
        click(QStringLiteral("album Favorites"));
        const QString first = QStringLiteral("tile ") + manager->history().first();
        EXPECT_TRUE(waitFor([&] { return isReachable(first); }));
        click(first);
        EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("closeButton")); }));
        const bool previousIsLeft =
            placeOf(QStringLiteral("leftButton")).center().x() < placeOf(QStringLiteral("rightButton")).center().x();
        EXPECT_EQ(previousIsLeft, direction == Qt::LeftToRight);
        EXPECT_EQ(find(QStringLiteral("leftButton"))->property("symbol"),
                  previousIsLeft ? QStringLiteral("chevron.left") : QStringLiteral("chevron.right"));
    }
}

TEST_F(TranslatedView, aSpecialAlbumIsShownByItsTranslatedName)
{
    const SpokenLanguage german(QStringLiteral("de"));
    putEverything();
    ASSERT_NE(open(), nullptr);
    click(QStringLiteral("album Favorites"));
    EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("albumsButton")); }));
    EXPECT_EQ(textOf(find(QStringLiteral("albumTitle"))), QStringLiteral("Favoriten"));
    EXPECT_EQ(textOf(find(QStringLiteral("albumsButton"))), QStringLiteral("Alben"));
    EXPECT_FALSE(isSeen(QStringLiteral("usePromptButton")));
}

TEST_F(TranslatedView, theSettingsAreMirroredToo)
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    start();
    ASSERT_NE(open(QStringLiteral("SettingsWindow")), nullptr);
    EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("geminiSave")); }));
    EXPECT_LT(placeOf(QStringLiteral("geminiSave")).left(), placeOf(QStringLiteral("geminiField")).left());
    EXPECT_GT(placeOf(QStringLiteral("apiKeysTab")).left(), placeOf(QStringLiteral("advancedTab")).left());
}

} // namespace quorvane
