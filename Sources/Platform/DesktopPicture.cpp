#include "Platform/DesktopPicture.h"

#include "Platform/DesktopBus.h"
#include "Platform/DesktopChoice.h"
#include "Platform/DesktopPictureCommand.h"
#include "Platform/DesktopPictureGSettings.h"
#include "Platform/DesktopPictureHyprland.h"
#include "Platform/DesktopPictureLayerShell.h"
#include "Platform/DesktopPictureLxqt.h"
#include "Platform/DesktopPicturePlasma.h"
#include "Platform/DesktopPicturePortal.h"
#include "Platform/DesktopPictureSway.h"
#include "Platform/DesktopPictureUnimplemented.h"
#include "Platform/DesktopPictureX11.h"
#include "Platform/DesktopPictureXfce.h"
#include "Platform/MutterScreens.h"
#include "Platform/SessionBus.h"
#include "Platform/SessionDesktops.h"
#include "Platform/SessionDisplay.h"
#include "Platform/SettingsGroup.h"
#include "Platform/SwaySocket.h"
#include "Platform/TimeLimit.h"
#include "Platform/WaylandFacts.h"

#include <QFile>

#include <memory>
#include <mutex>
#include <utility>

namespace quorvane {

namespace {

QString pathVariable(const char *name)
{
    return QFile::decodeName(qgetenv(name));
}

QStringList hyprlandFolders()
{
    return DesktopPictureHyprland::socketFolders(qEnvironmentVariable("HYPRLAND_INSTANCE_SIGNATURE"));
}

QStringList namesOnTheBus()
{
    const auto names = withinLimit(kDesktopLimit, [address = SessionBus::address()](const auto &) {
        return DesktopBus(address, QDeadlineTimer(kDesktopLimit)).names();
    });
    return names.value_or(QStringList());
}

QStringList installedSchemas()
{
    QStringList schemas;
    for (const SessionDesktop &desktop : sessionDesktops()) {
        if (!desktop.settings.schema.isEmpty() && SettingsGroup::isInstalled(desktop.settings.schema)) {
            schemas.append(desktop.settings.schema);
        }
    }
    return schemas;
}

QList<Screen> x11Screens()
{
    return DesktopPictureX11(qgetenv("DISPLAY"), QString()).screens();
}

/// On Wayland the X server that stands in for old programs may not run, and starting it would be a waste.
QList<Screen> gnomeScreens()
{
    const auto asked = withinLimit(kDesktopLimit, [address = SessionBus::address()](const auto &) {
        DesktopBus bus(address, QDeadlineTimer(kDesktopLimit));
        return mutterScreens(bus);
    });
    return asked && *asked ? **asked : x11Screens();
}

DesktopFacts factsOfThisSession()
{
    DesktopFacts facts;
    facts.wanted = qEnvironmentVariable("QUORVANE_DESKTOP");
    facts.command = pathVariable("QUORVANE_WALLPAPER_COMMAND");
    facts.hasSwaySocket = !qEnvironmentVariableIsEmpty("SWAYSOCK");
    facts.swayAnswers =
        facts.hasSwaySocket && SwaySocket(pathVariable("SWAYSOCK"), QDeadlineTimer(kDesktopLimit)).isConnected();
    facts.hasWayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    facts.hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    facts.currentDesktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    facts.isSandboxed = QFile::exists(QStringLiteral("/.flatpak-info")) || qgetenv("container") == "flatpak";
    facts.busNames = namesOnTheBus();
    facts.schemas = installedSchemas();
    facts.hasHyprland = !qEnvironmentVariableIsEmpty("HYPRLAND_INSTANCE_SIGNATURE");
    facts.hyprlandAnswers = facts.hasHyprland && DesktopPictureHyprland::answers(hyprlandFolders());
    facts.hasLayerShell =
        waylandFacts(qEnvironmentVariable("WAYLAND_DISPLAY"), QDeadlineTimer(kDesktopLimit)).hasLayerShell;
    // Asking starts the portal where it does not run, so it is asked only where it could be chosen.
    const bool isLast = facts.wanted.isEmpty() && chooseDesktop(facts).way == DesktopWay::None;
    if (facts.isSandboxed || facts.wanted == QLatin1String("portal") || isLast) {
        facts.portalAnswers = DesktopPicturePortal::answers(SessionBus::address());
    }
    return facts;
}

std::unique_ptr<DesktopPicture> settingsPicture(const DesktopChoice &choice, const QStringList &currentDesktops)
{
    return std::make_unique<DesktopPictureGSettings>(
        nameOf(choice.way), *sessionDesktop(choice.way, currentDesktops), SessionBus::address(),
        choice.way == DesktopWay::Gnome ? gnomeScreens : x11Screens, choice.reason);
}

std::unique_ptr<DesktopPicture> pictureFor(const DesktopFacts &facts, ProgramLife life)
{
    const DesktopChoice choice = chooseDesktop(facts);
    switch (choice.way) {
    case DesktopWay::None:
        break;
    case DesktopWay::Plasma:
        return std::make_unique<DesktopPicturePlasma>(SessionBus::address(), sessionDisplay(), choice.reason);
    case DesktopWay::Hyprland:
        return std::make_unique<DesktopPictureHyprland>(hyprlandFolders(), sessionDisplay().wayland, choice.reason,
                                                        life);
    case DesktopWay::LayerShell:
        return std::make_unique<DesktopPictureLayerShell>(sessionDisplay().wayland, choice.reason, life);
    case DesktopWay::Portal:
        return std::make_unique<DesktopPicturePortal>(SessionBus::address(), sessionDisplay(), choice.reason);
    case DesktopWay::Gnome:
    case DesktopWay::Mate:
    case DesktopWay::Cinnamon:
        return settingsPicture(choice, facts.currentDesktops);
    case DesktopWay::Xfce:
        return std::make_unique<DesktopPictureXfce>(SessionBus::address(), x11Screens, choice.reason);
    case DesktopWay::Lxqt:
        return std::make_unique<DesktopPictureLxqt>(SessionBus::address(), qgetenv("DISPLAY"), choice.reason);
    case DesktopWay::Sway:
        return std::make_unique<DesktopPictureSway>(pathVariable("SWAYSOCK"), choice.reason);
    case DesktopWay::X11:
        return std::make_unique<DesktopPictureX11>(qgetenv("DISPLAY"), choice.reason);
    case DesktopWay::Command: {
        // The command sets the picture; which screens there are is asked of what runs here besides.
        DesktopFacts others = facts;
        others.wanted.clear();
        others.command.clear();
        return std::make_unique<DesktopPictureCommand>(facts.command, choice.reason, pictureFor(others, life));
    }
    }
    return std::make_unique<DesktopPictureUnimplemented>(choice.reason);
}

/// Chooses at its first use, because that takes time and belongs on the thread that waits for the desktop; and anew
/// whenever somebody asks for the screens, which is how every setting of a picture begins: a program that starts with
/// the session may be there before the desktop is. What was chosen stays while the choice is the same.
class DesktopPictureOfSession final : public DesktopPicture
{
  public:
    explicit DesktopPictureOfSession(ProgramLife life)
        : m_life(life)
    {
    }

