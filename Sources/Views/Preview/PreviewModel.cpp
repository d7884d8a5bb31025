#include "Views/Preview/PreviewModel.h"

#include "Views/Pictures/PictureDecoding.h"
#include "Views/Pictures/PictureUrl.h"
#include "Views/ProgressText.h"

#include <QFileInfo>

#include <algorithm>

namespace quorvane {

PreviewModel::PreviewModel(QObject *parent)
    : ViewModel(parent)
    , m_reading([this](Records records) {
        m_records = std::move(records);
        Q_EMIT changed();
    })
{
}

void PreviewModel::attach()
{
    m_lastUpscalingURL = manager()->upscalingURL();
    connect(manager(), &WallpaperManager::upscalingURLChanged, this, &PreviewModel::followUpscale);
    connect(manager(), &WallpaperManager::favoritesChanged, this, &PreviewModel::readRecords);
    connect(manager(), &WallpaperManager::progressChanged, this, &PreviewModel::progressChanged);
}

void PreviewModel::setPreviewURL(const QString &url)
{
    if (url == m_previewURL) {
        return;
    }
    const bool wasOpen = isOpen();
    m_previewURL = url;
    readRecords();
    Q_EMIT previewURLChanged();
    if (isOpen() != wasOpen) {
        Q_EMIT isOpenChanged();
    }
}

void PreviewModel::setList(const QStringList &list)
{
    m_list = list;
    Q_EMIT changed();
}

PreviewModel::Records PreviewModel::recordsOf(const QString &url)
{
    Records records{url, ImageRecords::factsOf(url), std::max(0, shownSize(url).width()), QFileInfo::exists(url)};
    if (records.facts.original && !QFileInfo::exists(*records.facts.original)) {
        records.facts.original.reset();
    }
    return records;
}

void PreviewModel::readRecords()
{
    if (isOpen()) {
        m_reading.ask([url = m_previewURL] { return recordsOf(url); });
    } else {
        m_reading.ask([] { return Records(); });
    }
    Q_EMIT changed();
}

QString PreviewModel::problem() const
{
    if (!isOpen() || !areRecordsOfThis()) {
        return {};
    }
    if (!m_records.isThere) {
        return tr("This picture is not there any more.");
    }
    return m_records.width == 0 || m_cameEmpty ? tr("This picture cannot be read.") : QString();
}

void PreviewModel::setCameEmpty(bool cameEmpty)
{
    if (cameEmpty != m_cameEmpty) {
        m_cameEmpty = cameEmpty;
        // It may have gone since its records were read. Later, because what tells of this is still being shown.
        QMetaObject::invokeMethod(this, &PreviewModel::readRecords, Qt::QueuedConnection);
    }
}

bool PreviewModel::canGoLeft() const
{
    return isOpen() && m_list.indexOf(m_previewURL) >= 1;
}

bool PreviewModel::canGoRight() const
{
    const auto index = m_list.indexOf(m_previewURL);
    return isOpen() && index >= 0 && index < m_list.size() - 1;
}

void PreviewModel::goLeft()
{
    if (canGoLeft()) {
        setPreviewURL(m_list[m_list.indexOf(m_previewURL) - 1]);
    }
}

void PreviewModel::goRight()
{
    if (canGoRight()) {
        setPreviewURL(m_list[m_list.indexOf(m_previewURL) + 1]);
    }
}

QString PreviewModel::picture() const
{
    return pictureUrl(m_previewURL);
}

QString PreviewModel::thumbnail() const
{
    return thumbnailUrl(m_previewURL);
}

QStringList PreviewModel::neighbours() const
{
    QStringList neighbours;
    if (canGoLeft()) {
        neighbours.append(pictureUrl(m_list[m_list.indexOf(m_previewURL) - 1]));
    }
    if (canGoRight()) {
        neighbours.append(pictureUrl(m_list[m_list.indexOf(m_previewURL) + 1]));
    }
    return neighbours;
}

void PreviewModel::usePrompt()
{
    if (canUsePrompt() && m_records.url == m_previewURL) {
        Q_EMIT promptChosen(prompt());
        close();
    }
}

void PreviewModel::setAsWallpaper()
{
    manager()->setWallpaper(m_previewURL);
}

bool PreviewModel::isFavorite() const
{
    return isOpen() && manager()->favorites().contains(ImageRecords::fileName(m_previewURL));
}

void PreviewModel::toggleFavorite()
{
    if (isOpen()) {
        manager()->toggleFavorite(m_previewURL);
    }
}

bool PreviewModel::canUpscale() const
{
    // Before anything is known of it there is no width, and upscale() would do nothing.
    const bool isSmall = m_records.width > 0 && m_records.width < kFourKWidth;
    return isOpen() && problem().isEmpty() && isSmall && !m_records.facts.hasPartner &&
           manager()->upscalingURL().isEmpty();
}

void PreviewModel::upscale()
{
    if (canUpscale() && m_records.url == m_previewURL) {
        manager()->upscaleExistingImage(m_previewURL);
    }
}

bool PreviewModel::isUpscaling() const
{
    return isOpen() && manager()->upscalingURL() == m_previewURL;
}

QString PreviewModel::progressText() const
{
    return quorvane::progressText(manager()->progress());
}

double PreviewModel::progressShare() const
{
    return quorvane::progressShare(manager()->progress());
}

void PreviewModel::showOriginal()
{
    if (hasOriginal() && m_records.url == m_previewURL) {
        setPreviewURL(*m_records.facts.original);
    }
}

/// When the picture that is shown has been enlarged, its copy takes its place.
void PreviewModel::followUpscale()
{
    const QString ended = std::exchange(m_lastUpscalingURL, manager()->upscalingURL());
    if (!ended.isEmpty() && m_lastUpscalingURL.isEmpty() && ended == m_previewURL) {
        if (const auto copy = ImageRecords::recordedCopy(ended)) {
            setPreviewURL(*copy);
            return;
        }
    }
    readRecords();
}

} // namespace quorvane
