#include "UI/Play/Stage.h"

#include "Storage/SideFile.h"

#include <QAccessible>
#include <QRandomGenerator>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::array kNames{"open an album",
                            "close the album",
                            "open a picture",
                            "close the preview",
                            "step left",
                            "step right",
                            "star a tile",
                            "delete a tile",
                            "apply a tile",
                            "star what is shown",
                            "upscale what is shown",
                            "show the original",
                            "use the prompt",
                            "move by key",
                            "star by key",
                            "delete by key",
                            "open by key",
                            "type",
                            "generate",
                            "switch 4K",
                            "switch the theme",
                            "resize",
                            "prompt from outside",
                            "generate from outside",
                            "star from outside",
                            "delete from outside",
                            "add a file",
                            "remove a file"};
static_assert(kNames.size() == std::size_t(Deed::Kind::Count));

const QStringList kPrompts{u"a lake"_s, u"a wood"_s, u"a tower"_s, QString()};

template <typename List> auto pick(const List &list, quint32 number)
{
    return list[number % static_cast<quint32>(list.size())];
}

/// Small and plain; painting would take most of the time.
QByteArray plainPicture(int shade)
{
    QImage image(96, 60, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(shade % 360, 160, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

QString nameOf(const Deed &deed)
{
    return u"%1 (%2)"_s.arg(QLatin1String(kNames[std::size_t(deed.kind)])).arg(deed.number);
}

QList<Deed> deedsOf(quint32 seed, int count)
{
    QRandomGenerator random(seed);
    QList<Deed> deeds;
    for (int index = 0; index < count; ++index) {
        const auto kind = static_cast<Deed::Kind>(random.bounded(static_cast<int>(Deed::Kind::Count)));
        deeds.append({kind, random.bounded(1U << 20)});
    }
    return deeds;
}

Stage::Stage()
{
    service.setPictureMaker([](const QString &prompt, QSize /*size*/) {
        QImage image(96, 60, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(static_cast<int>(qHash(prompt) % 360), 90, 220));
        return image;
    });
    localUpscale = [](QByteArray /*image*/, std::stop_token,
                      std::function<void(UpscaleProgress)> progress) -> QCoro::Task<EncodedImage> {
        progress({1, 1, std::nullopt});
        EncodedImage enlarged{plainPicture(200), u"png"_s};
        co_return enlarged;
    };
}

void Stage::raise()
{
    for (int index = 0; index < 9; ++index) {
        const QString name = u"picture%1.png"_s.arg(index);
        (void)ImageStore::saveImage(name, plainPicture(index * 37));
        if (const QString prompt = pick(kPrompts, static_cast<quint32>(index)); !prompt.isEmpty()) {
            (void)ImageStore::savePrompt(prompt, name);
        }
    }
    store(u"upscaleMethod"_s, u"local"_s);
    start();
    manager->saveKey(u"KEY"_s, u"gemini"_s);
    manager->saveKey(u"KEY"_s, u"grok"_s);
    manager->setPrompt(u"a lake"_s);
    open();
    (void)waitFor([this] { return differences().isEmpty(); });
}

QString Stage::play(const Deed &deed)
{
    const QString wrong = act(deed);
    manager->waitUntilIdle();
    // What is shown follows in its own time, but it follows: a difference that stays is one.
    (void)waitFor([this] { return differences().isEmpty(); }, std::chrono::seconds(4));
    return wrong.isEmpty() ? differences() : wrong;
}

bool Stage::isPreviewOpen() const
{
    // It takes its clicks and keys from the first moment, before much of it is seen.
    return find(u"preview"_s)->isEnabled();
}

QList<QQuickItem *> Stage::tiles(const QString &prefix) const
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

QQuickItem *Stage::ringedTile() const
{
    if (isPreviewOpen()) {
        return nullptr;
    }
    const QList<QQuickItem *> seen = tiles(u"tile "_s);
    const auto ringed = std::find_if(seen.begin(), seen.end(),
                                     [](const QQuickItem *tile) { return tile->property("selected").toBool(); });
    return ringed == seen.end() ? nullptr : *ringed;
}

QString Stage::editorText() const
{
    return textOf(find(u"promptEditor"_s));
}

bool Stage::clickOnTile(QQuickItem *tile, const QString &button)
{
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

bool Stage::clickSeen(const QString &name)
{
    return clickItem(find(name));
}

bool Stage::clickItem(const QQuickItem *item)
{
    if (item == nullptr || !item->isVisible() || !item->isEnabled() ||
        !QRect(QPoint(), window->size()).contains(middleOf(item))) {
        return false;
    }
    QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(item));
    return true;
}

QStringList Stage::picturesOnDisk() const
{
    QStringList all = QDir(home.library()).entryList({u"*.png"_s, u"*.jpg"_s}, QDir::Files);
    all.sort();
    return all;
}

QStringList Stage::withPartner(const QString &path) const
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

QString Stage::deleteByKey()
{
    // Whoever looks sees a ring around one tile, or none, and expects that this one goes and no other.
    QStringList expected = picturesOnDisk();
    QString what = u"Delete with no ring in sight"_s;
    const bool isInEditor = find(u"promptEditor"_s)->hasActiveFocus();
    if (const QQuickItem *tile = ringedTile(); tile != nullptr && !isInEditor) {
        const QString url = tile->property("url").toString();
        what = u"Delete with the ring at "_s + imageName(url);
        const QStringList gone = withPartner(url);
        expected.removeIf([&gone](const QString &name) { return gone.contains(name); });
    }
    QTest::keyClick(window, Qt::Key_Delete);
    return expectOnDisk(expected, what);
}

QString Stage::deleteTile(quint32 number)
{
    const QList<QQuickItem *> seen = tiles(u"tile "_s);
    if (seen.isEmpty() || isPreviewOpen()) {
        return {};
    }
    QQuickItem *tile = pick(seen, number);
    const QString url = tile->property("url").toString();
    QStringList expected = picturesOnDisk();
    const QStringList gone = withPartner(url);
    expected.removeIf([&gone](const QString &name) { return gone.contains(name); });
    if (!clickOnTile(tile, u"trash"_s)) {
        return u"the tile of %1 shows no trash under the pointer"_s.arg(imageName(url));
    }
    return expectOnDisk(expected, u"the trash of "_s + imageName(url));
}

QString Stage::generate()
{
    const QString text = editorText();
    service.clearRequests();
    if (!clickSeen(u"generateButton"_s)) {
        return {};
    }
    m_isTyping = false;
    manager->waitUntilIdle();
    if (service.requests().isEmpty()) {
        return u"the button was pressed and nothing was asked of the service"_s;
    }
    const QByteArray body = service.requests().first().body;
    return body.contains(text.toUtf8())
               ? QString()
               : u"the editor shows \"%1\", and the service was asked for %2"_s.arg(text, QString::fromUtf8(body));
}

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
                return u"after a look at %1 the ring is elsewhere"_s.arg(name);
            }
        }
    }
    return {};
}

