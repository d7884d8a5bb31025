#include "UI/Play/Stage.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Takes those of names out of list that are in it, and leaves no others in names.
void take(QStringList *names, QStringList *list)
{
    names->removeIf([list](const QString &name) { return list->removeAll(name) == 0; });
}

} // namespace

bool Stage::clickOnTile(QQuickItem *tile, const QString &button)
{
    if (const QRectF place = tile->mapRectToScene(QRectF(0, 0, tile->width(), tile->height()));
        !placeOf(u"imageGrid"_s).contains(place)) {
        bringIntoSight(tile);
    }
    // Tiles move to their places when others came or went, and the buttons are made when the pointer is there.
    const QString url = tile->property("url").toString();
    return waitFor([&] {
        hover(QPoint(2, 2));
        QQuickItem *now = find(u"tile "_s + url);
        if (now == nullptr || !now->isVisible()) {
            return false;
        }
        hover(middleOf(now));
        QCoreApplication::processEvents();
        // Other tiles may show a button of that name, too.
        return clickItem(findBelow(now, button, true));
    });
}

QString Stage::pressOnTile(const Deed &deed)
{
    const QList<QQuickItem *> seen = tiles(u"tile "_s);
    if (seen.isEmpty() || isPreviewOpen()) {
        return {};
    }
    const bool isStar = deed.kind == Deed::Kind::StarTile;
    QQuickItem *tile = pick(seen, deed.number);
    const QString url = tile->property("url").toString();
    const bool before = manager->favorites().contains(imageName(url));
    if (!clickOnTile(tile, isStar ? u"star"_s : u"apply"_s)) {
        return u"the tile of %1 shows no buttons under the pointer"_s.arg(imageName(url));
    }
    manager->waitUntilIdle();
    if (isStar && manager->favorites().contains(imageName(url)) == before) {
        return u"the star of %1 did not turn it"_s.arg(imageName(url));
    }
    if (!isStar && manager->currentWallpaperURL() != url) {
        return u"Apply on %1 made %2 the wallpaper"_s.arg(imageName(url), imageName(manager->currentWallpaperURL()));
    }
    return {};
}

QString Stage::expectOnDisk(QStringList expected, const QString &what) const
{
    expected.sort();
    manager->waitUntilIdle();
    (void)waitFor([&] { return picturesOnDisk() == expected; });
    const QStringList now = picturesOnDisk();
    if (now == expected) {
        return {};
    }
    return u"%1: on the disk are %2 and not %3"_s.arg(what, now.join(' '_L1), expected.join(' '_L1));
}

QString Stage::deleteTile(quint32 number)
{
    const QList<QQuickItem *> seen = tiles(u"tile "_s);
    if (seen.isEmpty() || isPreviewOpen()) {
        return {};
    }
    QQuickItem *tile = pick(seen, number);
    const QString url = tile->property("url").toString();
    QStringList stay = picturesOnDisk();
    QStringList gone = withPartner(url);
    take(&gone, &stay);
    if (!clickOnTile(tile, u"trash"_s)) {
        return u"the tile of %1 shows no trash under the pointer"_s.arg(imageName(url));
    }
    m_deleted.append(gone);
    return expectOnDisk(stay, u"the trash of "_s + imageName(url));
}

QString Stage::deleteByKey()
{
    // Whoever looks sees a ring around one tile, or none, and expects that this one goes and no other.
    QStringList stay = picturesOnDisk();
    QString what = u"Delete with no ring in sight"_s;
    if (const QQuickItem *tile = ringedTile(); tile != nullptr && !isInEditor()) {
        const QString url = tile->property("url").toString();
        what = u"Delete with the ring at "_s + imageName(url);
        QStringList gone = withPartner(url);
        take(&gone, &stay);
        m_deleted.append(gone);
    }
    QTest::keyClick(window, Qt::Key_Delete);
    return expectOnDisk(stay, what);
}

QString Stage::bringBack()
{
    if (isPreviewOpen()) {
        return {};
    }
    const QStringList before = picturesOnDisk();
    if (!clickSeen(u"undoButton"_s)) {
        return m_deleted.isEmpty() ? QString() : u"what was deleted is not offered to be brought back"_s;
    }
    if (m_deleted.isEmpty()) {
        return u"what nobody deleted in the window is offered to be brought back"_s;
    }
    const QStringList back = m_deleted.takeLast();
    return expectOnDisk(before + back, u"Undo of the deletion of "_s + back.join(' '_L1));
}

} // namespace quorvane
