#include "Upscaling/FindCard.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvane {

TEST(FindCard, aCardHasADeviceToComputeOn)
{
    struct Case
    {
        const char *device;
        bool isCard;
    };
    const Case cases[] = {
        {"dri/renderD128", true}, {"dri/card0", false}, {"nvidia0", true}, {"nvidiactl", false}, {"null", false},
    };
    for (const Case &known : cases) {
        const QTemporaryDir devices;
        ASSERT_TRUE(QDir(devices.path()).mkdir(QStringLiteral("dri")));
        EXPECT_FALSE(hasGraphicsCard(devices.path()));
        QFile device(devices.filePath(QLatin1String(known.device)));
        ASSERT_TRUE(device.open(QIODevice::WriteOnly));
        EXPECT_EQ(hasGraphicsCard(devices.path()), known.isCard) << known.device;
    }
    EXPECT_FALSE(hasGraphicsCard(QStringLiteral("/nowhere")));
}

} // namespace quorvane
