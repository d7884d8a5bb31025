#include "Platform/Desktops/DesktopPictureXfce.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(DesktopPictureXfce, everyWorkspaceOfEveryScreenAndWhateverIsThereAlreadyGetsThePicture)
{
    const QList<Screen> screens{{u"DP-1"_s, QSize(1, 1)}, {u"%2"_s, QSize(1, 1)}};
    const QVariantMap now{
        {u"/backdrop/screen0/monitor0/workspace3/last-image"_s, u"/old.png"_s},
        {u"/backdrop/screen0/monitorDP-1/workspace0/last-image"_s, u"/old.png"_s},
        {u"/backdrop/screen0/monitorDP-1/workspace0/color-style"_s, 0},
        {u"/backdrop/single-workspace-mode"_s, true},
    };
    QStringList pictures;
    QStringList styles;
    const QVariantMap wanted = DesktopPictureXfce::propertiesFor(u"/new.png"_s, screens, 2, now);
    for (auto property = wanted.begin(); property != wanted.end(); ++property) {
        const QString place = property.key().section('/'_L1, 3, 4);
        if (property.value() == QVariant(u"/new.png"_s)) {
            EXPECT_TRUE(property.key().endsWith(u"/last-image"_s));
            pictures.append(place);
        } else {
            EXPECT_TRUE(property.key().endsWith(u"/image-style"_s));
            EXPECT_EQ(property.value(), QVariant(5));
            styles.append(place);
        }
    }
    const QStringList places{u"monitor%2/workspace0"_s, u"monitor%2/workspace1"_s, u"monitor0/workspace3"_s,
                             u"monitorDP-1/workspace0"_s, u"monitorDP-1/workspace1"_s};
    EXPECT_EQ(pictures, places);
    EXPECT_EQ(styles, places);
}

TEST(DesktopPictureXfce, thePathThatIsSetAlreadyBecomesAnotherTextForTheSameFile)
{
    const QList<Screen> screens{{u"DP-1"_s, QSize(1, 1)}};
    const QString path = u"/p.png"_s;
    const QString key = u"/backdrop/screen0/monitorDP-1/workspace0/last-image"_s;
    const QVariantMap first = DesktopPictureXfce::propertiesFor(path, screens, 1, {});
    EXPECT_EQ(first.value(key).toString(), path);
    const QVariantMap second = DesktopPictureXfce::propertiesFor(path, screens, 1, first);
    EXPECT_EQ(second.value(key).toString(), u"//p.png"_s);
    EXPECT_EQ(DesktopPictureXfce::propertiesFor(path, screens, 1, second).value(key).toString(), path);
}

TEST(DesktopPictureXfce, thereIsOneWorkspaceAtLeast)
{
    const QList<Screen> screens{{u"DP-1"_s, QSize(1, 1)}};
    EXPECT_EQ(DesktopPictureXfce::propertiesFor(u"/p"_s, screens, 0, {}).size(), 2);
    EXPECT_EQ(DesktopPictureXfce::propertiesFor(u"/p"_s, screens, -1, {}).size(), 2);
}

} // namespace quorvane
