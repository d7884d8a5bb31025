#include "UI/Play/Stage.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
