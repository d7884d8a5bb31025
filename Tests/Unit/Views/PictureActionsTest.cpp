#include "Views/Actions/PictureActions.h"
#include "Views/Actions/PictureMimeData.h"

#include <QImage>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class PictureActionsTest : public testing::Test
{
  protected:
    PictureActionsTest()
    {
        QImage image(4, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(path, "PNG"));
    }

    QTemporaryDir folder;
    QString path = folder.path() + u"/a lake #1 50%.png"_s;
};

TEST_F(PictureActionsTest, whatIsCopiedIsThePictureAndTheAddressOfItsFile)
{
    const PictureMimeData data(path);
    EXPECT_TRUE(data.hasImage() && data.hasUrls());
    EXPECT_EQ(data.urls(), QList<QUrl>{QUrl::fromLocalFile(path)});
    const auto image = data.imageData().value<QImage>();
    EXPECT_EQ(image.size(), QSize(4, 2));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(PictureActionsTest, thePictureIsDecodedWhenItIsPastedAndMayBeGoneByThen)
{
    const PictureMimeData data(path);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(data.imageData().value<QImage>().isNull());
    EXPECT_TRUE(data.hasUrls());
}

TEST_F(PictureActionsTest, whatIsDraggedIsTheAddressAsAListOfOne)
{
    const QVariantMap data = PictureActions::draggedData(path);
    EXPECT_EQ(data.keys(), QStringList{u"text/uri-list"_s});
    const QString list = data.value(u"text/uri-list"_s).toString();
    EXPECT_TRUE(list.endsWith("\r\n"_L1));
    EXPECT_EQ(QUrl(list.trimmed(), QUrl::StrictMode).toLocalFile(), path);
}

} // namespace quorvane
