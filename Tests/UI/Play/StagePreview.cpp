#include "UI/Play/Stage.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QString Stage::closePreview()
{
    if (!isPreviewOpen()) {
        return {};
    }
    const QString shown = find(u"previewPicture"_s)->property("source").toString();
    QTest::keyClick(window, Qt::Key_Escape);
    if (!waitFor([this] { return !isPreviewOpen(); })) {
        return u"Escape does not close the preview"_s;
    }
    // The keyboard is where the eye was: what was looked at last has the ring, if the album has it.
    const QList<QQuickItem *> seen = tiles(u"tile "_s);
    for (const QQuickItem *tile : seen) {
        if (const QString name = imageName(tile->property("url").toString()); shown.contains(name)) {
            const bool isRinged = waitFor([&] {
                const QQuickItem *ringed = ringedTile();
                return ringed != nullptr && imageName(ringed->property("url").toString()) == name;
            });
            if (!isRinged) {
                const QQuickItem *ringed = ringedTile();
                const QQuickItem *focused = window->activeFocusItem();
                return u"after a look at %1, tile %2, the ring is at %3, number %4 is current and the keyboard is at %5"_s
                    .arg(name)
                    .arg(tile->property("index").toInt())
                    .arg(ringed != nullptr ? imageName(ringed->property("url").toString()) : u"none"_s)
                    .arg(find(u"imageGrid"_s)->property("currentIndex").toInt())
                    .arg(QLatin1String(focused != nullptr ? focused->metaObject()->className() : "none"));
            }
        }
    }
    return {};
}

QString Stage::upscale()
{
    const QStringList before = picturesOnDisk();
    if (!isPreviewOpen() || !clickSeen(u"upscaleButton"_s)) {
        return {};
    }
    manager->waitUntilIdle();
    const QStringList now = picturesOnDisk();
    if (result.isError) {
        return now == before ? QString() : u"an upscale that failed left %1"_s.arg(now.join(' '_L1));
    }
    if (now.size() != before.size() + 1) {
        return u"an upscale that went well made %1 pictures of %2"_s.arg(now.size()).arg(before.size());
    }
    const QString copy = imageName(manager->currentWallpaperURL());
    const bool isShown =
        waitFor([&] { return find(u"previewPicture"_s)->property("source").toString().endsWith("%252F"_L1 + copy); });
    return isShown ? QString() : u"the preview does not show the enlarged %1"_s.arg(copy);
}

QString Stage::actInPreview(const Deed &deed)
{
    using Kind = Deed::Kind;
    switch (deed.kind) {
    case Kind::ClosePreview:
        return closePreview();
    case Kind::StepLeft:
    case Kind::StepRight:
        QTest::keyClick(window, deed.kind == Kind::StepLeft ? Qt::Key_Left : Qt::Key_Right);
        return {};
    case Kind::StarShown:
        clickSeen(u"favoriteButton"_s);
        return {};
    case Kind::UpscaleShown:
        return upscale();
    case Kind::ShowOriginal:
        clickSeen(u"originalButton"_s);
        return {};
    default:
        return actInSidebar(deed);
    }
}

} // namespace quorvane
