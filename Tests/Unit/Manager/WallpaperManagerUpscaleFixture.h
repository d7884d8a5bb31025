#pragma once

#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

using namespace Qt::StringLiterals;

class WallpaperManagerUpscaleTest : public ManagerTest
{
  protected:
    void upscale(const QString &path)
    {
        statuses.clear();
        QStringList busyWith;
        const auto connection = QObject::connect(manager.get(), &WallpaperManager::upscalingURLChanged, manager.get(),
                                                 [&] { busyWith.append(manager->upscalingURL()); });
        manager->upscaleExistingImage(path);
        manager->waitUntilIdle();
        QObject::disconnect(connection);
        EXPECT_EQ(busyWith, (QStringList{path, QString()}));
        EXPECT_FALSE(manager->isLoading());
    }

    /// A picture in the library that the service can read.
    [[nodiscard]] QString putPicture(const QString &name) const
    {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        const QString path = ImageStore::directory() + '/'_L1 + name;
        EXPECT_TRUE(image.save(path));
        return path;
    }
};

} // namespace quorvane
