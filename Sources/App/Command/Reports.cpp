#include "App/Command/Reports.h"

#include "Manager/IntervalLabel.h"
#include "Manager/Library/Album.h"
#include "Platform/Desktops/DesktopPicture.h"
#include "Storage/CreationDate.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

#include <QCoreApplication>
#include <QHash>

#include <chrono>

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
            {u"file"_s, name},
            {u"path"_s, path},
            {u"prompt"_s, prompt == prompts.end() ? QJsonValue() : QJsonValue(prompt->second)},
            {u"favorite"_s, manager.favorites().contains(name)},
            {u"created"_s, created ? QJsonValue(created->toDateTime().toString(Qt::ISODateWithMs)) : QJsonValue()},
            {u"variant"_s, textOrNull(variants.value(name))},
        });
    }
    return list;
}

QString historyText(const QJsonArray &history)
{
    QStringList lines;
    for (const QJsonValue &value : history) {
        const QJsonObject image = value.toObject();
        const QString star = image.value("favorite"_L1).toBool() ? u"★ "_s : u"  "_s;
        lines.append(star + image.value("file"_L1).toString() + u"  "_s +
                     image.value("prompt"_L1).toString().simplified());
    }
    return lines.isEmpty() ? Tr::tr("No wallpapers yet") : lines.join('\n'_L1);
}

QJsonArray albums(const WallpaperManager &manager)
{
    QJsonArray list;
    for (const Album &album : manager.albums()) {
        QJsonArray names;
        for (const QString &path : album.images) {
            names.append(imageName(path));
        }
        list.append(QJsonObject{{u"id"_s, album.id}, {u"isFavorites"_s, album.isFavorites}, {u"images"_s, names}});
    }
    return list;
}

QString albumsText(const QJsonArray &albums)
{
    QStringList lines;
    for (const QJsonValue &value : albums) {
        const QJsonObject album = value.toObject();
        const bool isFavorites = album.value("isFavorites"_L1).toBool();
        lines.append(albumTitle(album.value("id"_L1).toString(), isFavorites).simplified());
        for (const QString &name : texts(album.value("images"_L1).toArray())) {
            lines.append(u"  "_s + name);
        }
    }
    return lines.isEmpty() ? Tr::tr("No wallpapers yet") : lines.join('\n'_L1);
}

QJsonObject changedFile(const WallpaperManager &manager, const QString &path)
{
    const QString name = imageName(path);
    return {{u"file"_s, name},
            {u"favorite"_s, manager.favorites().contains(name)},
            {u"inLibrary"_s, manager.history().contains(path)}};
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
        .arg(seconds % kSecondsPerMinute, 2, 10, '0'_L1);
}

QVariantMap progressMap(const UpscaleProgress &progress)
{
    QVariantMap map{{u"tilesDone"_s, progress.tilesDone}, {u"tilesTotal"_s, progress.tilesTotal}};
    if (progress.remaining) {
        const auto remaining = std::chrono::duration_cast<std::chrono::milliseconds>(*progress.remaining);
        map.insert(u"remainingMilliseconds"_s, qint64{remaining.count()});
    }
    return map;
}

UpscaleProgress progressFrom(const QVariantMap &map)
{
    UpscaleProgress progress{map.value(u"tilesDone"_s).toInt(), map.value(u"tilesTotal"_s).toInt(), std::nullopt};
    const QVariant remaining = map.value(u"remainingMilliseconds"_s);
    if (remaining.isValid()) {
        progress.remaining = std::chrono::milliseconds(remaining.toLongLong());
    }
    return progress;
}

} // namespace quorvane::Reports
