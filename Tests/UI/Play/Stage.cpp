#include "UI/Play/Stage.h"

#include "UI/Play/FrameWatch.h"

#include <QBuffer>
#include <QStyleHints>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What a frame may take, six times over, because the tests' programs are not built to be quick.
constexpr std::chrono::milliseconds kLateFrame(100);

} // namespace

Stage::Stage()
{
    service.setPictureMaker([](const QString &prompt, QSize /*size*/) {
        QImage image(96, 60, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(static_cast<int>(qHash(prompt) % 360), 90, 220));
        return image;
    });
    // Two presses that follow each other are two deeds here.
    QGuiApplication::styleHints()->setMouseDoubleClickInterval(0);
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
    hover(QPoint(2, 2)); // Pictures keep their places below the pointer.
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

QByteArray Stage::plainPicture(int shade)
{
    QImage image(96, 60, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(shade % 360, 160, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
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
