#include "UI/Play/Sight.h"

#include "Manager/SettingsKeys.h"
#include "Storage/SideFile.h"

#include <QAccessible>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString enabledness(bool isEnabled)
{
    return isEnabled ? u"enabled"_s : u"disabled"_s;
}

} // namespace

bool Sight::isPreviewOpen() const
{
    // It takes its clicks and keys from the first moment, before much of it is seen.
    return find(u"preview"_s)->isEnabled();
}

QList<QQuickItem *> Sight::tiles(const QString &prefix) const
{
    QList<QQuickItem *> found;
    const QString grid = prefix == "tile "_L1 ? u"imageGrid"_s : u"albumGrid"_s;
    if (!isSeen(grid)) {
        return found;
    }
    // Rows that came or went are laid out with the next frame, and what is seen is as in the last one.
    QMetaObject::invokeMethod(find(grid), "forceLayout");
    const int count = find(grid)->property("count").toInt();
    for (int row = 0; row < count; ++row) {
        QQuickItem *tile = nullptr;
        QMetaObject::invokeMethod(find(grid), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, tile), Q_ARG(int, row));
        if (tile != nullptr && placeOf(grid).contains(middleOf(tile))) {
            found.append(tile);
        }
    }
    return found;
}

QQuickItem *Sight::ringedTile() const
{
    if (isPreviewOpen()) {
        return nullptr;
    }
    const QList<QQuickItem *> seen = tiles(u"tile "_s);
    const auto ringed = std::find_if(seen.begin(), seen.end(),
                                     [](const QQuickItem *tile) { return tile->property("selected").toBool(); });
    return ringed == seen.end() ? nullptr : *ringed;
}

QString Sight::editorText() const
{
    return textOf(find(u"promptEditor"_s));
}

bool Sight::isInEditor() const
{
    return find(u"promptEditor"_s)->hasActiveFocus();
}

void Sight::bringIntoSight(const QQuickItem *item)
{
    QQuickItem *view = item->parentItem();
    while (view != nullptr && !view->inherits("QQuickFlickable")) {
        view = view->parentItem();
    }
    if (view != nullptr) {
        const double y = view->property("contentItem").value<QQuickItem *>()->mapFromItem(item, {0, 0}).y();
        const double last = std::max(0.0, view->property("contentHeight").toDouble() - view->height());
        view->setProperty("contentY", std::clamp(y - view->height() / 2, 0.0, last));
    }
}

QStringList Sight::picturesOnDisk() const
{
    QStringList all = QDir(home.library()).entryList({u"*.png"_s, u"*.jpg"_s}, QDir::Files);
    all.sort();
    return all;
}

QStringList Sight::withPartner(const QString &path) const
{
    const QString name = imageName(path);
    QStringList all{name};
    for (const auto &[original, copy] : readTextMap(ImageStore::variantsPath())) {
        if (original == name) {
            all.append(copy);
        } else if (copy == name) {
            all.append(original);
        }
    }
    return all;
}

std::optional<QStringList> Sight::imagesOfOpenAlbum() const
{
    const QString title = textOf(find(u"albumTitle"_s));
    for (const Album &album : manager->albums()) {
        if (album.id == title) {
            return album.images;
        }
    }
    return std::nullopt;
}

QString Sight::filesDiffer() const
{
    const QStringList disk = picturesOnDisk();
    for (const QString &url : manager->history()) {
        if (!disk.contains(imageName(url))) {
            return u"the history has %1, which is not on the disk"_s.arg(imageName(url));
        }
    }
    QStringList kept = readTextList(ImageStore::favoritesPath());
    QStringList told(manager->favorites().begin(), manager->favorites().end());
    kept.sort();
    told.sort();
    if (kept != told) {
        return u"favourites are %1 on the disk and %2 in the manager"_s.arg(kept.join(' '_L1), told.join(' '_L1));
    }
    // Settings are written behind the caller's back, and what is on its way is neither the old nor the new.
    if (const Result<> kept = defaults->sync(); !kept) {
        return u"the settings are not kept: "_s + kept.failure().words;
    }
    const UserDefaults settings;
    if (const QString stored = settings.text(SettingsKeys::kLastPrompt).value_or(QString());
        stored != manager->prompt()) {
        return u"the stored prompt is \"%1\" and not \"%2\""_s.arg(stored, manager->prompt());
    }
    return {};
}

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

QString Sight::previewDiffers() const
{
    if (isSeen(u"preview"_s) != isPreviewOpen()) {
        return u"the preview is seen and not open, or open and not seen"_s;
    }
    if (!isPreviewOpen()) {
        return {};
    }
    const QString source = find(u"previewPicture"_s)->property("source").toString();
    for (const QString &name : picturesOnDisk()) {
        // The address ends with the path, encoded twice.
        if (source.endsWith("%252F"_L1 + name)) {
            return buttonsOfPreviewDiffer(home.library() + '/'_L1 + name);
        }
    }
    // Nothing can be done with what is gone, and the preview says so.
    for (const QString &button :
         {u"setButton"_s, u"favoriteButton"_s, u"upscaleButton"_s, u"fullScreenButton"_s, u"originalButton"_s}) {
        if (isSeen(button)) {
            return u"the preview of %1, which is gone, offers %2"_s.arg(source, button);
        }
    }
    return isSeen(u"previewProblem"_s) ? QString() : u"the preview does not say that %1 is gone"_s.arg(source);
}

