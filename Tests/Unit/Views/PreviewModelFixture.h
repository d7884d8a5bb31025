#pragma once

#include "Views/Preview/PreviewModel.h"

#include "Support/Results.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

#include <QBuffer>

namespace quorvane {

class PreviewModelTest : public ManagerTest
{
  protected:
    PreviewModel &attach()
    {
        start();
        model = std::make_unique<PreviewModel>();
        model->setManager(manager.get());
        return *model;
    }
    ~PreviewModelTest() override { model.reset(); }

    [[nodiscard]] static QString putPicture(const QString &name, int width)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage image(width, 4, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        EXPECT_TRUE(image.save(&buffer, "PNG"));
        return valueOf(ImageStore::saveImage(name, bytes));
    }

    /// Waits until everything is known of the picture that is open.
    [[nodiscard]] bool isRead() const
    {
        return waitFor([&] { return model->areRecordsRead(); });
    }

    std::unique_ptr<PreviewModel> model;
};

} // namespace quorvane
