#pragma once

#include "Manager/Library/KeptPicture.h"
#include "Platform/Failure.h"
#include "Platform/Threads/TaskScope.h"
#include "Storage/Deletion.h"

#include <QFuture>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QThreadPool>

#include <memory>
#include <optional>

namespace quorvane {

/// The library as the gallery shows it, and every change of it: they happen on a thread of its own in the order in
/// which they were asked for. Belongs to the main thread.
class Library : public QObject
{
    Q_OBJECT

  public:
    /// Begins the first reading, and only that: a large library takes longer than a frame, and a program that starts
    /// has better things to do meanwhile. tasks outlives it and is drained before it goes.
    explicit Library(TaskScope &tasks, QObject *parent = nullptr);

    /// Whether the first reading has ended.
    [[nodiscard]] bool isRead() const { return !m_first.listing; }

    /// Paths, newest first, without the originals that an enlarged variant stands for. Waits for the first reading.
    [[nodiscard]] const QStringList &history() const { return listing().history; }

    /// File names, as the library keeps them; may name files that are gone. Waits for the first reading.
    [[nodiscard]] const QSet<QString> &favorites() const { return listing().favorites; }

    /// Reads it now, on this thread.
    void reload();

    /// As reload(), on the library's thread, after everything that was asked of it before.
    [[nodiscard]] QCoro::Task<> refreshing();

    /// keepPicture()
    [[nodiscard]] QCoro::Task<Result<KeptPicture>> keeping(NewPicture picture);

    /// As keeping(), with the prompt of its original. Where the original is gone nothing is written, and nothing told.
    [[nodiscard]] QCoro::Task<std::optional<Result<KeptPicture>>> keepingCopy(NewPicture copy);

    /// Whether it is a favourite from now on; what writingFavorite() writes.
    [[nodiscard]] bool toggleFavorite(const QString &name);
    [[nodiscard]] QCoro::Task<Result<>> writingFavorite(QString name, bool isFavorite);

    /// The picture and its enlarged partner, for good; then as refreshing().
    [[nodiscard]] QCoro::Task<Result<>> deleting(QString url);

    /// The same, but so that it can be taken back.
    [[nodiscard]] QCoro::Task<Deletion::Outcome> deletingRevocably(QStringList urls);
    /// Brings what was deleted back; then as refreshing().
    [[nodiscard]] QCoro::Task<Result<>> bringingBack(std::shared_ptr<Deletion> deletion);
    /// Lets the deletion be for good.
    [[nodiscard]] QCoro::Task<> forgetting(std::shared_ptr<Deletion> deletion);

    /// Removes what killed runs left half-written, after whatever was asked for before.
    [[nodiscard]] QCoro::Task<> removingAbandonedFiles();

  Q_SIGNALS:
    void historyChanged();
    void favoritesChanged();

  private:
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

    [[nodiscard]] static Listing read();
    [[nodiscard]] QCoro::Task<> tellingOfTheFirst();
    [[nodiscard]] const Listing &listing() const;
    void setListing(Listing listing);

    mutable Listing m_listing;
    mutable FirstListing m_first; ///< Empty once it is in m_listing, or has been overtaken.
    int m_version = 0;            ///< Counts changes made here while a listing may be under way.
    QThreadPool m_thread;         ///< One thread.
};

} // namespace quorvane
