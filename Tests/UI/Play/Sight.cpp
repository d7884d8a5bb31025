#include "UI/Play/Sight.h"

#include "Storage/SideFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

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

QString Sight::enabledness(bool isEnabled)
{
    return isEnabled ? u"enabled"_s : u"disabled"_s;
}

} // namespace quorvane
