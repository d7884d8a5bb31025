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
    Q_PROPERTY(bool keyboardInEditor READ keyboardInEditor WRITE setKeyboardInEditor NOTIFY keyboardInEditorChanged)
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
    Q_PROPERTY(bool wasCancelled READ wasCancelled NOTIFY changed)
    Q_PROPERTY(QString problems READ problems NOTIFY changed)
    Q_PROPERTY(QString progressText READ progressText NOTIFY changed)
    Q_PROPERTY(double progressShare READ progressShare NOTIFY changed)

  public:
    explicit SidebarModel(QObject *parent = nullptr);

    /// The text in the editor, and the manager's prompt: what is written here is at once the manager's, and what others
    /// give the manager is at once here, except while the user types. Then the user's text wins, as soon as those
    /// others have had the time to generate from theirs.
    [[nodiscard]] const QString &promptText() const { return m_promptText; }
    void setPromptText(const QString &text);

    /// Whether what is typed goes into the editor. The user types once something was written since it began to, or
    /// since the last picture was asked for.
    [[nodiscard]] bool keyboardInEditor() const { return m_isKeyboardInEditor; }
    void setKeyboardInEditor(bool isThere);

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

    /// Ends what makes a picture.
    Q_INVOKABLE void cancel() { manager()->cancel(); }

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
    /// Whether the status tells of what the user cancelled: neither a success nor a failure.
    [[nodiscard]] bool wasCancelled() const { return m_wasCancelled; }

    /// What was not kept although the last operation went on, a line each; empty when all was.
    [[nodiscard]] QString problems() const;

    /// How far an enlargement on this machine is; empty, and 0, while none runs.
    [[nodiscard]] QString progressText() const;
    [[nodiscard]] double progressShare() const;

    /// Looks again at what other programs may have changed: the key file. Returns at once.
    Q_INVOKABLE void refresh();

  Q_SIGNALS:
    void promptTextChanged();
    void keyboardInEditorChanged();
    void changed();

  private:
    void attach() override;
    void followPrompt();
    void setShownPrompt(const QString &text);

    QString m_promptText;
    bool m_isKeyboardInEditor = false;
    bool m_isTyping = false;
    bool m_wasCancelled = false;
    std::optional<QSet<QString>> m_storedKeyIds; ///< Nothing until they have been read.
    LatestReading<QSet<QString>> m_reading;
};

} // namespace quorvane
