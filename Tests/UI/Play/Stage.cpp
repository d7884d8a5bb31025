#include "UI/Play/Stage.h"

#include "Storage/SideFile.h"
#include "UI/Play/FrameWatch.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What a frame may take, six times over, because the tests' programs are not built to be quick.
constexpr std::chrono::milliseconds kLateFrame(100);

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
    (void)manager->saveKey(u"KEY"_s, u"gemini"_s);
    (void)manager->saveKey(u"KEY"_s, u"grok"_s);
    manager->setPrompt(u"a lake"_s);
    open();
    (void)waitFor([this] { return differences().isEmpty(); });
}

QString Stage::play(const Deed &deed)
{
    (void)FrameWatch::takeLongest();
    const QString wrong = act(deed);
    manager->waitUntilIdle();
    // What is shown follows in its own time, but it follows: a difference that stays is one.
    (void)waitFor([this] { return differences().isEmpty(); });
    m_isTyping = m_isTyping && isInEditor();
    const FrameWatch::Longest longest = FrameWatch::takeLongest();
    m_lateFrame = longest.time > kLateFrame
                      ? u"a frame took %1 ms, most of them for %2"_s.arg(longest.time.count() / 1000).arg(longest.what)
                      : QString();
    if (const QString warnings = takeWarnings(); !warnings.isEmpty()) {
        return u"Qt warns: "_s + warnings;
    }
    return wrong.isEmpty() ? differences() : wrong;
}

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

