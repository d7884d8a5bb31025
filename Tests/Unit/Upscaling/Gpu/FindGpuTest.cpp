#include "Upscaling/Gpu/FindGpu.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(FindGpu, aCardHasADeviceToComputeOn)
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
        ASSERT_TRUE(QDir(devices.path()).mkdir(u"dri"_s));
        EXPECT_FALSE(hasGpu(devices.path()));
        QFile device(devices.filePath(QLatin1String(known.device)));
        ASSERT_TRUE(device.open(QIODevice::WriteOnly));
        EXPECT_EQ(hasGpu(devices.path()), known.isCard) << known.device;
    }
    EXPECT_FALSE(hasGpu(u"/nowhere"_s));
}

} // namespace quorvane
