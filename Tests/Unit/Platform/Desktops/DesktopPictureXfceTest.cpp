#include "Platform/Desktops/DesktopPictureXfce.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(DesktopPictureXfce, everyWorkspaceOfEveryScreenAndWhateverIsThereAlreadyGetsThePicture)
{
    const QList<Screen> screens{{QStringLiteral("DP-1"), QSize(1, 1)}, {QStringLiteral("%2"), QSize(1, 1)}};
    const QVariantMap now{
        {QStringLiteral("/backdrop/screen0/monitor0/workspace3/last-image"), QStringLiteral("/old.png")},
        {QStringLiteral("/backdrop/screen0/monitorDP-1/workspace0/last-image"), QStringLiteral("/old.png")},
        {QStringLiteral("/backdrop/screen0/monitorDP-1/workspace0/color-style"), 0},
        {QStringLiteral("/backdrop/single-workspace-mode"), true},
    };
    QStringList pictures;
    QStringList styles;
    const QVariantMap wanted = DesktopPictureXfce::propertiesFor(QStringLiteral("/new.png"), screens, 2, now);
    for (auto property = wanted.begin(); property != wanted.end(); ++property) {
        const QString place = property.key().section(QLatin1Char('/'), 3, 4);
        if (property.value() == QVariant(QStringLiteral("/new.png"))) {
            EXPECT_TRUE(property.key().endsWith(QStringLiteral("/last-image")));
            pictures.append(place);
        } else {
            EXPECT_TRUE(property.key().endsWith(QStringLiteral("/image-style")));
            EXPECT_EQ(property.value(), QVariant(5));
            styles.append(place);
        }
    }
    const QStringList places{QStringLiteral("monitor%2/workspace0"), QStringLiteral("monitor%2/workspace1"),
                             QStringLiteral("monitor0/workspace3"), QStringLiteral("monitorDP-1/workspace0"),
                             QStringLiteral("monitorDP-1/workspace1")};
    EXPECT_EQ(pictures, places);
    EXPECT_EQ(styles, places);
}

TEST(DesktopPictureXfce, thePathThatIsSetAlreadyBecomesAnotherTextForTheSameFile)
{
    const QList<Screen> screens{{QStringLiteral("DP-1"), QSize(1, 1)}};
    const QString path = QStringLiteral("/p.png");
    const QString key = QStringLiteral("/backdrop/screen0/monitorDP-1/workspace0/last-image");
    const QVariantMap first = DesktopPictureXfce::propertiesFor(path, screens, 1, {});
    EXPECT_EQ(first.value(key).toString(), path);
    const QVariantMap second = DesktopPictureXfce::propertiesFor(path, screens, 1, first);
    EXPECT_EQ(second.value(key).toString(), QStringLiteral("//p.png"));
    EXPECT_EQ(DesktopPictureXfce::propertiesFor(path, screens, 1, second).value(key).toString(), path);
}

TEST(DesktopPictureXfce, thereIsOneWorkspaceAtLeast)
{
    const QList<Screen> screens{{QStringLiteral("DP-1"), QSize(1, 1)}};
    EXPECT_EQ(DesktopPictureXfce::propertiesFor(QStringLiteral("/p"), screens, 0, {}).size(), 2);
    EXPECT_EQ(DesktopPictureXfce::propertiesFor(QStringLiteral("/p"), screens, -1, {}).size(), 2);
}

} // namespace quorvane