QString Stage::pressInPreview(const QString &button)
{
    if (isPreviewOpen()) {
        clickSeen(button);
    }
    return {};
}

QString Stage::act(const Deed &deed)
{
    using Kind = Deed::Kind;
    const QStringList history = manager->history();
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
    case Kind::ClosePreview:
        return closePreview();
    case Kind::StepLeft:
    case Kind::StepRight:
        if (isPreviewOpen()) {
            QTest::keyClick(window, deed.kind == Kind::StepLeft ? Qt::Key_Left : Qt::Key_Right);
        }
        return {};
    case Kind::StarTile:
    case Kind::ApplyTile:
        if (const auto seen = tiles(u"tile "_s); !seen.isEmpty() && !isPreviewOpen()) {
            QQuickItem *tile = pick(seen, deed.number);
            const QString url = tile->property("url").toString();
            const bool before = manager->favorites().contains(imageName(url));
            if (!clickOnTile(tile, deed.kind == Kind::StarTile ? u"star"_s : u"apply"_s)) {
                return u"the tile of %1 shows no buttons under the pointer"_s.arg(imageName(url));
            }
            manager->waitUntilIdle();
            if (deed.kind == Kind::StarTile && manager->favorites().contains(imageName(url)) == before) {
                return u"the star of %1 did not turn it"_s.arg(imageName(url));
            }
            if (deed.kind == Kind::ApplyTile && manager->currentWallpaperURL() != url) {
                return u"Apply on %1 made %2 the wallpaper"_s.arg(imageName(url),
                                                                  imageName(manager->currentWallpaperURL()));
            }
        }
        return {};
    case Kind::DeleteTile:
        return deleteTile(deed.number);
    case Kind::StarShown:
        return pressInPreview(u"favoriteButton"_s);
    case Kind::UpscaleShown:
        return pressInPreview(u"upscaleButton"_s);
    case Kind::ShowOriginal:
        return pressInPreview(u"originalButton"_s);
    case Kind::UsePrompt:
        if (isPreviewOpen() ? clickSeen(u"previewUsePromptButton"_s) : clickSeen(u"usePromptButton"_s)) {
            m_isTyping = false;
        }
        return {};
    case Kind::MoveByKey:
        if (!find(u"promptEditor"_s)->hasActiveFocus()) {
            QTest::keyClick(window,
                            pick(std::array{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}, deed.number));
        }
        return {};
    case Kind::StarByKey:
        if (!find(u"promptEditor"_s)->hasActiveFocus() && ringedTile() != nullptr) {
            QTest::keyClick(window, Qt::Key_F);
        }
        return {};
    case Kind::DeleteByKey:
        return deleteByKey();
    case Kind::OpenByKey:
        if (!isPreviewOpen() && ringedTile() != nullptr) {
            const QString url = ringedTile()->property("url").toString();
            QTest::keyClick(window, Qt::Key_Return);
            if (!waitFor([this] { return isPreviewOpen(); })) {
                return u"Return on the ringed tile opened nothing"_s;
            }
            const QString shown = find(u"previewPicture"_s)->property("source").toString();
            if (!shown.contains(imageName(url))) {
                return u"Return with the ring at %1 opened %2"_s.arg(imageName(url), shown);
            }
        }
        return {};
    case Kind::Type:
        if (clickSeen(u"promptEditor"_s)) {
            type(u"x%1 "_s.arg(deed.number % 10));
            m_isTyping = true;
        }
        return {};
    case Kind::Generate:
        return isPreviewOpen() ? QString() : generate();
    case Kind::SwitchFourK:
        clickSeen(u"fourKToggle"_s);
        return {};
    case Kind::SwitchTheme:
        QGuiApplication::setPalette(deed.number % 2 == 0 ? palette(Qt::white, Qt::black)
                                                         : palette(QColor(30, 30, 30), Qt::white));
        return {};
    case Kind::Resize:
        window->resize(pick(std::array{QSize(760, 480), QSize(1100, 760), QSize(1400, 900)}, deed.number));
        return {};
    case Kind::PromptFromOutside:
        manager->setPrompt(pick(kPrompts, deed.number % 3));
        return {};
    case Kind::GenerateFromOutside:
        manager->setPrompt(u"outside %1"_s.arg(deed.number % 3));
        manager->generateAndSet();
        return {};
    case Kind::StarFromOutside:
        if (!history.isEmpty()) {
            (void)ImageStore::saveFavorite(imageName(pick(history, deed.number)));
            manager->refreshHistory();
        }
        return {};
    case Kind::DeleteFromOutside:
        if (history.size() > 3) {
            manager->deleteImage(pick(history, deed.number));
        }
        return {};
    case Kind::FileAdded: {
        const QString name = u"added%1.png"_s.arg(++m_made);
        (void)ImageStore::saveImage(name, plainPicture(m_made * 53));
        (void)ImageStore::savePrompt(pick(kPrompts, deed.number % 3), name);
        manager->refreshHistory();
        return {};
    }
    case Kind::FileRemoved:
        if (history.size() > 3) {
            QFile::remove(pick(history, deed.number));
            manager->refreshHistory();
        }
        return {};
    case Kind::Count:
        break;
    }
    return {};
}