    // These two are asked on the main thread as well, while a worker may be choosing anew.
    [[nodiscard]] QString name() const override { return told(&DesktopPicture::name); }
    [[nodiscard]] QString reason() const override { return told(&DesktopPicture::reason); }
    [[nodiscard]] bool endsWithTheProgram() override { return chosen().endsWithTheProgram(); }
    [[nodiscard]] QList<Screen> screens() override
    {
        choose();
        return m_chosen->screens();
    }
    [[nodiscard]] std::optional<QString> setPicture(const QString &path, const QList<Screen> &screens) override
    {
        return chosen().setPicture(path, screens);
    }
    void stopAsking() override
    {
        const std::lock_guard lock(m_mutex);
        m_mayAsk = false;
        if (m_chosen) {
            m_chosen->stopAsking();
        }
    }

  private:
    [[nodiscard]] QString told(QString (DesktopPicture::*what)() const) const
    {
        {
            const std::lock_guard lock(m_mutex);
            if (m_chosen) {
                return (m_chosen.get()->*what)();
            }
        }
        return (chosen().*what)();
    }

    [[nodiscard]] DesktopPicture &chosen() const
    {
        if (!m_chosen) {
            choose();
        }
        return *m_chosen;
    }

    void choose() const
    {
        const DesktopFacts facts = factsOfThisSession();
        const DesktopWay way = chooseDesktop(facts).way;
        if (m_chosen && way == m_way) {
            return;
        }
        std::unique_ptr<DesktopPicture> found = pictureFor(facts, m_life);
        found->asking = asking;
        const std::lock_guard lock(m_mutex);
        m_chosen = std::move(found);
        m_way = way;
        if (!m_mayAsk) {
            m_chosen->stopAsking();
        }
    }

    ProgramLife m_life;
    mutable std::mutex m_mutex; ///< For what comes from another thread than the worker's.
    mutable std::unique_ptr<DesktopPicture> m_chosen;
    mutable DesktopWay m_way = DesktopWay::None;
    bool m_mayAsk = true;
};

} // namespace

std::unique_ptr<DesktopPicture> makeDesktopPicture(ProgramLife life)
{
    return std::make_unique<DesktopPictureOfSession>(life);
}

} // namespace quorvane
