#pragma once

#include "Support/Desktop/PrivateSession.h"

#include <QImage>
#include <QList>
#include <QRect>

#include <memory>
#include <vector>

namespace quorvane {

/// A desktop of the kind that a person logs in to, with two screens, on buses and a display of its own.
class RealDesktop
{
  public:
    /// What must be known of a desktop to run it.
    struct Plan
    {
        QString name;           ///< The test's.
        QString currentDesktop; ///< XDG_CURRENT_DESKTOP
        QString way;            ///< What we call it.
        QString painter;        ///< The name on the session bus by which it is seen to draw.
        QList<QStringList> commands;
        QList<QStringList> preparations; ///< Run to their ends before; they put icons out of the picture's way.
        /// Some crop the picture for one screen and then that part for the next.
        enum class Crop { FromAll, FromWhatAnotherShows } crop = Crop::FromAll;
        /// Some have their name before they listen to changes of their settings, and announce what they draw to the X
        /// server once they do.
        enum class Ready { WithName, WhenAnnounced } ready = Ready::WithName;
        bool isBig = true; ///< Only tested on demand.
    };

    RealDesktop(Plan plan, const QProcessEnvironment &variables);
    virtual ~RealDesktop() = default;
    RealDesktop(const RealDesktop &) = delete;
    RealDesktop &operator=(const RealDesktop &) = delete;
    RealDesktop(RealDesktop &&) = delete;
    RealDesktop &operator=(RealDesktop &&) = delete;

    [[nodiscard]] const Plan &plan() const { return m_plan; }
    [[nodiscard]] PrivateSession &session() { return m_session; }
    [[nodiscard]] const PrivateSession &session() const { return m_session; }

    /// Whether what the desktop needs is there; look at this before start().
    [[nodiscard]] virtual bool isReady() const { return m_session.isReady(); }

    /// Starts it and waits until it is there.
    [[nodiscard]] virtual bool start();

    /// Stops it as it is, which a call to it notices only by waiting.
    void freeze();

    /// Kills it and waits until nobody on the bus has its name.
    [[nodiscard]] bool kill();

    /// Starts what paints again after it was killed.
    [[nodiscard]] bool startPainterAgain();

    /// Everything that the screens show, and where they are in it.
    [[nodiscard]] virtual QImage screenshot() = 0;
    [[nodiscard]] virtual QList<QRect> areas() = 0;

    /// Plugs in one more screen; false when that fails.
    [[nodiscard]] virtual bool plugIn() = 0;

    /// For QT_QPA_PLATFORM.
    [[nodiscard]] virtual QString platform() const = 0;

  protected:
    /// Waits until somebody on the bus has the name.
    [[nodiscard]] bool waitForName(const QString &name) const;

  private:
    Plan m_plan;
    PrivateSession m_session;
    std::vector<std::unique_ptr<OwnedProgram>> m_programs;
};

} // namespace quorvane