QString Stage::differences() const
{
    for (const auto check : {&Stage::filesDiffer, &Stage::albumsDiffer, &Stage::tilesDiffer, &Stage::previewDiffers,
                             &Stage::sidebarDiffers, &Stage::spokenDiffers}) {
        if (const QString difference = (this->*check)(); !difference.isEmpty()) {
            return difference;
        }
    }
    return {};
}

QString Stage::filesDiffer() const
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
    return kept == told
               ? QString()
               : u"favourites are %1 on the disk and %2 in the manager"_s.arg(kept.join(' '_L1), told.join(' '_L1));
}

QString Stage::albumsDiffer() const
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
    }
    return {};
}

QString Stage::tilesDiffer() const
{
    if (!isSeen(u"imageGrid"_s)) {
        return {};
    }
    const QString title = textOf(find(u"albumTitle"_s));
    QStringList images;
    bool isKnown = false;
    for (const Album &album : manager->albums()) {
        if (album.id == title) {
            images = album.images;
            isKnown = true;
        }
    }
    if (!isKnown) {
        return u"the album \"%1\" is shown, which there is not"_s.arg(title);
    }
    const int shown = find(u"imageGrid"_s)->property("count").toInt();
    if (shown != images.size()) {
        return u"%1 pictures are shown in \"%2\", there are %3"_s.arg(shown).arg(title).arg(images.size());
    }
    for (const QQuickItem *tile : tiles(u"tile "_s)) {
        const int row = tile->property("index").toInt();
        const QString url = tile->property("url").toString();
        if (url != images.value(row)) {
            return u"tile %1 of \"%2\" is %3 instead of %4"_s.arg(row).arg(title, imageName(url),
                                                                           imageName(images.value(row)));
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

QString Stage::previewDiffers() const
{
    if (isSeen(u"preview"_s) != isPreviewOpen()) {
        return u"the preview is seen and not open, or open and not seen"_s;
    }
    if (!isPreviewOpen()) {
        return {};
    }
    const QString source = find(u"previewPicture"_s)->property("source").toString();
    const QStringList disk = picturesOnDisk();
    const bool exists =
        std::any_of(disk.begin(), disk.end(), [&](const QString &name) { return source.contains(name); });
    const bool offers = isSeen(u"setButton"_s) && find(u"setButton"_s)->isEnabled();
    if (!exists && offers) {
        return u"the preview offers to set %1, which is gone"_s.arg(source);
    }
    for (const QString &name : disk) {
        if (source.contains(name) && isSeen(u"favoriteButton"_s)) {
            const bool isStarred = textOf(find(u"favoriteButton"_s)) == "Unfavorite"_L1;
            if (isStarred != manager->favorites().contains(name)) {
                return u"the preview's star of %1 is not as the favourites are"_s.arg(name);
            }
        }
    }
    return {};
}

QString Stage::sidebarDiffers() const
{
    const QString text = editorText();
    if (!m_isTyping && text != manager->prompt()) {
        return u"the editor shows \"%1\", the prompt is \"%2\""_s.arg(text, manager->prompt());
    }
    const QQuickItem *button = find(u"generateButton"_s);
    if (!manager->isLoading() && button->isEnabled() == text.isEmpty()) {
        return u"the button is %1 with the editor at \"%2\""_s.arg(button->isEnabled() ? u"enabled"_s : u"disabled"_s,
                                                                   text);
    }
    if (find(u"fourKToggle"_s)->property("checked").toBool() != manager->fourKEnabled()) {
        return u"the 4K switch shows something else than is so"_s;
    }
    if (isSeen(u"status"_s) && textOf(find(u"status"_s)) != manager->status()) {
        return u"the status is \"%1\" and shown as \"%2\""_s.arg(manager->status(), textOf(find(u"status"_s)));
    }
    return {};
}

QString Stage::spokenDiffers() const
{
    // What a screen reader is told: a name for every tile in sight, and none for tiles that are not there.
    QStringList spoken;
    const std::function<void(QAccessibleInterface *)> collect = [&](QAccessibleInterface *interface) {
        if (interface == nullptr) {
            return;
        }
        const QObject *object = interface->object();
        if (object != nullptr && object->objectName().startsWith("tile "_L1) && !interface->state().invisible) {
            spoken.append(object->objectName().sliced(5));
            if (interface->text(QAccessible::Name).isEmpty()) {
                spoken.last() += u" without a name"_s;
            }
        }
        for (int child = 0; child < interface->childCount(); ++child) {
            collect(interface->child(child));
        }
    };
    collect(QAccessible::queryAccessibleInterface(window));
    if (isPreviewOpen() || !isSeen(u"imageGrid"_s)) {
        return {};
    }
    const QString title = textOf(find(u"albumTitle"_s));
    QStringList images;
    for (const Album &album : manager->albums()) {
        if (album.id == title) {
            images = album.images;
        }
    }
    for (const QString &url : spoken) {
        if (!images.contains(url)) {
            return u"a screen reader is told of %1 in \"%2\""_s.arg(url, title);
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
