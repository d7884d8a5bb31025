#include "Views/Gallery/ImageListModel.h"

#include "Manager/Library/ImageRecords.h"
#include "Views/Pictures/PictureDecoding.h"
#include "Views/Pictures/PictureUrl.h"

namespace quorvane {

namespace {

bool isWide(const PictureWidths &widths, const PictureEntry &entry)
{
    return widths.value(entry.path).pixels >= kFourKWidth;
}

} // namespace

template <typename WereSo, typename AreSo>
void ImageListModel::announce(WereSo wereSo, AreSo areSo, const QVector<int> &roles)
{
    for (int row = 0; row < rowCount(); ++row) {
        const PictureEntry &entry = entries()[std::size_t(row)];
        if (wereSo(entry) != areSo(entry)) {
            Q_EMIT dataChanged(index(row), index(row), roles);
        }
    }
}

void ImageListModel::setFavorites(const QSet<QString> &favorites)
{
    const QSet<QString> before = std::exchange(m_favorites, favorites);
    announce([&before](const PictureEntry &entry) { return before.contains(ImageRecords::fileName(entry.path)); },
             [this](const PictureEntry &entry) { return isFavorite(entry); }, {IsFavoriteRole, SpokenRole});
}

void ImageListModel::setUpscaling(const QString &url)
{
    const QString before = std::exchange(m_upscaling, url);
    announce([&before](const PictureEntry &entry) { return entry.path == before; },
             [this](const PictureEntry &entry) { return entry.path == m_upscaling; }, {IsUpscalingRole, SpokenRole});
}

void ImageListModel::setCurrentWallpaper(const QString &url)
{
    const QString before = std::exchange(m_wallpaper, url);
    announce([&before](const PictureEntry &entry) { return entry.path == before; },
             [this](const PictureEntry &entry) { return entry.path == m_wallpaper; }, {SpokenRole});
}

void ImageListModel::setWidths(PictureWidths widths)
{
    const PictureWidths before = std::exchange(m_widths, std::move(widths));
    announce([&before](const PictureEntry &entry) { return isWide(before, entry); },
             [this](const PictureEntry &entry) { return isFourK(entry); }, {SpokenRole});
}

bool ImageListModel::isFavorite(const PictureEntry &entry) const
{
    return m_favorites.contains(ImageRecords::fileName(entry.path));
}

bool ImageListModel::isFourK(const PictureEntry &entry) const
{
    return isWide(m_widths, entry);
}

QString ImageListModel::spoken(const PictureEntry &entry) const
{
    QStringList parts;
    const auto add = [&parts](bool isSo, const QString &part) {
        if (isSo && !part.isEmpty()) {
            parts.append(part);
        }
    };
    add(true, entry.prompt);
    add(true, ImageRecords::timestamp(entry.created));
    add(isFavorite(entry), tr("favorite"));
    add(isFourK(entry), tr("4K"));
    add(entry.path == m_wallpaper, tr("current wallpaper"));
    add(entry.path == m_upscaling, tr("being upscaled to 4K"));
    return parts.join(tr(", ", "Between what is read out of one picture"));
}

QVariant ImageListModel::data(const QModelIndex &index, int role) const
{
    const PictureEntry &entry = entryAt(index);
    switch (role) {
    case UrlRole:
        return entry.path;
    case ThumbnailRole:
        return thumbnailUrl(entry.path, entry.stamp);
    case IsFavoriteRole:
        return isFavorite(entry);
    case PromptRole:
        return entry.prompt;
    case TimestampRole:
        return ImageRecords::timestamp(entry.created);
    case IsUpscalingRole:
        return entry.path == m_upscaling;
    case SpokenRole:
        return spoken(entry);
    default:
        return {};
    }
}

QHash<int, QByteArray> ImageListModel::roleNames() const
{
    return {{UrlRole, "url"},       {ThumbnailRole, "thumbnail"}, {IsFavoriteRole, "isFavorite"},
            {PromptRole, "prompt"}, {TimestampRole, "timestamp"}, {IsUpscalingRole, "isUpscaling"},
            {SpokenRole, "spoken"}};
}

} // namespace quorvane
