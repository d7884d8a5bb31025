#pragma once

#include "Views/ViewModel.h"

#include <QQmlListProperty>

namespace quorvane {

/// The models of one service.
class ModelPicker : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to AdvancedModel.")
    Q_PROPERTY(QString label MEMBER label CONSTANT)
    Q_PROPERTY(QString providerId MEMBER providerId CONSTANT)
    Q_PROPERTY(QStringList names MEMBER names CONSTANT)
    Q_PROPERTY(int index READ index NOTIFY changed)

  public:
    using QObject::QObject;

    [[nodiscard]] int index() const { return m_index; }
    /// The user's choice; only this writes.
    Q_INVOKABLE void choose(int index);

    /// Shows the stored model, or the first where none or an unknown one is stored.
    void load();

    QString label;
    QString providerId;
    QStringList ids;
    QStringList names;
    WallpaperManager *manager = nullptr;

  Q_SIGNALS:
    void changed();

  private:
    int m_index = -1;
};

/// The tab of the rarer choices.
class AdvancedModel : public quorvane::ViewModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QStringList providerNames READ providerNames NOTIFY managerChanged)
    Q_PROPERTY(int providerIndex READ providerIndex NOTIFY changed)
    Q_PROPERTY(QString native4KNote READ native4KNote NOTIFY changed)
    Q_PROPERTY(QStringList upscaleMethods READ upscaleMethods CONSTANT)
    Q_PROPERTY(int upscaleMethodIndex READ upscaleMethodIndex NOTIFY changed)
    Q_PROPERTY(QQmlListProperty<QObject> models READ modelList NOTIFY managerChanged)

  public:
    using ViewModel::ViewModel;

    /// "Auto", then the services.
    [[nodiscard]] QStringList providerNames() const;
    /// -1 when the setting names no service.
    [[nodiscard]] int providerIndex() const;
    Q_INVOKABLE void chooseProvider(int index);

    /// Stands in the place of the upscale method where the resolved service needs none; empty otherwise.
    [[nodiscard]] QString native4KNote() const;

    [[nodiscard]] static QStringList upscaleMethods();
    [[nodiscard]] int upscaleMethodIndex() const;
    Q_INVOKABLE void chooseUpscaleMethod(int index);

    /// ModelPicker: Gemini, Grok, OpenAI.
    [[nodiscard]] const QList<QObject *> &models() const { return m_models; }
    [[nodiscard]] QQmlListProperty<QObject> modelList() { return {this, &m_models}; }

    /// The tab appears, or a model was chosen, here or elsewhere.
    Q_INVOKABLE void loadModels();

  Q_SIGNALS:
    void changed();

  private:
    void attach() override;
    [[nodiscard]] QStringList providerIds() const;

    QList<QObject *> m_models;
};

} // namespace quorvane