QString Sight::buttonsOfPreviewDiffer(const QString &url) const
{
    const QString name = imageName(url);
    if (isSeen(u"previewProblem"_s)) {
        return u"the preview says of %1: %2"_s.arg(name, textOf(find(u"previewProblem"_s)));
    }
    const bool isStarred = textOf(find(u"favoriteButton"_s)) == "Unfavorite"_L1;
    if (!isSeen(u"favoriteButton"_s) || isStarred != manager->favorites().contains(name)) {
        return u"the preview's star of %1 is not as the favourites are"_s.arg(name);
    }
    bool isCopy = false;
    bool hasCopy = false;
    const QStringList disk = picturesOnDisk();
    for (const auto &[original, copy] : readTextMap(ImageStore::variantsPath())) {
        isCopy = isCopy || (copy == name && disk.contains(original));
        hasCopy = hasCopy || (original == name && disk.contains(copy));
    }
    if (isSeen(u"originalButton"_s) != isCopy) {
        return u"the preview of %1 %2 an original"_s.arg(name, isCopy ? u"does not offer"_s : u"offers"_s);
    }
    if (isSeen(u"upscaleButton"_s) && (isCopy || hasCopy || !manager->upscalingURL().isEmpty())) {
        return u"the preview offers to enlarge %1, which is not possible"_s.arg(name);
    }
    const QStringList list = imagesOfOpenAlbum().value_or(manager->history());
    const qsizetype place = list.indexOf(url);
    const bool canGoLeft = place > 0;
    const bool canGoRight = place >= 0 && place < list.size() - 1;
    for (const auto &[button, isPossible] : {std::pair{u"leftButton"_s, canGoLeft}, {u"rightButton"_s, canGoRight}}) {
        if (find(button)->isEnabled() != isPossible) {
            return u"at %1, which is %2 of %3, %4 is %5"_s.arg(name)
                .arg(place)
                .arg(list.size())
                .arg(button, enabledness(find(button)->isEnabled()));
        }
    }
    return {};
}

QString Sight::sidebarDiffers() const
{
    const QString text = editorText();
    if (text != manager->prompt()) {
        return u"the editor shows \"%1\", the prompt is \"%2\""_s.arg(text, manager->prompt());
    }
    const QStringList missing = manager->missingKeys();
    if (isSeen(u"missingKeys"_s) == missing.isEmpty() ||
        (!missing.isEmpty() && find(u"missingKeys"_s)->property("names").toStringList() != missing)) {
        return u"the missing keys are %1, and are not shown so"_s.arg(missing.join(' '_L1));
    }
    const QQuickItem *button = find(u"generateButton"_s);
    const bool canGenerate = !text.isEmpty() && missing.isEmpty() && !manager->isLoading();
    if (button->isEnabled() != canGenerate) {
        return u"the button is %1 with the editor at \"%2\" and %3 keys missing"_s
            .arg(enabledness(button->isEnabled()), text)
            .arg(missing.size());
    }
    if (textOf(find(u"providerName"_s)) != manager->resolvedProvider().name()) {
        return u"the provider is shown as %1"_s.arg(textOf(find(u"providerName"_s)));
    }
    for (const auto &[toggle, isOn] : {std::pair{u"fourKToggle"_s, manager->fourKEnabled()},
                                       {u"nsfwToggle"_s, manager->nsfwEnabled()},
                                       {u"autoToggle"_s, manager->autoEnabled()}}) {
        if (find(toggle)->property("checked").toBool() != isOn) {
            return u"%1 shows something else than is so"_s.arg(toggle);
        }
    }
    if (isSeen(u"nsfwToggle"_s) != manager->nsfwApplies()) {
        return u"the NSFW switch is shown where it is of no use, or not where it is"_s;
    }
    if (isSeen(u"status"_s) == manager->status().isEmpty() ||
        (isSeen(u"status"_s) && textOf(find(u"status"_s)) != manager->status())) {
        return u"the status is \"%1\" and shown as \"%2\""_s.arg(manager->status(), textOf(find(u"status"_s)));
    }
    return {};
}

QString Sight::lookDiffers() const
{
    const QColor page = window->color();
    const QColor wanted = QGuiApplication::palette().color(QPalette::Window);
    if ((qGray(page.rgb()) < 128) != (qGray(wanted.rgb()) < 128)) {
        return u"the window is %1 on a desktop that is %2"_s.arg(page.name(), wanted.name());
    }
    // However small the window is, what happened is read without scrolling.
    const QRectF whole(QPointF(), window->size());
    if (isSeen(u"status"_s) && !whole.contains(placeOf(u"statusPlace"_s))) {
        return u"the status lies outside of the window"_s;
    }
    for (const QString &name : {u"albumGrid"_s, u"imageGrid"_s}) {
        if (!isSeen(name)) {
            continue;
        }
        if (!whole.contains(placeOf(name))) {
            return u"%1 is larger than its window"_s.arg(name);
        }
        // Nobody points at what is still moving.
        const auto *current = find(name)->property("currentItem").value<QQuickItem *>();
        const auto *mark = find(name)->property("highlightItem").value<QQuickItem *>();
        if (current != nullptr && mark != nullptr && current->position() != mark->position()) {
            return u"%1 does not come to rest"_s.arg(name);
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
