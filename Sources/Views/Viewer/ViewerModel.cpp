#include "Views/Viewer/ViewerModel.h"

#include "Views/Pictures/PictureDecoding.h"
#include "Views/Pictures/PictureUrl.h"

namespace quorvane {

QString ViewerModel::picture() const
{
    return pictureUrl(m_url);
}

QString ViewerModel::thumbnail() const
{
    return thumbnailUrl(m_url);
}

void ViewerModel::show(const QString &url)
{
    if (shownSize(url).isEmpty()) {
        Q_EMIT failed();
        return;
    }
    m_url = url;
    Q_EMIT changed();
}

void ViewerModel::close()
{
    m_url.clear();
    Q_EMIT changed();
}

} // namespace quorvane
