#include "App/Command/Reports.h"

#include "Manager/Album.h"
#include "Manager/IntervalLabel.h"
#include "Platform/Desktops/DesktopPicture.h"
#include "Storage/CreationDate.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

#include <QCoreApplication>
#include <QHash>

#include <chrono>

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

QStringList texts(const QJsonArray &list)
{
    QStringList result;
    for (const QJsonValue &value : list) {
        result.append(value.toString());
    }
    return result;
}

/// The pairs of links in both directions; where two originals share a copy, its partner is the first of them.
QHash<QString, QString> partners(const TextMap &links)
{
    QHash<QString, QString> found;
    for (const auto &[original, upscaled] : links) {
        found.insert(original, upscaled);
    }
    for (const auto &[original, upscaled] : links) {
        if (!found.contains(upscaled)) {
            found.insert(upscaled, original);
        }
    }
    return found;
}

} // namespace

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject status(const WallpaperManager &manager, const DesktopPicture &desktop, const QList<Screen> &screens)
{
    const ImageProvider &provider = manager.resolvedProvider();
    QJsonArray listed;
    for (const Screen &screen : screens) {
        listed.append(QJsonObject{{QStringLiteral("name"), screen.name},
                                  {QStringLiteral("width"), screen.pixels.width()},
                                  {QStringLiteral("height"), screen.pixels.height()}});
    }
    return {
        {QStringLiteral("status"), manager.status()},
        {QStringLiteral("isError"), manager.isError()},
        {QStringLiteral("isLoading"), manager.isLoading()},
        {QStringLiteral("provider"), provider.id()},
        {QStringLiteral("providerName"), provider.name()},
        {QStringLiteral("model"), manager.resolvedModelId()},
        {QStringLiteral("producesNative4K"), manager.providerProducesNative4K()},
        {QStringLiteral("nsfwApplies"), manager.nsfwApplies()},
        {QStringLiteral("missingKeys"), QJsonArray::fromStringList(manager.missingKeys())},
        {QStringLiteral("prompt"), manager.prompt()},
        {QStringLiteral("fourKEnabled"), manager.fourKEnabled()},
        {QStringLiteral("nsfwEnabled"), manager.nsfwEnabled()},
        {QStringLiteral("providerOverride"), manager.providerOverride()},
        {QStringLiteral("upscaleMethod"), manager.upscaleMethod()},
        {QStringLiteral("autoEnabled"), manager.autoEnabled()},
        {QStringLiteral("intervalMinutes"), manager.intervalMinutes()},
        {QStringLiteral("interval"), formatInterval(manager.intervalMinutes())},
        // Only the application has a schedule: a command will not be there when it is due.
        {QStringLiteral("nextFireDate"), textOrNull(manager.nextFireDate().toString(Qt::ISODate))},
        {QStringLiteral("currentWallpaper"), textOrNull(manager.currentWallpaperURL())},
        {QStringLiteral("desktop"), textOrNull(desktop.name())},
        {QStringLiteral("desktopReason"), desktop.reason()},
        {QStringLiteral("screens"), listed},
    };
}

QString statusText(const QJsonObject &status)
{
    QStringList screens;
    for (const QJsonValue &value : status.value(QLatin1String("screens")).toArray()) {
        const QJsonObject screen = value.toObject();
        screens.append(QStringLiteral("%1 %2×%3")
                           .arg(screen.value(QLatin1String("name")).toString())
                           .arg(screen.value(QLatin1String("width")).toInt())
                           .arg(screen.value(QLatin1String("height")).toInt()));
    }
    const auto text = [&status](const char *key) { return status.value(QLatin1String(key)).toString(); };
    const auto orNone = [](const QString &value) { return value.isEmpty() ? Tr::tr("none") : value; };
    const QStringList missing = texts(status.value(QLatin1String("missingKeys")).toArray());
    return QStringList{
        Tr::tr("Provider:     %1, model %2").arg(text("providerName"), text("model")),
        Tr::tr("Missing keys: %1").arg(orNone(missing.join(QStringLiteral(", ")))),
        Tr::tr("Prompt:       %1").arg(orNone(text("prompt"))),
        Tr::tr("4K:           %1 (upscale method %2)")
            .arg(onOff(status.value(QLatin1String("fourKEnabled"))), text("upscaleMethod")),
        Tr::tr("NSFW:         %1").arg(onOff(status.value(QLatin1String("nsfwEnabled")))),
        Tr::tr("Automatic:    %1, every %2").arg(onOff(status.value(QLatin1String("autoEnabled"))), text("interval")),
        Tr::tr("Wallpaper:    %1").arg(orNone(text("currentWallpaper"))),
        Tr::tr("Desktop:      %1 (%2)").arg(orNone(text("desktop")), text("desktopReason")),
        Tr::tr("Screens:      %1").arg(orNone(screens.join(QStringLiteral(", ")))),
    }
        .join(QLatin1Char('\n'));
}

