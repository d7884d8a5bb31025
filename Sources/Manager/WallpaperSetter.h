#pragma once

#include "Platform/Failure.h"
#include "Platform/Pictures/Screen.h"
#include "Platform/Threads/Mailbox.h"
#include "Platform/Threads/TaskScope.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QThreadPool>

#include <functional>

namespace quorvane {

class DesktopPicture;
class Screens;

/// Sets the desktop's picture, and again when the screens changed. The desktop may take its time, so it is asked on a
/// thread of its own, in the order of the calls: the last picture asked for is the one that stays. Belongs to the main
/// thread.
class WallpaperSetter : public QObject
{
    Q_OBJECT

  public:
    /// All outlive it; tasks is drained before it goes. screens may be null: then nothing follows their changes.
    WallpaperSetter(TaskScope &tasks, DesktopPicture &desktop, Screens *screens, QObject *parent = nullptr);
    ~WallpaperSetter() override;

    /// The picture that is set; empty when there is none.
    [[nodiscard]] const QString &current() const { return m_current; }
    /// Says what is set already, without setting it.
    void setCurrent(const QString &url);

    /// What goes with every program that set it comes back in the same way as after a change of the screens.
    void renew();

    /// Makes url the background of every screen, and the current picture when all took it. The failure is the whole
    /// line for the status.
    [[nodiscard]] QCoro::Task<Result<>> setting(QString url);

    /// Asks the desktop for its screens, after what it is doing. Returns at once; told is called with the answer.
    void askForScreens(std::function<void(const QList<Screen> &)> told);

    /// From now on nothing begins by itself and nothing waits for the user; what runs ends soon.
    void close();

  Q_SIGNALS:
    void currentChanged();
    /// A line for the status: the desktop asks the user first.
    void asks(const QString &line);
    /// A line for the status: the picture could not be set again.
    void syncFailed(const QString &line);

  private:
    [[nodiscard]] QCoro::Task<> askingForScreens(std::function<void(const QList<Screen> &)> told);
    [[nodiscard]] QCoro::Task<> renewing();
    [[nodiscard]] QCoro::Task<> syncing(QString url);
    void handleScreenChange();
    void answered();

    TaskScope &m_tasks;
    DesktopPicture &m_desktop;
    Screens *m_screens;
    QString m_current;
    bool m_isClosed = false;
    int m_calls = 0;             ///< How many calls of the desktop have not been answered yet.
    bool m_missedChange = false; ///< The screens changed while the desktop was busy.
    Mailbox m_mailbox;           ///< From m_thread.
    QThreadPool m_thread;        ///< One thread.
};

} // namespace quorvane
