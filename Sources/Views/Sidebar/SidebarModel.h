#pragma once

#include "Platform/Threads/LatestReading.h"
#include "Views/ViewModel.h"

namespace quorvane {

/// What the sidebar shows and enables.
class SidebarModel : public quorvane::ViewModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString promptText READ promptText WRITE setPromptText NOTIFY promptTextChanged)
    Q_PROPERTY(bool fourKEnabled READ fourKEnabled WRITE setFourKEnabled NOTIFY changed)
    Q_PROPERTY(bool nsfwEnabled READ nsfwEnabled WRITE setNsfwEnabled NOTIFY changed)
    Q_PROPERTY(bool nsfwShown READ nsfwShown NOTIFY changed)
    Q_PROPERTY(QString providerName READ providerName NOTIFY changed)
    Q_PROPERTY(QString upscaleHint READ upscaleHint NOTIFY changed)
    Q_PROPERTY(QStringList missingKeys READ missingKeys NOTIFY changed)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY changed)
    Q_PROPERTY(bool canGenerate READ canGenerate NOTIFY changed)
    Q_PROPERTY(bool autoEnabled READ autoEnabled WRITE setAutoEnabled NOTIFY changed)
    Q_PROPERTY(QStringList intervalLabels READ intervalLabels CONSTANT)
    Q_PROPERTY(int intervalIndex READ intervalIndex NOTIFY changed)
    Q_PROPERTY(QString intervalLabel READ intervalLabel NOTIFY changed)
    Q_PROPERTY(QString nextFireText READ nextFireText NOTIFY changed)
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(bool isError READ isError NOTIFY changed)
    Q_PROPERTY(QString progressText READ progressText NOTIFY changed)
    Q_PROPERTY(double progressShare READ progressShare NOTIFY changed)

  public:
    explicit SidebarModel(QObject *parent = nullptr);

    /// The text in the editor: the manager's prompt at the start, and from then on the other way round.
    [[nodiscard]] const QString &promptText() const { return m_promptText; }
    void setPromptText(const QString &text);

    [[nodiscard]] bool fourKEnabled() const;
    void setFourKEnabled(bool enabled);
    [[nodiscard]] bool nsfwEnabled() const;
    void setNsfwEnabled(bool enabled);
    [[nodiscard]] bool nsfwShown() const;

    [[nodiscard]] QString providerName() const;

    /// How the picture becomes 4K where its service does not make it so; empty when there is nothing to say.
    [[nodiscard]] QString upscaleHint() const;

    /// Of the keys as they were read last; none before the first reading.
    [[nodiscard]] QStringList missingKeys() const;
    [[nodiscard]] bool isLoading() const;

    /// A prompt of blanks is a prompt. False until the keys have been read.
    [[nodiscard]] bool canGenerate() const;
    /// Does nothing unless canGenerate().
    Q_INVOKABLE void generate();

    [[nodiscard]] bool autoEnabled() const;
    void setAutoEnabled(bool enabled);
    [[nodiscard]] static QStringList intervalLabels();

    /// The interval's place among the labels; -1 for one that is not on offer.
    [[nodiscard]] int intervalIndex() const;
    [[nodiscard]] QString intervalLabel() const;
    Q_INVOKABLE void chooseInterval(int index);

    /// "Next: " and the time; empty while nothing is due.
    [[nodiscard]] QString nextFireText() const;

    [[nodiscard]] QString status() const;
    [[nodiscard]] bool isError() const;

    /// How far an enlargement on this machine is; empty, and 0, while none runs.
    [[nodiscard]] QString progressText() const;
    [[nodiscard]] double progressShare() const;

    /// Looks again at what other programs may have changed: the key file. Returns at once.
    Q_INVOKABLE void refresh();

  Q_SIGNALS:
    void promptTextChanged();
    void changed();

  private:
    void attach() override;

    QString m_promptText;
    std::optional<QSet<QString>> m_storedKeyIds; ///< Nothing until they have been read.
    LatestReading<QSet<QString>> m_reading;
};

} // namespace quorvane
