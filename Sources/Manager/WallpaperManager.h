#pragma once

#include "Manager/Library/Album.h"
#include "Manager/Library/KeptPicture.h"
#include "Manager/ManagerServices.h"
#include "Manager/Operations.h"
#include "Manager/ProviderChoice.h"
#include "Manager/Schedule.h"
#include "Platform/Threads/TaskScope.h"

#include <QDateTime>
#include <QObject>

#include <memory>

namespace quorvane {

class Deletions;
class Library;
class Undo;
class WallpaperSetter;
struct Screen;

/// The one observable model and controller of the program: settings, state, and every operation. All of it belongs to
/// the main thread. A file location is an absolute path throughout.
///
/// It is a face: Library, Schedule and WallpaperSetter own what they are named for, ProviderChoice holds the rules of
/// providers and keys, and Operations what runs. Here are the settings, and the way from a prompt to the wallpaper.
class WallpaperManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    Q_PROPERTY(bool isError READ isError NOTIFY isErrorChanged)
    Q_PROPERTY(QStringList problems READ problems NOTIFY problemsChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(QString upscalingURL READ upscalingURL NOTIFY upscalingURLChanged)
    Q_PROPERTY(bool fourKEnabled READ fourKEnabled WRITE setFourKEnabled NOTIFY fourKEnabledChanged)
    Q_PROPERTY(bool nsfwEnabled READ nsfwEnabled WRITE setNsfwEnabled NOTIFY nsfwEnabledChanged)
    Q_PROPERTY(QString providerOverride READ providerOverride WRITE setProviderOverride NOTIFY providerOverrideChanged)
    Q_PROPERTY(QStringList history READ history NOTIFY historyChanged)
    Q_PROPERTY(bool autoEnabled READ autoEnabled WRITE setAutoEnabled NOTIFY autoEnabledChanged)
    Q_PROPERTY(qint64 intervalMinutes READ intervalMinutes WRITE setIntervalMinutes NOTIFY intervalMinutesChanged)
    Q_PROPERTY(QDateTime nextFireDate READ nextFireDate NOTIFY nextFireDateChanged)
    Q_PROPERTY(QString currentWallpaperURL READ currentWallpaperURL NOTIFY currentWallpaperURLChanged)

  public:
    explicit WallpaperManager(ManagerServices services, QObject *parent = nullptr);
    ~WallpaperManager() override; ///< Cancels what runs, waits for it and leaves nothing half done.

    [[nodiscard]] const Providers &providers() const { return m_providers; } ///< Gemini, Grok, OpenAI.
    [[nodiscard]] static const QList<int> &intervalOptions();                ///< On offer, in minutes.

    // --- What happens now ---
    [[nodiscard]] const QString &status() const { return m_status; }
    [[nodiscard]] bool isError() const { return m_isError; }
    /// What could not be kept of what status tells, and what was found unreadable: a line each, below the status.
    [[nodiscard]] const QStringList &problems() const { return m_problems; }
    void tell(const QStringList &problems); ///< Adds to them, until the next operation's replace them.
    [[nodiscard]] bool isLoading() const { return m_operations.isAnyMaking(); }
    [[nodiscard]] QString upscalingURL() const { return m_operations.upscaling(); }
    /// How far the newest enlargement on this machine is; nothing while none runs.
    [[nodiscard]] std::optional<UpscaleProgress> progress() const { return m_operations.progress(); }
    [[nodiscard]] quint64 nextOperation() const { return m_operations.next(); } ///< operationEnded() tells it again.
    void waitUntilIdle(); ///< Runs the event loop until no operation runs any more.

    // --- Settings, each kept at every assignment ---
    [[nodiscard]] Q_INVOKABLE QString prompt() const { return m_prompt; }
    Q_INVOKABLE void setPrompt(const QString &prompt);
    [[nodiscard]] bool fourKEnabled() const { return m_fourKEnabled; }
    void setFourKEnabled(bool enabled);
    [[nodiscard]] bool nsfwEnabled() const { return m_nsfwEnabled; }
    void setNsfwEnabled(bool enabled);
    /// kAutomatic or a provider's id. A text that names no provider behaves like the first one's.
    [[nodiscard]] const QString &providerOverride() const { return m_providerOverride; }
    void setProviderOverride(const QString &override);
    [[nodiscard]] UpscaleMethod upscaleMethod() const;
    void setUpscaleMethod(UpscaleMethod method);
    [[nodiscard]] QString selectedModel(const QString &providerId) const;
    void setSelectedModel(const QString &providerId, const QString &modelId);
    /// The user's keys by provider id. Reads the key file, as the two below write it.
    [[nodiscard]] static TextMap storedKeys();
    /// Reads the key file. Any thread.
    [[nodiscard]] static QSet<QString> storedKeyIds();
    Result<> saveKey(const QString &key, const QString &providerId);
    Result<> removeKey(const QString &providerId);
    [[nodiscard]] Undo &keyRemovals() { return *m_keyRemovals; } ///< What windows remove, and may bring back.

    // --- What follows from them: as in ProviderChoice ---
    [[nodiscard]] ProviderChoice choice() const;
    [[nodiscard]] bool nsfwApplies() const;
    [[nodiscard]] const ImageProvider &resolvedProvider() const;
    [[nodiscard]] QString resolvedModelId() const;
    [[nodiscard]] bool providerProducesNative4K() const;
    [[nodiscard]] QStringList missingKeys() const { return missingKeys(storedKeyIds()); }
    [[nodiscard]] QStringList missingKeys(const QSet<QString> &storedKeyIds) const;

    // --- Operations. They return at once; status and operationEnded() tell the rest ---
    /// Makes a picture of the prompt and sets it as the wallpaper. A call while another runs starts a second run.
    Q_INVOKABLE void generateAndSet();
    /// Makes a 4K copy of the picture, links the two and sets the copy as the wallpaper.
    Q_INVOKABLE void upscaleExistingImage(const QString &url);
    Q_INVOKABLE bool cancel(); ///< Ends what makes a picture, on the wire, too; what is saved stays. Whether any ran.
    /// Sets the picture as the background of every screen.
    Q_INVOKABLE void setWallpaper(const QString &url);
    Q_INVOKABLE void toggleFavorite(const QString &url);
    /// Deletes the picture and its enlarged partner for good, then reads the library again. Stops its enlargement.
    Q_INVOKABLE void deleteImage(const QString &url);
    [[nodiscard]] Deletions &deletions() { return *m_deletions; } ///< What windows delete, and may bring back.

    // --- The desktop: as in WallpaperSetter ---
    [[nodiscard]] const QString &currentWallpaperURL() const;
    /// Takes it from the settings, where it may have been changed: the stored path while there is a file, else none.
    /// The path of a picture that is gone stays stored: the disk may only be unplugged.
    void restoreCurrentWallpaper();
    void askForScreens(std::function<void(const QList<Screen> &)> told);

    // --- The schedule: as in Schedule ---
    [[nodiscard]] bool autoEnabled() const { return m_autoEnabled; }
    void setAutoEnabled(bool enabled);
    [[nodiscard]] qint64 intervalMinutes() const { return m_intervalMinutes; }
    void setIntervalMinutes(qint64 minutes);
    [[nodiscard]] const QDateTime &nextFireDate() const;
    /// (Re)starts the schedule from the present moment; only while autoEnabled.
    void startTimer();
    void stopTimer();

    // --- History, favourites and albums: as in Library ---
    [[nodiscard]] bool isHistoryRead() const;
    [[nodiscard]] const QStringList &history() const;
    [[nodiscard]] const QSet<QString> &favorites() const;
    Q_INVOKABLE void reloadHistory(); ///< Reads the library now, on this thread.
    /// As reloadHistory(), but returns at once: the library is read on its own thread.
    void refreshHistory();
    [[nodiscard]] std::vector<Album> albums() const; ///< Computed from the history and the files at every call.

  Q_SIGNALS:
    void statusChanged();
    void isErrorChanged();
    void problemsChanged();
    void isLoadingChanged();
    void upscalingURLChanged();
    void promptChanged(); ///< Another text; the prompt is no property.
    void fourKEnabledChanged();
    void nsfwEnabledChanged();
    void providerOverrideChanged();
    void historyChanged();
    void favoritesChanged();
    void autoEnabledChanged();
    void intervalMinutesChanged();
    void nextFireDateChanged();
    void currentWallpaperURLChanged();
    void progressChanged();
    void upscaleMethodChanged();
    void selectedModelChanged(const QString &providerId);
    void keysChanged();
    /// An operation has ended. What it tells is its own outcome, while status is that of whichever reported last.
    void operationEnded(const OperationResult &result);

  private:
    struct Generation;
    [[nodiscard]] OperationRef begin(Operation::Kind kind, const QString &source = {});
    void end(const OperationRef &operation);
    void endCancelled(const OperationRef &operation);
    void report(Operation &operation, const QString &status, bool isError);
    void publish(const QString &status, bool isError, const QStringList &problems = {});
    Result<> keysWereChanged(const Result<> &kept);
    void tellingChanges(const std::function<void()> &change);
    [[nodiscard]] QDateTime now() const;
    void generate(bool isTimed);
    [[nodiscard]] QCoro::Task<> generating(Generation run);
    [[nodiscard]] QCoro::Task<EncodedImage> upscaledOrOriginal(EncodedImage generated, OperationRef operation);
    [[nodiscard]] QCoro::Task<EncodedImage> upscaleLocally(QByteArray image, OperationRef operation);
    [[nodiscard]] QCoro::Task<QString> nameBeside(QString original, QString extension, OperationRef operation);
    [[nodiscard]] QCoro::Task<Result<KeptPicture>> keeping(NewPicture picture, OperationRef operation);
    [[nodiscard]] QCoro::Task<> upscalingExistingImage(QString url, OperationRef operation);
    [[nodiscard]] QCoro::Task<> settingWallpaper(QString url, OperationRef operation);
    [[nodiscard]] QCoro::Task<> applying(QString url, OperationRef operation);
    [[nodiscard]] QCoro::Task<> changingLibrary(QCoro::Task<Result<>> change, OperationRef operation);

    ManagerServices m_services;
    Providers m_providers;
    QString m_prompt;
    bool m_fourKEnabled = false;
    bool m_nsfwEnabled = false;
    QString m_providerOverride;
    bool m_autoEnabled = false;
    qint64 m_intervalMinutes = 0;
    Operations m_operations;
    QString m_status;
    bool m_isError = false;
    QStringList m_problems;
    TaskScope m_scope; ///< Drained before the owners below go.
    std::unique_ptr<Library> m_library;
    std::unique_ptr<Deletions> m_deletions;
    std::unique_ptr<Undo> m_keyRemovals;
    std::unique_ptr<WallpaperSetter> m_setter;
    std::unique_ptr<Schedule> m_schedule;
};

} // namespace quorvane
