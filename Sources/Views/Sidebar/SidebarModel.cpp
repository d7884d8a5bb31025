#include "Views/Sidebar/SidebarModel.h"

#include "Manager/IntervalLabel.h"
#include "Manager/ShortTime.h"
#include "Views/ProgressText.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quorvane {

SidebarModel::SidebarModel(QObject *parent)
    : ViewModel(parent)
    , m_reading([this](QSet<QString> ids) {
        m_storedKeyIds = std::move(ids);
        Q_EMIT changed();
    })
{
}

void SidebarModel::attach()
{
    WallpaperManager *source = manager();
    followPrompt();
    connect(source, &WallpaperManager::promptChanged, this, &SidebarModel::followPrompt);
    // What decides which keys are needed.
    for (const auto signal : {&WallpaperManager::providerOverrideChanged, &WallpaperManager::nsfwEnabledChanged,
                              &WallpaperManager::fourKEnabledChanged, &WallpaperManager::upscaleMethodChanged,
                              &WallpaperManager::keysChanged, &WallpaperManager::isLoadingChanged}) {
        connect(source, signal, this, &SidebarModel::refresh);
    }
    connect(source, &WallpaperManager::selectedModelChanged, this, &SidebarModel::refresh);
    connect(source, &WallpaperManager::statusChanged, this, [this] { m_wasCancelled = false; });
    for (const auto signal :
         {&WallpaperManager::autoEnabledChanged, &WallpaperManager::intervalMinutesChanged,
          &WallpaperManager::nextFireDateChanged, &WallpaperManager::statusChanged, &WallpaperManager::isErrorChanged,
          &WallpaperManager::problemsChanged, &WallpaperManager::progressChanged}) {
        connect(source, signal, this, &SidebarModel::changed);
    }
    connect(source, &WallpaperManager::operationEnded, this, [this](const OperationResult &result) {
        if (result.isError && !manager()->isError() && result.status == manager()->status()) {
            m_wasCancelled = true;
            Q_EMIT changed();
        }
    });
    refresh();
}

void SidebarModel::refresh()
{
    m_reading.ask(&WallpaperManager::storedKeyIds);
    Q_EMIT changed();
}

QStringList SidebarModel::missingKeys() const
{
    return m_storedKeyIds ? manager()->missingKeys(*m_storedKeyIds) : QStringList();
}

void SidebarModel::setPromptText(const QString &text)
{
    if (text == m_promptText) {
        return;
    }
    m_isTyping = m_isKeyboardInEditor;
    setShownPrompt(text);
    manager()->setPrompt(text);
}

void SidebarModel::setShownPrompt(const QString &text)
{
    m_promptText = text;
    Q_EMIT promptTextChanged();
    Q_EMIT changed();
}

void SidebarModel::followPrompt()
{
    if (manager()->prompt() == m_promptText) {
        return;
    }
    if (!m_isTyping) {
        setShownPrompt(manager()->prompt());
        return;
    }
    // Later, because who changed it may be about to generate from it.
    QMetaObject::invokeMethod(
        this, [this] { manager()->setPrompt(m_promptText); }, Qt::QueuedConnection);
}

void SidebarModel::setKeyboardInEditor(bool isThere)
{
    if (isThere != m_isKeyboardInEditor) {
        m_isKeyboardInEditor = isThere;
        m_isTyping = false;
        Q_EMIT keyboardInEditorChanged();
    }
}

bool SidebarModel::fourKEnabled() const
{
    return manager()->fourKEnabled();
}

void SidebarModel::setFourKEnabled(bool enabled)
{
    manager()->setFourKEnabled(enabled);
}

bool SidebarModel::nsfwEnabled() const
{
    return manager()->nsfwEnabled();
}

void SidebarModel::setNsfwEnabled(bool enabled)
{
    manager()->setNsfwEnabled(enabled);
}

bool SidebarModel::nsfwShown() const
{
    return manager()->nsfwApplies();
}

QString SidebarModel::providerName() const
{
    return manager()->resolvedProvider().name();
}

QString SidebarModel::upscaleHint() const
{
    if (!manager()->fourKEnabled() || manager()->providerProducesNative4K()) {
        return {};
    }
    return manager()->upscaleMethod() == UpscaleMethod::Local ? tr("+ Local 4K") : tr("+ Gemini 4K");
}

bool SidebarModel::isLoading() const
{
    return manager()->isLoading();
}

bool SidebarModel::canGenerate() const
{
    return !m_promptText.isEmpty() && !manager()->isLoading() && m_storedKeyIds && missingKeys().isEmpty();
}

void SidebarModel::generate()
{
    if (canGenerate()) {
        m_isTyping = false;
        manager()->setPrompt(m_promptText);
        manager()->generateAndSet();
    }
}

bool SidebarModel::autoEnabled() const
{
    return manager()->autoEnabled();
}

void SidebarModel::setAutoEnabled(bool enabled)
{
    manager()->setAutoEnabled(enabled);
}

QStringList SidebarModel::intervalLabels()
{
    QStringList labels;
    for (const int minutes : WallpaperManager::intervalOptions()) {
        labels.append(formatInterval(minutes));
    }
    return labels;
}

int SidebarModel::intervalIndex() const
{
    const QList<int> &options = WallpaperManager::intervalOptions();
    for (int index = 0; index < options.size(); ++index) {
        if (options[index] == manager()->intervalMinutes()) {
            return index;
        }
    }
    return -1;
}

QString SidebarModel::intervalLabel() const
{
    return formatInterval(manager()->intervalMinutes());
}

void SidebarModel::chooseInterval(int index)
{
    manager()->setIntervalMinutes(WallpaperManager::intervalOptions().value(index, int(manager()->intervalMinutes())));
}

QString SidebarModel::nextFireText() const
{
    const QDateTime due = manager()->nextFireDate();
    if (!manager()->autoEnabled() || !due.isValid()) {
        return {};
    }
    return tr("Next: %1").arg(shortTime(due, QLocale()));
}

QString SidebarModel::status() const
{
    return manager()->status();
}

bool SidebarModel::isError() const
{
    return manager()->isError();
}

QString SidebarModel::problems() const
{
    return manager()->problems().join('\n'_L1);
}

QString SidebarModel::progressText() const
{
    return quorvane::progressText(manager()->progress());
}

double SidebarModel::progressShare() const
{
    return quorvane::progressShare(manager()->progress());
}

} // namespace quorvane
