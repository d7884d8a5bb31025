#include "App/Command/StatusReport.h"

#include "App/Command/JsonText.h"
#include "Manager/IntervalLabel.h"
#include "Platform/Desktops/DesktopPicture.h"

#include <QCoreApplication>
#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace quorvane::Reports {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Reports)
};

QString onOff(const QJsonValue &value)
{
    return value.toBool() ? Tr::tr("on") : Tr::tr("off");
}

} // namespace

QJsonObject status(const WallpaperManager &manager, const DesktopPicture &desktop, const QList<Screen> &screens)
{
    const ImageProvider &provider = manager.resolvedProvider();
    QJsonArray listed;
    for (const Screen &screen : screens) {
        listed.append(QJsonObject{
            {u"name"_s, screen.name}, {u"width"_s, screen.pixels.width()}, {u"height"_s, screen.pixels.height()}});
    }
    return {
        {u"status"_s, manager.status()},
        {u"isError"_s, manager.isError()},
        {u"isLoading"_s, manager.isLoading()},
        {u"provider"_s, provider.id()},
        {u"providerName"_s, provider.name()},
        {u"model"_s, manager.resolvedModelId()},
        {u"producesNative4K"_s, manager.providerProducesNative4K()},
        {u"nsfwApplies"_s, manager.nsfwApplies()},
        {u"missingKeys"_s, QJsonArray::fromStringList(manager.missingKeys())},
        {u"prompt"_s, manager.prompt()},
        {u"fourKEnabled"_s, manager.fourKEnabled()},
        {u"nsfwEnabled"_s, manager.nsfwEnabled()},
        {u"providerOverride"_s, manager.providerOverride()},
        {u"upscaleMethod"_s, idOf(manager.upscaleMethod())},
        {u"autoEnabled"_s, manager.autoEnabled()},
        {u"intervalMinutes"_s, manager.intervalMinutes()},
        {u"interval"_s, formatInterval(manager.intervalMinutes())},
        // Only the application has a schedule: a command will not be there when it is due.
        {u"nextFireDate"_s, textOrNull(manager.nextFireDate().toString(Qt::ISODate))},
        {u"currentWallpaper"_s, textOrNull(manager.currentWallpaperURL())},
        {u"desktop"_s, textOrNull(desktop.name())},
        {u"desktopReason"_s, desktop.reason()},
        {u"screens"_s, listed},
    };
}

QString statusText(const QJsonObject &status)
{
    QStringList screens;
    for (const QJsonValue &value : status.value("screens"_L1).toArray()) {
        const QJsonObject screen = value.toObject();
        screens.append(u"%1 %2×%3"_s.arg(screen.value("name"_L1).toString())
                           .arg(screen.value("width"_L1).toInt())
                           .arg(screen.value("height"_L1).toInt()));
    }
    const auto text = [&status](const char *key) { return status.value(QLatin1String(key)).toString(); };
    const auto orNone = [](const QString &value) { return value.isEmpty() ? Tr::tr("none") : value; };
    const QStringList missing = texts(status.value("missingKeys"_L1).toArray());
    return QStringList{
        Tr::tr("Provider:     %1, model %2").arg(text("providerName"), text("model")),
        Tr::tr("Missing keys: %1").arg(orNone(missing.join(u", "_s))),
        Tr::tr("Prompt:       %1").arg(orNone(text("prompt"))),
        Tr::tr("4K:           %1 (upscale method %2)")
            .arg(onOff(status.value("fourKEnabled"_L1)), text("upscaleMethod")),
        Tr::tr("NSFW:         %1").arg(onOff(status.value("nsfwEnabled"_L1))),
        Tr::tr("Automatic:    %1, every %2").arg(onOff(status.value("autoEnabled"_L1)), text("interval")),
        Tr::tr("Wallpaper:    %1").arg(orNone(text("currentWallpaper"))),
        Tr::tr("Desktop:      %1 (%2)").arg(orNone(text("desktop")), text("desktopReason")),
        Tr::tr("Screens:      %1").arg(orNone(screens.join(u", "_s))),
    }
        .join('\n'_L1);
}

} // namespace quorvane::Reports
