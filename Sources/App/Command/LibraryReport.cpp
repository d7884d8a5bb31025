#include "App/Command/LibraryReport.h"

#include "App/Command/JsonText.h"
#include "Manager/Library/Album.h"
#include "Storage/CreationDate.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

#include <QCoreApplication>
#include <QHash>

using namespace Qt::StringLiterals;

namespace quorvane::Reports {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Reports)
};

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

} // namespace quorvane::Reports
