#include "Platform/DesktopPicture.h"

#include "Platform/DesktopChoice.h"
#include "Platform/DesktopPictureCommand.h"
#include "Platform/DesktopPictureSway.h"
#include "Platform/DesktopPictureUnimplemented.h"
#include "Platform/DesktopPictureX11.h"
#include "Platform/SwaySocket.h"

#include <QFile>

namespace quorvane {

namespace {

QString pathVariable(const char *name)
{
    return QFile::decodeName(qgetenv(name));
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
    return facts;
}

std::unique_ptr<DesktopPicture> pictureFor(const DesktopFacts &facts)
{
    const DesktopChoice choice = chooseDesktop(facts);
    switch (choice.way) {
    case DesktopWay::None:
        break;
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

} // namespace

std::unique_ptr<DesktopPicture> makeDesktopPicture()
{
    return pictureFor(factsOfThisSession());
}

} // namespace quorvane
