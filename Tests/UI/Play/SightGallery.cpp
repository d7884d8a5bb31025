#include "UI/Play/Sight.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace quorvane {

QString Sight::albumsDiffer() const
{
    const std::vector<Album> albums = manager->albums();
    if (manager->history().isEmpty() != isSeen(u"emptyState"_s)) {
        return u"the empty state is %1 with %2 pictures"_s.arg(isSeen(u"emptyState"_s)).arg(manager->history().size());
    }
    if (!isSeen(u"albumGrid"_s)) {
        return {};
    }
    const int shown = find(u"albumGrid"_s)->property("count").toInt();
    if (shown != static_cast<int>(albums.size())) {
        return u"%1 albums are shown, there are %2"_s.arg(shown).arg(albums.size());
    }
    for (QQuickItem *tile : tiles(u"album "_s)) {
        const int row = tile->property("index").toInt();
        if (row < 0 || row >= shown) {
            return u"an album tile stands for row %1 of %2"_s.arg(row).arg(shown);
        }
        const Album &album = albums[static_cast<std::size_t>(row)];
        if (tile->property("albumId").toString() != album.id ||
            tile->property("count").toInt() != album.images.size()) {
            return u"album tile %1 shows \"%2\" with %3 pictures instead of \"%4\" with %5"_s.arg(row)
                .arg(tile->property("albumId").toString())
                .arg(tile->property("count").toInt())
                .arg(album.id)
                .arg(album.images.size());
        }
        if (!tile->property("cover").toString().contains(imageName(album.images.first()))) {
            return u"album \"%1\" shows %2"_s.arg(album.id, tile->property("cover").toString());
        }
    }
    return {};
}

QString Sight::tilesDiffer() const
{
    if (!isSeen(u"imageGrid"_s)) {
        return {};
    }
    const QString title = textOf(find(u"albumTitle"_s));
    const std::optional<QStringList> images = imagesOfOpenAlbum();
    if (!images) {
        return u"the album \"%1\" is shown, which there is not"_s.arg(title);
    }
    const int shown = find(u"imageGrid"_s)->property("count").toInt();
    if (shown != images->size()) {
        return u"%1 pictures are shown in \"%2\", there are %3"_s.arg(shown).arg(title).arg(images->size());
    }
    for (const QQuickItem *tile : tiles(u"tile "_s)) {
        const int row = tile->property("index").toInt();
        const QString url = tile->property("url").toString();
        if (url != images->value(row)) {
            return u"tile %1 of \"%2\" is %3 instead of %4"_s.arg(row).arg(title, imageName(url),
                                                                           imageName(images->value(row)));
        }
        if (!tile->property("thumbnail").toString().contains(imageName(url))) {
            return u"the tile of %1 shows %2"_s.arg(imageName(url), tile->property("thumbnail").toString());
        }
        if (tile->property("isFavorite").toBool() != manager->favorites().contains(imageName(url))) {
            return u"the star of %1 is not as the favourites are"_s.arg(imageName(url));
        }
        if (tile->property("isUpscaling").toBool() != (manager->upscalingURL() == url)) {
            return u"the tile of %1 tells of an upscale wrongly"_s.arg(imageName(url));
        }
    }
    return {};
}

QString Sight::spokenNameDiffers(const QString &url, const QString &name) const
{
    const auto tells = [&name](const QString &part) { return name.contains(u", %1,"_s.arg(part)); };
    if (tells(u"favorite"_s) != manager->favorites().contains(imageName(url))) {
        return u"a screen reader is told \"%1\" of the favourites' state"_s.arg(name);
    }
    if (tells(u"current wallpaper"_s) != (manager->currentWallpaperURL() == url)) {
        return u"a screen reader is told \"%1\", and the wallpaper is %2"_s.arg(
            name, imageName(manager->currentWallpaperURL()));
    }
    const QStringList images = imagesOfOpenAlbum().value_or(QStringList());
    const QString place = u"%1 of %2"_s.arg(images.indexOf(url) + 1).arg(images.size());
    return name.endsWith(place) ? QString() : u"a screen reader is told \"%1\" of number %2"_s.arg(name, place);
}

QString Sight::spokenDiffers() const
{
    if (isPreviewOpen() || !isSeen(u"imageGrid"_s)) {
        return {};
    }
    // What a screen reader is told: a name for every tile in sight, and none for tiles that are not there.
    QMap<QString, QString> spoken;
    const std::function<void(QAccessibleInterface *)> collect = [&](QAccessibleInterface *interface) {
        if (interface == nullptr) {
            return;
        }
        const QObject *object = interface->object();
        if (object != nullptr && object->objectName().startsWith("tile "_L1) && !interface->state().invisible) {
            spoken.insert(object->objectName().sliced(5), interface->text(QAccessible::Name));
        }
        for (int child = 0; child < interface->childCount(); ++child) {
            collect(interface->child(child));
        }
    };
    collect(QAccessible::queryAccessibleInterface(window));
    const QStringList images = imagesOfOpenAlbum().value_or(QStringList());
    for (auto each = spoken.cbegin(); each != spoken.cend(); ++each) {
        if (!images.contains(each.key())) {
            return u"a screen reader is told of %1 in \"%2\""_s.arg(each.key(), textOf(find(u"albumTitle"_s)));
        }
        if (const QString wrong = spokenNameDiffers(each.key(), each.value()); !wrong.isEmpty()) {
            return wrong;
        }
    }
    for (const QQuickItem *tile : tiles(u"tile "_s)) {
        if (!spoken.contains(tile->property("url").toString())) {
            return u"a screen reader is not told of %1"_s.arg(imageName(tile->property("url").toString()));
        }
    }
    return {};
}

} // namespace quorvane
