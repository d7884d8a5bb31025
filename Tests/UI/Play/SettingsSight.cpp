#include "UI/Play/SettingsSight.h"

#include "Manager/SettingsKeys.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QStringList kServices{u"gemini"_s, u"grok"_s, u"openai"_s};

QString serviceOf(quint32 number)
{
    return kServices[number % static_cast<quint32>(kServices.size())];
}

std::optional<QString> storedKey(const QString &service)
{
    const TextMap keys = WallpaperManager::storedKeys();
    const auto found = keys.find(service);
    return found != keys.end() ? std::optional(found->second) : std::nullopt;
}

} // namespace

void SettingsSight::turnTo(QQuickWindow *window)
{
    if (!window->isActive()) {
        window->requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
}

void SettingsSight::turnToSettings()
{
    m_isTyping = false;
    if (m_settings == nullptr) {
        m_typed.clear();
        m_settings = openBeside(u"SettingsWindow"_s);
    }
    turnTo(m_settings.get());
}

QQuickItem *SettingsSight::inSettings(const QString &name) const
{
    return findBelow(m_settings->contentItem(), name, true);
}

void SettingsSight::turnToTab(const QString &button)
{
    turnToSettings();
    if (!inSettings(button)->property("checked").toBool()) {
        press(inSettings(button));
    }
}

bool SettingsSight::press(QQuickItem *item)
{
    if (item == nullptr || !item->isEnabled()) {
        return false;
    }
    bringIntoSight(item);
    QTest::mouseClick(m_settings.get(), Qt::LeftButton, {}, middleOf(item));
    return true;
}

QString SettingsSight::typeKey(quint32 number)
{
    turnToTab(u"apiKeysTab"_s);
    const QString service = serviceOf(number);
    QQuickItem *field = inSettings(service + u"Field"_s);
    const QString before = textOf(field);
    press(field);
    QTest::keyClick(m_settings.get(), Qt::Key_End);
    QTest::keyClick(m_settings.get(), 'k');
    QTest::keyClick(m_settings.get(), static_cast<char>('0' + number % 10));
    const QString typed = before + u"k%1"_s.arg(number % 10);
    m_typed[service] = typed;
    return textOf(field) == typed ? QString() : u"the field of %1 holds something else than was typed"_s.arg(service);
}

QString SettingsSight::saveKey(quint32 number)
{
    turnToTab(u"apiKeysTab"_s);
    const QString service = serviceOf(number);
    const QString text = textOf(inSettings(service + u"Field"_s));
    if (!press(inSettings(service + u"Save"_s))) {
        return {};
    }
    m_typed.remove(service);
    return storedKey(service) == text ? QString() : u"the key of %1 is not stored as it was shown"_s.arg(service);
}

QString SettingsSight::removeKey(quint32 number)
{
    turnToTab(u"apiKeysTab"_s);
    const QString service = serviceOf(number);
    TextMap expected = WallpaperManager::storedKeys();
    if (!press(inSettings(service + u"Trash"_s))) {
        return {};
    }
    m_typed.remove(service);
    expected.erase(service);
    return WallpaperManager::storedKeys() == expected
               ? QString()
               : u"the trash of %1's key left other keys than the others"_s.arg(service);
}

QString SettingsSight::choose(const QString &row, quint32 number)
{
    turnToTab(u"advancedTab"_s);
    const QQuickItem *line = inSettings(row);
    if (line == nullptr) {
        return {};
    }
    auto *picker = line->property("picker").value<QQuickItem *>();
    auto *list = picker->property("popup").value<QObject *>();
    press(picker);
    if (!waitFor([list] { return list->property("opened").toBool(); })) {
        return u"a click on %1 opens no list"_s.arg(row);
    }
    for (quint32 step = 0; step < 1 + number % 3; ++step) {
        QTest::keyClick(m_settings.get(), number % 2 == 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    const int marked = picker->property("highlightedIndex").toInt();
    QTest::keyClick(m_settings.get(), Qt::Key_Return);
    if (!waitFor([list] { return !list->property("visible").toBool(); })) {
        return u"Return does not close the list of %1"_s.arg(row);
    }
    const QString wanted = line->property("choices").toStringList().value(marked);
    // The row may go with what was chosen in it, but it does not by itself.
    return picker->property("displayText").toString() == wanted
               ? QString()
               : u"%1 was chosen in %2, which shows %3"_s.arg(wanted, row, picker->property("displayText").toString());
}

QString SettingsSight::chooseProvider(quint32 number)
{
    return choose(u"providerRow"_s, number);
}

QString SettingsSight::chooseMethod(quint32 number)
{
    return choose(u"upscaleMethodRow"_s, number);
}

QString SettingsSight::chooseModel(quint32 number)
{
    return choose(serviceOf(number) + u"ModelRow"_s, number);
}

QString SettingsSight::closeSettings(quint32 number)
{
    if (m_settings == nullptr) {
        return {};
    }
    turnToSettings();
    if (number % 2 == 0) {
        QTest::keyClick(m_settings.get(), Qt::Key_Escape);
    } else {
        QTest::keyClick(m_settings.get(), Qt::Key_W, Qt::ControlModifier);
    }
    if (!waitFor([this] { return !m_settings->isVisible(); })) {
        return u"the settings do not close"_s;
    }
    m_settings.reset();
    return {};
}

QString SettingsSight::settingsDiffer() const
{
    if (m_settings == nullptr) {
        return {};
    }
    const QColor page = m_settings->color();
    const QColor wanted = QGuiApplication::palette().color(QPalette::Window);
    if ((qGray(page.rgb()) < 128) != (qGray(wanted.rgb()) < 128)) {
        return u"the settings are %1 on a desktop that is %2"_s.arg(page.name(), wanted.name());
    }
    return isShown(u"geminiField"_s) ? keysDiffer() : choicesDiffer();
}

QString SettingsSight::keysDiffer() const
{
    for (const QString &service : kServices) {
        const std::optional<QString> stored = storedKey(service);
        const QString text = textOf(inSettings(service + u"Field"_s));
        if (text != m_typed.value(service, stored.value_or(QString()))) {
            return u"the field of %1 holds neither what was typed nor what is stored"_s.arg(service);
        }
        if (isShown(service + u"Saved"_s) != stored.has_value() ||
            isShown(service + u"Trash"_s) != stored.has_value()) {
            return u"the key of %1 is %2, and is not shown so"_s.arg(service, stored ? u"stored"_s : u"not stored"_s);
        }
        if (isShown(service + u"Unsaved"_s) != (text != stored.value_or(QString()))) {
            return u"whether the field of %1 is saved is told wrongly"_s.arg(service);
        }
        const QQuickItem *save = inSettings(service + u"Save"_s);
        if (save->isEnabled() == text.isEmpty() || textOf(save) != (stored ? u"Update"_s : u"Save"_s)) {
            return u"the button of %1 is \"%2\" and %3"_s.arg(service, textOf(save),
                                                              save->isEnabled() ? u"enabled"_s : u"disabled"_s);
        }
    }
    return {};
}

QString SettingsSight::choicesDiffer() const
{
    const UserDefaults file;
    const auto shown = [this](const QString &row) {
        return inSettings(row)->property("picker").value<QQuickItem *>()->property("displayText").toString();
    };
    const QString chosen = file.text(SettingsKeys::kProviderOverride).value_or(u"auto"_s);
    QString provider = u"Auto"_s;
    for (const auto &each : manager->providers()) {
        provider = each->id() == chosen ? each->name() : provider;
        const QString stored = file.text(SettingsKeys::selectedModel(each->id())).value_or(QString());
        const QList<ModelOption> models = each->models();
        const auto found = std::find_if(models.begin(), models.end(),
                                        [&stored](const ModelOption &model) { return model.id == stored; });
        const QString model = (found != models.end() ? *found : models.front()).label;
        if (shown(each->id() + u"ModelRow"_s) != model) {
            return u"the model %1 is shown, the file says %2"_s.arg(shown(each->id() + u"ModelRow"_s), model);
        }
    }
    if (shown(u"providerRow"_s) != provider) {
        return u"the provider %1 is shown, the file says %2"_s.arg(shown(u"providerRow"_s), provider);
    }
    if (isShown(u"nativeNote"_s) != manager->providerProducesNative4K() ||
        isShown(u"nativeNote"_s) == isShown(u"upscaleMethodRow"_s)) {
        return u"the way to 4K is offered where there is none to choose, or not where there is"_s;
    }
    const bool isLocal = file.text(SettingsKeys::kUpscaleMethod) == "local"_L1;
    const QString method = isLocal ? u"Local (on-device)"_s : u"Gemini (API)"_s;
    if (isShown(u"upscaleMethodRow"_s) && shown(u"upscaleMethodRow"_s) != method) {
        return u"%1 is shown, the file says %2"_s.arg(shown(u"upscaleMethodRow"_s), method);
    }
    return {};
}

} // namespace quorvane
