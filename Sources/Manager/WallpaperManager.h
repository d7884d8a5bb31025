#pragma once

#include "Manager/Album.h"
#include "Platform/Threads/Mailbox.h"
#include "Platform/Threads/TaskScope.h"
#include "Providers/ImageProvider.h"
#include "Upscaling/LocalUpscaler.h"

#include <QCoroTask>
#include <QDateTime>
#include <QFuture>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QThreadPool>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace quorvane {

class Alarm;
class Clock;
class DesktopPicture;
class HttpClient;
class PowerEvents;
class Screens;
class SecretStore;
class UserDefaults;
struct Screen;

/// Enlarges an encoded picture on this machine. Throws ProviderError or what the engine throws; ends early when asked
/// to stop. The last argument is called on the calling thread.
using LocalUpscale = std::function<QCoro::Task<EncodedImage>(QByteArray image, std::stop_token stop,
                                                             std::function<void(UpscaleProgress)> progress)>;

/// What the manager works with. Everything outlives it.
struct ManagerServices
{
    UserDefaults *defaults;
    HttpClient *http;
    DesktopPicture *desktop;
    SecretStore *legacyKeys;
    LocalUpscale localUpscale;
    /// Null in a process that will not be there when a timed generation is due: nothing is scheduled then, and pictures
    /// are named by the system's clock.
    Clock *clock = nullptr;
    PowerEvents *powerEvents = nullptr; ///< May be null: then nothing but the schedule itself catches up after a sleep.
    Screens *screens = nullptr;         ///< May be null: then nothing follows a change of the screens.
};

/// What a finished operation left on disk; empty where it left nothing.
struct OperationResult
{
    QString file;          ///< The picture that was made, or set.
    QString original;      ///< The picture that file was enlarged from.
    quint64 operation = 0; ///< What nextOperation() was when it was asked for.
    bool isTimed = false;  ///< The schedule asked for it, not the user.
};

