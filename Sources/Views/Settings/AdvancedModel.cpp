#include "Views/Settings/AdvancedModel.h"

using namespace Qt::StringLiterals;

namespace quorvane {

void ModelPicker::load()
{
    m_index = int(ids.indexOf(manager->selectedModel(providerId)));
    Q_EMIT changed();
}

void ModelPicker::choose(int index)
{
    if (index < 0 || index >= ids.size() || index == m_index) {
        return;
    }
    m_index = index;
    manager->setSelectedModel(providerId, ids[index]);
    Q_EMIT changed();
}

void AdvancedModel::attach()
{
    for (const auto signal : {&WallpaperManager::providerOverrideChanged, &WallpaperManager::nsfwEnabledChanged,
                              &WallpaperManager::upscaleMethodChanged}) {
        connect(manager(), signal, this, &AdvancedModel::changed);
    }
    connect(manager(), &WallpaperManager::selectedModelChanged, this, &AdvancedModel::changed);
    connect(manager(), &WallpaperManager::selectedModelChanged, this, &AdvancedModel::loadModels);
    for (const auto &provider : manager()->providers()) {
        auto *picker = new ModelPicker(this);
        picker->label = tr("%1 Model").arg(provider->name());
        picker->providerId = provider->id();
        picker->manager = manager();
        for (const ModelOption &model : provider->models()) {
            picker->ids.append(model.id);
            picker->names.append(model.label);
        }
        picker->load();
        m_models.append(picker);
    }
    Q_EMIT changed();
}

void AdvancedModel::loadModels()
{
    for (QObject *picker : m_models) {
        qobject_cast<ModelPicker *>(picker)->load();
    }
}

QStringList AdvancedModel::providerNames() const
{
    QStringList names{tr("Auto")};
    for (const auto &provider : manager()->providers()) {
        names.append(provider->name());
    }
    return names;
}

QStringList AdvancedModel::providerIds() const
{
    QStringList ids{kAutomatic};
    for (const auto &provider : manager()->providers()) {
        ids.append(provider->id());
    }
    return ids;
}

int AdvancedModel::providerIndex() const
{
    return int(providerIds().indexOf(manager()->providerOverride()));
}

void AdvancedModel::chooseProvider(int index)
{
    manager()->setProviderOverride(providerIds().value(index, manager()->providerOverride()));
}

QString AdvancedModel::native4KNote() const
{
    if (!manager()->providerProducesNative4K()) {
        return {};
    }
    return tr("%1 produces 4K natively — no upscaling needed.").arg(manager()->resolvedProvider().name());
}

QStringList AdvancedModel::upscaleMethods()
{
    return {tr("Gemini (API)"), tr("Local (on-device)")};
}

int AdvancedModel::upscaleMethodIndex() const
{
    return manager()->upscaleMethod() == UpscaleMethod::Local ? 1 : 0;
}

void AdvancedModel::chooseUpscaleMethod(int index)
{
    manager()->setUpscaleMethod(index == 1 ? UpscaleMethod::Local : UpscaleMethod::Gemini);
}

} // namespace quorvane