bool Stage::usePrompt()
{
    // The editor gets the keyboard, but only who had been in it is still taken to be typing.
    const bool staysInEditor = isInEditor() && !isPreviewOpen();
    const QString before = editorText();
    const bool isUsed = clickSeen(isPreviewOpen() ? u"previewUsePromptButton"_s : u"usePromptButton"_s);
    if (isUsed) {
        m_isTyping = staysInEditor && (m_isTyping || editorText() != before);
    }
    return isUsed;
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
    if (const QQuickItem *tile = ringedTile(); tile != nullptr && !isInEditor()) {
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

QString Stage::generate()
{
    const QString text = editorText();
    service.clearRequests();
    if (isPreviewOpen() || !clickSeen(u"generateButton"_s)) {
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

QString Stage::takePromptBack()
{
    const QString before = editorText();
    if (isPreviewOpen() || !usePrompt() || editorText() == before) {
        return {};
    }
    clickSeen(u"promptEditor"_s);
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    m_isTyping = true;
    return editorText() == before
               ? QString()
               : u"Ctrl+Z after Use Prompt gives \"%1\" instead of \"%2\""_s.arg(editorText(), before);
}

QString Stage::type(quint32 number)
{
    if (!clickSeen(u"promptEditor"_s)) {
        return {};
    }
    const qsizetype before = editorText().size();
    const QString text = u"x%1 "_s.arg(number % 10);
    ViewTest::type(text);
    m_isTyping = true;
    return editorText().size() == before + text.size() && editorText().contains(text)
               ? QString()
               : u"the editor shows \"%1\" after \"%2\" was typed"_s.arg(editorText(), text);
}

QString Stage::undo()
{
    const QString before = editorText();
    if (clickSeen(u"promptEditor"_s)) {
        QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
        m_isTyping = m_isTyping || editorText() != before;
    }
    return {};
}

QString Stage::promptFromOutside(quint32 number)
{
    const QString own = editorText();
    const QString prompt = pick(kPrompts, number % 3);
    const bool isUsers = m_isTyping && isInEditor();
    manager->setPrompt(prompt);
    manager->waitUntilIdle();
    QCoreApplication::processEvents();
    // Whoever types wins; else what was asked for elsewhere is seen here at once.
    return editorText() == (isUsers ? own : prompt)
               ? QString()
               : u"the editor shows \"%1\" after \"%2\" came from outside, over %3"_s.arg(
                     editorText(), prompt, isUsers ? u"what the user types"_s : u"an old text"_s);
}

void Stage::settingFromOutside(quint32 number)
{
    const quint32 value = number / 4;
    switch (number % 4) {
    case 0:
        return manager->setProviderOverride(pick(std::array{u"auto"_s, u"auto"_s, u"gemini"_s, u"grok"_s}, value));
    case 1:
        return manager->setUpscaleMethod(pick(std::array{UpscaleMethod::Local, UpscaleMethod::Gemini}, value));
    case 2:
        return manager->setNsfwEnabled(value % 2 == 0);
    default:
        const ImageProvider &provider = *manager->providers()[value % manager->providers().size()];
        manager->setSelectedModel(provider.id(), pick(provider.models(), value).id);
    }
}

void Stage::keyFromOutside(quint32 number)
{
    const QString service = pick(std::array{u"gemini"_s, u"grok"_s, u"openai"_s}, number);
    if (number % 4 == 0) {
        (void)manager->removeKey(service);
    } else {
        (void)manager->saveKey(u"OUTSIDE%1"_s.arg(number % 5), service);
    }
}

QString Stage::act(const Deed &deed)
{
    using Kind = Deed::Kind;
    const bool isInSettings = deed.kind >= Kind::TypeKey && deed.kind <= Kind::CloseSettings;
    if (isInSettings) {
        return actInSettings(deed);
    }
    if (deed.kind == Kind::PromptFromOutside) {
        return promptFromOutside(deed.number);
    }
    if (deed.kind > Kind::PromptFromOutside) {
        actFromOutside(deed);
        return {};
    }
    turnTo(window);
    return actInGallery(deed);
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
    case Kind::OpenByKey:
        return openByKey();
    default:
        return isPreviewOpen() ? actInPreview(deed) : actInSidebar(deed);
    }
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

QString Stage::actInSidebar(const Deed &deed)
{
    using Kind = Deed::Kind;
    switch (deed.kind) {
    case Kind::UsePrompt:
        usePrompt();
        return {};
    case Kind::TakePromptBack:
        return takePromptBack();
    case Kind::Type:
        return type(deed.number);
    case Kind::Undo:
        return undo();
    case Kind::Generate:
        return generate();
    case Kind::SwitchFourK:
        clickSeen(u"fourKToggle"_s);
        return {};
    case Kind::SwitchNsfw:
        clickSeen(u"nsfwToggle"_s);
        return {};
    case Kind::SwitchTheme:
        QGuiApplication::setPalette(deed.number % 2 == 0 ? palette(Qt::white, Qt::black)
                                                         : palette(QColor(30, 30, 30), Qt::white));
        return {};
    case Kind::Resize:
        window->resize(pick(std::array{QSize(760, 480), QSize(1100, 760), QSize(1400, 900)}, deed.number));
        return {};
    default:
        return {};
    }
}

QString Stage::actInSettings(const Deed &deed)
{
    using Kind = Deed::Kind;
    switch (deed.kind) {
    case Kind::TypeKey:
        return typeKey(deed.number);
    case Kind::SaveKey:
        return saveKey(deed.number);
    case Kind::RemoveKey:
        // Without keys there is little else to do.
        return deed.number % 2 == 0 ? removeKey(deed.number) : QString();
    case Kind::ChooseProvider:
        return chooseProvider(deed.number);
    case Kind::ChooseMethod:
        return chooseMethod(deed.number);
    case Kind::ChooseModel:
        return chooseModel(deed.number);
    default:
        return closeSettings(deed.number);
    }
}

void Stage::actFromOutside(const Deed &deed)
{
    using Kind = Deed::Kind;
    const QStringList history = manager->history();
    switch (deed.kind) {
    case Kind::GenerateFromOutside:
        manager->setPrompt(u"outside %1"_s.arg(deed.number % 3));
        manager->generateAndSet();
        return;
    case Kind::StarFromOutside:
        if (!history.isEmpty()) {
            (void)ImageStore::saveFavorite(imageName(pick(history, deed.number)));
            manager->refreshHistory();
        }
        return;
    case Kind::DeleteFromOutside:
        if (history.size() > 3) {
            manager->deleteImage(pick(history, deed.number));
        }
        return;
    case Kind::SettingFromOutside:
        return settingFromOutside(deed.number);
    case Kind::KeyFromOutside:
        return keyFromOutside(deed.number);
    case Kind::FileAdded: {
        const QString name = u"added%1.png"_s.arg(++m_made);
        (void)ImageStore::saveImage(name, plainPicture(m_made * 53));
        (void)ImageStore::savePrompt(pick(kPrompts, deed.number % 3), name);
        manager->refreshHistory();
        return;
    }
    case Kind::FileRemoved:
        if (history.size() > 3) {
            QFile::remove(pick(history, deed.number));
            manager->refreshHistory();
        }
        return;
    default:
        return;
    }
}

QString Stage::differences() const
{
    for (const auto check : {&Stage::filesDiffer, &Stage::albumsDiffer, &Stage::tilesDiffer, &Stage::previewDiffers,
                             &Stage::sidebarDiffers, &Stage::lookDiffers, &Stage::spokenDiffers}) {
        if (const QString difference = (this->*check)(); !difference.isEmpty()) {
            return difference;
        }
    }
    return settingsDiffer();
}

} // namespace quorvane