/// The one observable model and controller of the program: settings, state, and every operation. All of it belongs to
/// the main thread. A file location is an absolute path throughout.
///
/// Each group below has a source file of its own.
class WallpaperManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    Q_PROPERTY(bool isError READ isError NOTIFY isErrorChanged)
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
    /// The interval where none, or a senseless one, is stored.
    static constexpr qint64 kDefaultIntervalMinutes = 30;
    /// A hundred years: beyond it dates stop making sense long before the arithmetic does.
    static constexpr qint64 kLongestIntervalMinutes = 100LL * 366 * 24 * 60;

    explicit WallpaperManager(ManagerServices services, QObject *parent = nullptr);

    /// Cancels what runs, waits for it and leaves nothing half done.
    ~WallpaperManager() override;

    // --- State and settings (WallpaperManager.cpp) ---------------------------------------------------------------

    /// Gemini, Grok, OpenAI.
    [[nodiscard]] const std::vector<std::unique_ptr<const ImageProvider>> &providers() const { return m_providers; }

    /// The intervals on offer, in minutes.
    [[nodiscard]] static const QList<int> &intervalOptions();

    /// Kept at every assignment. It is no published property: promptChanged() is for editors, which may be typed at.
    [[nodiscard]] Q_INVOKABLE QString prompt() const { return m_prompt; }
    Q_INVOKABLE void setPrompt(const QString &prompt);

    [[nodiscard]] const QString &status() const { return m_status; }
    [[nodiscard]] bool isError() const { return m_isError; }
    [[nodiscard]] bool isLoading() const { return m_isLoading; }
    [[nodiscard]] const QString &upscalingURL() const { return m_upscalingURL; }

    [[nodiscard]] bool fourKEnabled() const { return m_fourKEnabled; }
    void setFourKEnabled(bool enabled);
    [[nodiscard]] bool nsfwEnabled() const { return m_nsfwEnabled; }
    void setNsfwEnabled(bool enabled);

    /// "auto" or a provider's id. A text that names no provider behaves like Gemini.
    [[nodiscard]] const QString &providerOverride() const { return m_providerOverride; }
    void setProviderOverride(const QString &override);

    /// The path of the picture that is set; empty when there is none.
    [[nodiscard]] const QString &currentWallpaperURL() const { return m_currentWallpaperURL; }

    /// Takes the current wallpaper from the settings, where it may have been changed: the stored path while there is a
    /// file, else none. The stored path of a picture that is gone is left alone: the disk may only be unplugged.
    void restoreCurrentWallpaper();

    /// Whether the NSFW switch means anything: only Grok honours it.
    [[nodiscard]] bool nsfwApplies() const;

    /// The provider that a generation will use.
    [[nodiscard]] const ImageProvider &resolvedProvider() const;

    /// The model that a generation will use: the chosen one while the provider offers it, else the provider's first.
    [[nodiscard]] QString resolvedModelId() const;

    /// Whether the resolved provider and model make 4K themselves, so that nothing is enlarged afterwards.
    [[nodiscard]] bool providerProducesNative4K() const;

    /// The names of keys that a generation would need and that are not stored, for the user. Reads the key file.
    [[nodiscard]] QStringList missingKeys() const { return missingKeys(storedKeyIds()); }
    /// As above, with the ids of the providers whose keys are stored.
    [[nodiscard]] QStringList missingKeys(const QSet<QString> &storedKeyIds) const;
    /// Reads the key file. Any thread.
    [[nodiscard]] static QSet<QString> storedKeyIds();

    /// "local", or "gemini" for any other setting.
    [[nodiscard]] QString upscaleMethod() const;
    void setUpscaleMethod(const QString &method);

    /// The chosen model of that provider while it is offered, else the provider's first; empty when there is neither.
    [[nodiscard]] QString selectedModel(const QString &providerId) const;
    void setSelectedModel(const QString &providerId, const QString &modelId);

    /// The user's keys by provider id. Reads the key file, as the two below write it.
    [[nodiscard]] static TextMap storedKeys();
    void saveKey(const QString &key, const QString &providerId);
    void removeKey(const QString &providerId);

    /// How far an enlargement on this machine is; nothing while none runs.
    [[nodiscard]] const std::optional<UpscaleProgress> &progress() const { return m_progress; }

    /// The number that the next operation gets; operationEnded() tells it again.
    [[nodiscard]] quint64 nextOperation() const { return m_nextOperation; }

    /// Runs the event loop until no operation runs any more.
    void waitUntilIdle();

    // --- From prompt to wallpaper (WallpaperManagerGenerate.cpp) ---------------------------------------------------

    /// Makes a picture of the prompt and sets it as the wallpaper. Returns at once; the published properties tell the
    /// rest. A call while another runs starts a second run of its own.
    Q_INVOKABLE void generateAndSet() { generateAndSet(Trigger::User); }

    // --- The desktop (WallpaperManagerDesktop.cpp) ------------------------------------------------------------------

    /// Sets the picture as the background of every screen. Returns at once; status tells the rest.
    Q_INVOKABLE void setWallpaper(const QString &url);

    /// Asks the desktop for its screens, after what it is doing. Returns at once; told is called with the answer.
    void askForScreens(std::function<void(const QList<Screen> &)> told);

    // --- Enlarging a picture of the library (WallpaperManagerUpscale.cpp) --------------------------------------------

    /// Makes a 4K copy of the picture, links the two and sets the copy as the wallpaper. Returns at once.
    Q_INVOKABLE void upscaleExistingImage(const QString &url);

    // --- Schedule (WallpaperManagerSchedule.cpp) --------------------------------------------------------------------

    [[nodiscard]] bool autoEnabled() const { return m_autoEnabled; }
    void setAutoEnabled(bool enabled);

    /// At least 1 and at most kLongestIntervalMinutes when it was loaded.
    [[nodiscard]] qint64 intervalMinutes() const { return m_intervalMinutes; }
    void setIntervalMinutes(qint64 minutes);

    /// When the next timed generation is due; invalid while none is.
    [[nodiscard]] const QDateTime &nextFireDate() const { return m_nextFireDate; }

    /// (Re)starts the schedule from the present moment; only while autoEnabled.
    void startTimer();
    void stopTimer();

    // --- History, favourites and albums (WallpaperManagerHistory.cpp)
    // --------------------------------------------------

    /// Whether the library's first reading has ended, which the constructor only begins.
    [[nodiscard]] bool isHistoryRead() const { return !m_firstListing.listing; }

    /// Paths, newest first, without the originals that an enlarged variant stands for. Waits for the first reading.
    [[nodiscard]] const QStringList &history() const { return listing().history; }

    /// File names, as the library keeps them; may name files that are gone. Waits for the first reading.
    [[nodiscard]] const QSet<QString> &favorites() const { return listing().favorites; }

    /// Reads the library now, on this thread.
    Q_INVOKABLE void reloadHistory();

    /// As reloadHistory(), but returns at once: the library is read on its own thread.
    void refreshHistory();
    Q_INVOKABLE void toggleFavorite(const QString &url);

    /// Computed from the history and the files at every call.
    [[nodiscard]] std::vector<Album> albums() const;

    /// Deletes the picture and its enlarged partner for good, then reads the library again. Returns at once.
    Q_INVOKABLE void deleteImage(const QString &url);

  Q_SIGNALS:
    void statusChanged();
    void isErrorChanged();
    void isLoadingChanged();
    void upscalingURLChanged();
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
    void promptChanged();
    void upscaleMethodChanged();
    void selectedModelChanged(const QString &providerId);
    void keysChanged();

    /// One of the operations that return at once has ended; status tells how.
    void operationEnded(const OperationResult &result);

  private:
    struct Generation;
    struct Listing
    {
        QStringList history;
        QSet<QString> favorites;
    };
    struct FirstListing
    {
        QFuture<void> reading;
        std::shared_ptr<Listing> listing; ///< Whole once reading has ended.
    };
    [[nodiscard]] static Listing readLibrary();
    [[nodiscard]] const Listing &listing() const;
    void setListing(Listing listing);

    enum class Trigger { User, Timer };
    void generateAndSet(Trigger trigger);

    void setStatus(const QString &status);
    void setIsError(bool isError);
    void setIsLoading(bool isLoading);
    void setUpscalingURL(const QString &url);
    void setCurrentWallpaperURL(const QString &url);
    void setProgress(std::optional<UpscaleProgress> progress);
    void report(const QString &status, bool isError);

    [[nodiscard]] const ImageProvider *providerWithId(const QString &id) const;

    [[nodiscard]] QCoro::Task<> removingAbandonedFiles();
    [[nodiscard]] QCoro::Task<> generating(Generation run);
    [[nodiscard]] QCoro::Task<EncodedImage> upscaledOrOriginal(EncodedImage generated);
    [[nodiscard]] QCoro::Task<EncodedImage> upscaleLocally(QByteArray image);
    [[nodiscard]] QCoro::Task<QString> savedImage(QByteArray bytes, QString extension);
    [[nodiscard]] QCoro::Task<> settingWallpaper(QString url, quint64 operation);
    [[nodiscard]] QCoro::Task<> applying(QString url);
    [[nodiscard]] QCoro::Task<> upscalingExistingImage(QString url, quint64 operation);
    [[nodiscard]] QCoro::Task<EncodedImage> upscaledFile(QString url, QString geminiApiKey);
    void beginHistory();
    [[nodiscard]] QCoro::Task<> readingHistoryFirst();
    [[nodiscard]] QCoro::Task<> reloadingHistory();
    [[nodiscard]] QCoro::Task<> writingFavorite(QString name, bool isFavorite, quint64 operation);
    [[nodiscard]] QCoro::Task<> deletingImage(QString url, quint64 operation);

    [[nodiscard]] QCoro::Task<> syncingWallpaper(QString url);
    [[nodiscard]] QCoro::Task<> askingForScreens(std::function<void(const QList<Screen> &)> told);

    [[nodiscard]] QDateTime now() const;
    void scheduleNext(std::chrono::nanoseconds due);
    void timerFired();
    void setupWakeObserver();
    void handleWake();
    void setupScreenObserver();
    void setupDesktop();
    [[nodiscard]] QCoro::Task<> renewingWallpaper();
    void handleScreenChange();
    void desktopAnswered();

    ManagerServices m_services;
    std::vector<std::unique_ptr<const ImageProvider>> m_providers;

    QString m_prompt;
    QString m_status;
    bool m_isError = false;
    bool m_isLoading = false;
    QString m_upscalingURL;
    bool m_fourKEnabled = false;
    bool m_nsfwEnabled = false;
    QString m_providerOverride;
    mutable Listing m_listing;
    mutable FirstListing m_firstListing; ///< Empty once it is in m_listing, or has been overtaken.
    bool m_autoEnabled = false;
    qint64 m_intervalMinutes = 0;
    QDateTime m_nextFireDate;
    QString m_currentWallpaperURL;
    std::optional<UpscaleProgress> m_progress;

    std::unique_ptr<Alarm> m_timer;         ///< Null without a clock.
    std::chrono::nanoseconds m_timerDue{0}; ///< The next firing, by Clock::uptime().
    std::chrono::seconds m_timerInterval{0};
    QMetaObject::Connection m_wakeObserver;
    QMetaObject::Connection m_screenObserver;
    int m_desktopCalls = 0;      ///< How many calls of the desktop have not been answered yet.
    bool m_missedChange = false; ///< The screens changed while the desktop was busy.

    quint64 m_nextOperation = 1;
    Mailbox m_mailbox;           ///< From m_desktopThread.
    int m_historyVersion = 0;    ///< Counts changes made here while a listing may be under way.
    QThreadPool m_libraryThread; ///< One thread, so that library changes happen in the order they were asked for.
    QThreadPool m_desktopThread; ///< One thread, so that the last picture asked for is the one that stays.
    TaskScope m_scope;           ///< Last, so that it is drained before what its tasks use goes.
};

} // namespace quorvane
