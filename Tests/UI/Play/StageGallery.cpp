#include "UI/Play/Stage.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

QString Stage::openPicture(quint32 number)
{
    const QList<QQuickItem *> seen = tiles(u"tile "_s);
    if (seen.isEmpty() || isPreviewOpen()) {
        return {};
    }
    const QQuickItem *tile = pick(seen, number);
    const QString name = imageName(tile->property("url").toString());
    QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(tile));
    if (!waitFor([this] { return isPreviewOpen(); })) {
        return u"a click on the tile of %1 opens nothing"_s.arg(name);
    }
    const QString shown = find(u"previewPicture"_s)->property("source").toString();
    return shown.contains(name) ? QString() : u"a click on the tile of %1 opens %2"_s.arg(name, shown);
}

QString Stage::openByKey()
{
    const QQuickItem *ringed = ringedTile();
    if (isPreviewOpen() || ringed == nullptr) {
        return {};
    }
    const QString name = imageName(ringed->property("url").toString());
    QTest::keyClick(window, Qt::Key_Return);
    if (!waitFor([this] { return isPreviewOpen(); })) {
        return u"Return on the ringed tile opened nothing"_s;
    }
    const QString shown = find(u"previewPicture"_s)->property("source").toString();
    return shown.contains(name) ? QString() : u"Return with the ring at %1 opened %2"_s.arg(name, shown);
}

QString Stage::actInGallery(const Deed &deed)
{
    using Kind = Deed::Kind;
    switch (deed.kind) {
    case Kind::OpenAlbum:
        if (const auto seen = tiles(u"album "_s); !seen.isEmpty() && !isPreviewOpen()) {
            QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(pick(seen, deed.number)));
        }
        return {};
    case Kind::CloseAlbum:
        if (!isPreviewOpen()) {
            clickSeen(u"albumsButton"_s);
        }
        return {};
    case Kind::OpenPicture:
        return openPicture(deed.number);
    case Kind::StarTile:
    case Kind::ApplyTile:
        return pressOnTile(deed);
    case Kind::DeleteTile:
        return deleteTile(deed.number);
    case Kind::MoveByKey:
        if (!isInEditor()) {
            QTest::keyClick(window,
                            pick(std::array{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}, deed.number));
        }
        return {};
    case Kind::StarByKey:
        if (!isInEditor() && ringedTile() != nullptr) {
            QTest::keyClick(window, Qt::Key_F);
        }
        return {};
    case Kind::DeleteByKey:
        return deleteByKey();
    case Kind::BringBack:
        return bringBack();
    case Kind::OpenByKey:
        return openByKey();
    default:
        return isPreviewOpen() ? actInPreview(deed) : actInSidebar(deed);
    }
}

} // namespace quorvane