QJsonArray history(const WallpaperManager &manager)
{
    const TextMap prompts = readTextMap(ImageStore::promptsPath());
    const QHash<QString, QString> variants = partners(readTextMap(ImageStore::variantsPath()));
    QJsonArray list;
    for (const QString &path : manager.history()) {
        const QString name = imageName(path);
        const auto prompt = prompts.find(name);
        const auto created = creationDate(path);
        list.append(QJsonObject{
            {QStringLiteral("file"), name},
            {QStringLiteral("path"), path},
            {QStringLiteral("prompt"), prompt == prompts.end() ? QJsonValue() : QJsonValue(prompt->second)},
            {QStringLiteral("favorite"), manager.favorites().contains(name)},
            {QStringLiteral("created"),
             created ? QJsonValue(created->toDateTime().toString(Qt::ISODateWithMs)) : QJsonValue()},
            {QStringLiteral("variant"), textOrNull(variants.value(name))},
        });
    }
    return list;
}

QString historyText(const QJsonArray &history)
{
    QStringList lines;
    for (const QJsonValue &value : history) {
        const QJsonObject image = value.toObject();
        const QString star =
            image.value(QLatin1String("favorite")).toBool() ? QStringLiteral("★ ") : QStringLiteral("  ");
        lines.append(star + image.value(QLatin1String("file")).toString() + QStringLiteral("  ") +
                     image.value(QLatin1String("prompt")).toString().simplified());
    }
    return lines.isEmpty() ? Tr::tr("No wallpapers yet") : lines.join(QLatin1Char('\n'));
}

QJsonArray albums(const WallpaperManager &manager)
{
    QJsonArray list;
    for (const Album &album : manager.albums()) {
        QJsonArray names;
        for (const QString &path : album.images) {
            names.append(imageName(path));
        }
        list.append(QJsonObject{{QStringLiteral("id"), album.id},
                                {QStringLiteral("isFavorites"), album.isFavorites},
                                {QStringLiteral("images"), names}});
    }
    return list;
}

QString albumsText(const QJsonArray &albums)
{
    QStringList lines;
    for (const QJsonValue &value : albums) {
        const QJsonObject album = value.toObject();
        const bool isFavorites = album.value(QLatin1String("isFavorites")).toBool();
        lines.append(albumTitle(album.value(QLatin1String("id")).toString(), isFavorites).simplified());
        for (const QString &name : texts(album.value(QLatin1String("images")).toArray())) {
            lines.append(QStringLiteral("  ") + name);
        }
    }
    return lines.isEmpty() ? Tr::tr("No wallpapers yet") : lines.join(QLatin1Char('\n'));
}

QJsonObject changedFile(const WallpaperManager &manager, const QString &path)
{
    const QString name = imageName(path);
    return {{QStringLiteral("file"), name},
            {QStringLiteral("favorite"), manager.favorites().contains(name)},
            {QStringLiteral("inLibrary"), manager.history().contains(path)}};
}

QString progressLine(const UpscaleProgress &progress)
{
    const QString tiles = Tr::tr("%1 of %n tiles", nullptr, progress.tilesTotal).arg(progress.tilesDone);
    if (!progress.remaining) {
        return tiles;
    }
    constexpr int kSecondsPerMinute = 60;
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(*progress.remaining).count();
    return Tr::tr("%1, %2:%3 left")
        .arg(tiles)
        .arg(seconds / kSecondsPerMinute)
        .arg(seconds % kSecondsPerMinute, 2, 10, QLatin1Char('0'));
}

QVariantMap progressMap(const UpscaleProgress &progress)
{
    QVariantMap map{{QStringLiteral("tilesDone"), progress.tilesDone},
                    {QStringLiteral("tilesTotal"), progress.tilesTotal}};
    if (progress.remaining) {
        const auto remaining = std::chrono::duration_cast<std::chrono::milliseconds>(*progress.remaining);
        map.insert(QStringLiteral("remainingMilliseconds"), qint64{remaining.count()});
    }
    return map;
}

UpscaleProgress progressFrom(const QVariantMap &map)
{
    UpscaleProgress progress{map.value(QStringLiteral("tilesDone")).toInt(),
                             map.value(QStringLiteral("tilesTotal")).toInt(), std::nullopt};
    const QVariant remaining = map.value(QStringLiteral("remainingMilliseconds"));
    if (remaining.isValid()) {
        progress.remaining = std::chrono::milliseconds(remaining.toLongLong());
    }
    return progress;
}

} // namespace quorvane::Reports
