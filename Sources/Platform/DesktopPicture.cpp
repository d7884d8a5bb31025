#include "Platform/DesktopPicture.h"

#include "Platform/DesktopChoice.h"
#include "Platform/DesktopPictureCommand.h"
#include "Platform/DesktopPictureGSettings.h"
#include "Platform/DesktopPictureLxqt.h"
#include "Platform/DesktopPictureSway.h"
#include "Platform/DesktopPictureUnimplemented.h"
#include "Platform/DesktopPictureX11.h"
#include "Platform/DesktopPictureXfce.h"
#include "Platform/MutterScreens.h"
#include "Platform/SessionBus.h"
#include "Platform/SessionDesktops.h"
#include "Platform/SettingsGroup.h"
#include "Platform/SwaySocket.h"
#include "Platform/TimeLimit.h"

#include <QFile>

namespace quorvane {

namespace {

QString pathVariable(const char *name)
{
    return QFile::decodeName(qgetenv(name));
}

QStringList namesOnTheBus()
{
    const auto names = withinLimit(kDesktopLimit, [address = SessionBus::addressOfThisSession()](const auto &) {
        return SessionBus(address, QDeadlineTimer(kDesktopLimit)).names();
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
    const auto asked = withinLimit(kDesktopLimit, [address = SessionBus::addressOfThisSession()](const auto &) {
        SessionBus bus(address, QDeadlineTimer(kDesktopLimit));
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
    facts.busNames = namesOnTheBus();
    facts.schemas = installedSchemas();
    return facts;
}

std::unique_ptr<DesktopPicture> settingsPicture(const DesktopChoice &choice, const QStringList &currentDesktops)
{
    return std::make_unique<DesktopPictureGSettings>(
        nameOf(choice.way), *sessionDesktop(choice.way, currentDesktops), SessionBus::addressOfThisSession(),
        choice.way == DesktopWay::Gnome ? gnomeScreens : x11Screens, choice.reason);
}

std::unique_ptr<DesktopPicture> pictureFor(const DesktopFacts &facts)
{
    const DesktopChoice choice = chooseDesktop(facts);
    switch (choice.way) {
    case DesktopWay::None:
        break;
    case DesktopWay::Gnome:
    case DesktopWay::Mate:
    case DesktopWay::Cinnamon:
        return settingsPicture(choice, facts.currentDesktops);
    case DesktopWay::Xfce:
        return std::make_unique<DesktopPictureXfce>(SessionBus::addressOfThisSession(), x11Screens, choice.reason);
    case DesktopWay::Lxqt:
        return std::make_unique<DesktopPictureLxqt>(SessionBus::addressOfThisSession(), qgetenv("DISPLAY"),
                                                    choice.reason);
    case DesktopWay::Sway:
        return std::make_unique<DesktopPictureSway>(pathVariable("SWAYSOCK"), choice.reason);
    case DesktopWay::X11:
        return std::make_unique<DesktopPictureX11>(qgetenv("DISPLAY"), choice.reason);
    case DesktopWay::Command: {
        // The command sets the picture; which screens there are is asked of what runs here besides.
        DesktopFacts others = facts;
        others.wanted.clear();
        others.command.clear();
        return std::make_unique<DesktopPictureCommand>(facts.command, choice.reason, pictureFor(others));
    }
    }
    return std::make_unique<DesktopPictureUnimplemented>(choice.reason);
}

/// Chooses anew whenever somebody asks for the screens, which is how every setting of a picture begins: a program that
/// starts with the session may be there before the desktop is, and desktops are started again.
class DesktopPictureOfSession final : public DesktopPicture
{
  public:
    [[nodiscard]] QString name() const override { return chosen().name(); }
    [[nodiscard]] QString reason() const override { return chosen().reason(); }
    [[nodiscard]] QList<Screen> screens() override
    {
        m_chosen.reset();
        return chosen().screens();
    }
    [[nodiscard]] std::optional<QString> setPicture(const QString &path, const QList<Screen> &screens) override
    {
        return chosen().setPicture(path, screens);
    }

  private:
    [[nodiscard]] DesktopPicture &chosen() const
    {
        if (m_chosen == nullptr) {
            m_chosen = pictureFor(factsOfThisSession());
        }
        return *m_chosen;
    }

    mutable std::unique_ptr<DesktopPicture> m_chosen;
};

} // namespace

std::unique_ptr<DesktopPicture> makeDesktopPicture()
{
    return std::make_unique<DesktopPictureOfSession>();
}

} // namespace quorvane
