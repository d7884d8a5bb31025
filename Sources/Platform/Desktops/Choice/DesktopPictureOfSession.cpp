#include "Platform/Desktops/Choice/DesktopPictureOfSession.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Bus/Sandbox.h"
#include "Platform/Desktops/Choice/DesktopChoice.h"
#include "Platform/Desktops/DesktopPictureCommand.h"
#include "Platform/Desktops/DesktopPictureGnome.h"
#include "Platform/Desktops/DesktopPictureHyprland.h"
#include "Platform/Desktops/DesktopPictureLayerShell.h"
#include "Platform/Desktops/DesktopPictureLxqt.h"
#include "Platform/Desktops/DesktopPicturePlasma.h"
#include "Platform/Desktops/DesktopPicturePortal.h"
#include "Platform/Desktops/DesktopPictureSway.h"
#include "Platform/Desktops/DesktopPictureUnimplemented.h"
#include "Platform/Desktops/DesktopPictureX11.h"
#include "Platform/Desktops/DesktopPictureXfce.h"
#include "Platform/Desktops/Protocols/MutterScreens.h"
#include "Platform/Desktops/Protocols/SettingsGroup.h"
#include "Platform/Desktops/Protocols/SwaySocket.h"
#include "Platform/Desktops/SessionDesktops.h"
#include "Platform/Desktops/SessionDisplay.h"
#include "Platform/Logging.h"
#include "Platform/Threads/TimeLimit.h"
#include "Platform/Wayland/WaylandFacts.h"

#include <QElapsedTimer>
#include <QFile>

#include <memory>
#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;

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
    const auto names = withinLimit(kDesktopLimit, [address = MessageBus::sessionAddress()](const auto &) {
        return MessageBus(address, QDeadlineTimer(kDesktopLimit)).names();
    });
    return names && *names ? **names : QStringList();
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
    const auto asked = withinLimit(kDesktopLimit, [address = MessageBus::sessionAddress()](const auto &) {
        const MessageBus bus(address, QDeadlineTimer(kDesktopLimit));
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
    facts.currentDesktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(':'_L1, Qt::SkipEmptyParts);
    facts.isSandboxed = isSandboxed();
    facts.busNames = namesOnTheBus();
    facts.schemas = installedSchemas();
    facts.hasHyprland = !qEnvironmentVariableIsEmpty("HYPRLAND_INSTANCE_SIGNATURE");
    facts.hyprlandAnswers = facts.hasHyprland && DesktopPictureHyprland::answers(hyprlandFolders());
    facts.hasLayerShell =
        waylandFacts(qEnvironmentVariable("WAYLAND_DISPLAY"), QDeadlineTimer(kDesktopLimit)).hasLayerShell;
    // Asking starts the portal where it does not run, so it is asked only where it could be chosen.
    const bool isLast = facts.wanted.isEmpty() && chooseDesktop(facts).way == DesktopBackend::None;
    if (facts.isSandboxed || facts.wanted == "portal"_L1 || isLast) {
        facts.portalAnswers = DesktopPicturePortal::answers(MessageBus::sessionAddress());
    }
    return facts;
}

std::unique_ptr<DesktopPicture> settingsPicture(const DesktopChoice &choice, const QStringList &currentDesktops)
{
    return std::make_unique<DesktopPictureGnome>(
        nameOf(choice.way), *sessionDesktop(choice.way, currentDesktops), MessageBus::sessionAddress(),
        choice.way == DesktopBackend::Gnome ? gnomeScreens : x11Screens, choice.reason);
}

std::unique_ptr<DesktopPicture> pictureFor(const DesktopFacts &facts, ProgramLife life)
{
    const DesktopChoice choice = chooseDesktop(facts);
    switch (choice.way) {
    case DesktopBackend::None:
        break;
    case DesktopBackend::Plasma:
        return std::make_unique<DesktopPicturePlasma>(MessageBus::sessionAddress(), sessionDisplay(), choice.reason);
    case DesktopBackend::Hyprland:
        return std::make_unique<DesktopPictureHyprland>(hyprlandFolders(), sessionDisplay().wayland, choice.reason,
                                                        life);
    case DesktopBackend::LayerShell:
        return std::make_unique<DesktopPictureLayerShell>(sessionDisplay().wayland, choice.reason, life);
    case DesktopBackend::Portal:
        return std::make_unique<DesktopPicturePortal>(MessageBus::sessionAddress(), sessionDisplay(), choice.reason);
    case DesktopBackend::Gnome:
    case DesktopBackend::Mate:
    case DesktopBackend::Cinnamon:
        return settingsPicture(choice, facts.currentDesktops);
    case DesktopBackend::Xfce:
        return std::make_unique<DesktopPictureXfce>(MessageBus::sessionAddress(), x11Screens, choice.reason);
    case DesktopBackend::Lxqt:
        return std::make_unique<DesktopPictureLxqt>(MessageBus::sessionAddress(), qgetenv("DISPLAY"), choice.reason);
    case DesktopBackend::Sway:
        return std::make_unique<DesktopPictureSway>(pathVariable("SWAYSOCK"), choice.reason);
    case DesktopBackend::X11:
        return std::make_unique<DesktopPictureX11>(qgetenv("DISPLAY"), choice.reason);
    case DesktopBackend::Command: {
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
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override
    {
        QElapsedTimer clock;
        clock.start();
        Result<> shown = chosen().setPicture(path, screens);
        // The desktop's own words may name the picture.
        qCInfo(logDesktop).noquote() << "a picture for" << screens.size() << "screens by" << chosen().name()
                                     << (shown ? "was set after" : "failed after") << clock.elapsed() << "ms";
        return shown;
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
        const DesktopBackend way = chooseDesktop(facts).way;
        if (m_chosen && way == m_way) {
            return;
        }
        std::unique_ptr<DesktopPicture> found = pictureFor(facts, m_life);
        qCInfo(logDesktop).noquote() << "set by" << (found->name().isEmpty() ? u"nothing"_s : found->name())
                                     << "because" << found->reason();
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
    mutable DesktopBackend m_way = DesktopBackend::None;
    bool m_mayAsk = true;
};

} // namespace

std::unique_ptr<DesktopPicture> makeDesktopPicture(ProgramLife life)
{
    return std::make_unique<DesktopPictureOfSession>(life);
}

} // namespace quorvane
