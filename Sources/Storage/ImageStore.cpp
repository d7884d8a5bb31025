#include "Storage/ImageStore.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/Paths.h"
#include "Storage/CreationDate.h"
#include "Storage/SideFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <string_view>

#include <dirent.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::array<std::string_view, 4> kExtensions{"png", "jpg", "jpeg", "webp"};

bool isImageName(std::string_view name)
{
    const std::size_t dot = name.rfind('.');
    if (name.starts_with('.') || dot == std::string_view::npos) {
        return false;
    }
    const std::string_view extension = name.substr(dot + 1);
    return std::any_of(kExtensions.begin(), kExtensions.end(), [extension](std::string_view known) {
        return extension.size() == known.size() &&
               qstrnicmp(extension.data(), known.data(), static_cast<std::size_t>(known.size())) == 0;
    });
}

/// Whether name names something directly inside a folder. A side file is edited by hand now and then, and no entry of
/// it may lead a deletion out of the library or to the library itself.
bool isPlainName(const QString &name)
{
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !name.contains('/'_L1) &&
           !name.contains(QChar(u'\0'));
}

std::optional<QString> memberPath(const QString &folder, const QString &name)
{
    if (!isPlainName(name)) {
        return std::nullopt;
    }
    return folder + '/'_L1 + name;
}

void removeFromDisk(const QString &path)
{
    if (!path.contains(QChar(u'\0'))) {
        (void)std::remove(QFile::encodeName(path).constData());
    }
}

void write(const QString &path, const std::optional<QByteArray> &bytes)
{
    if (bytes) {
        (void)writeFileAtomically(path, *bytes);
    }
}

std::set<QString> readFavorites(const QString &path)
{
    const QStringList list = readTextList(path);
    return {list.begin(), list.end()};
}

void writeFavorites(const QString &path, const std::set<QString> &favorites)
{
    write(path, bytesFromTextList(QStringList(favorites.begin(), favorites.end())));
}

void saveEntry(const QString &path, const QString &name, const QString &text)
{
    const FolderLock lock(QFileInfo(path).path());
    TextMap map = readTextMap(path);
    map.insert_or_assign(name, text);
    write(path, bytesFromTextMap(map));
}

} // namespace

QString imageName(const QString &path)
{
    return path.mid(path.lastIndexOf('/'_L1) + 1);
}

QString ImageStore::directory()
{
    QString path = Paths::home() + u"/Pictures/Quorvane"_s;
    (void)QDir().mkpath(path);
    return path;
}

QString ImageStore::promptsPath()
{
    return directory() + u"/prompts.json"_s;
}

QString ImageStore::variantsPath()
{
    return directory() + u"/variants.json"_s;
}

QString ImageStore::favoritesPath()
{
    return directory() + u"/favorites.json"_s;
}

QStringList ImageStore::allImages()
{
    const QString folder = directory();
    const auto closeFolder = [](DIR *listing) { ::closedir(listing); };
    const std::unique_ptr<DIR, decltype(closeFolder)> listing(::opendir(QFile::encodeName(folder).constData()),
                                                              closeFolder);
    if (!listing) {
        return {};
    }
    std::vector<DatedFile> images;
    while (const dirent *entry = ::readdir(listing.get())) {
        const QByteArrayView name(static_cast<const char *>(entry->d_name));
        if (isImageName({name.data(), static_cast<std::size_t>(name.size())}) && name.isValidUtf8()) {
            images.push_back(
                {folder + '/'_L1 + QString::fromUtf8(name), creationDate(::dirfd(listing.get()), name.data())});
        }
    }
    sortNewestFirst(&images);
    QStringList paths;
    paths.reserve(static_cast<qsizetype>(images.size()));
    for (DatedFile &image : images) {
        paths.append(std::move(image.path));
    }
    return paths;
}

std::optional<QString> ImageStore::saveImage(const QString &name, const QByteArray &bytes)
{
    std::optional<QString> path = memberPath(directory(), name);
    if (path && !writeFileAtomically(*path, bytes)) {
        path.reset();
    }
    return path;
}

void ImageStore::savePrompt(const QString &prompt, const QString &image)
{
    saveEntry(promptsPath(), imageName(image), prompt);
}

void ImageStore::saveVariantLink(const QString &original, const QString &upscaled)
{
    saveEntry(variantsPath(), imageName(original), imageName(upscaled));
}

std::optional<QString> ImageStore::variant(const QString &image)
{
    const QString folder = directory();
    const QString name = imageName(image);
    const TextMap links = readTextMap(variantsPath());
    const auto existing = [&folder](const QString &candidate) {
        std::optional<QString> path = memberPath(folder, candidate);
        return path && QFileInfo::exists(*path) ? path : std::nullopt;
    };

    if (const auto link = links.find(name); link != links.end()) {
        if (auto upscaled = existing(link->second)) {
            return upscaled;
        }
    }
    for (const auto &[original, upscaled] : links) {
        if (upscaled == name) {
            if (auto path = existing(original)) {
                return path;
            }
        }
    }
    return std::nullopt;
}

void ImageStore::saveFavorite(const QString &name)
{
    const FolderLock lock(directory());
    std::set<QString> favorites = readFavorites(favoritesPath());
    favorites.insert(name);
    writeFavorites(favoritesPath(), favorites);
}

void ImageStore::removeFavorite(const QString &name)
{
    const FolderLock lock(directory());
    std::set<QString> favorites = readFavorites(favoritesPath());
    favorites.erase(name);
    writeFavorites(favoritesPath(), favorites);
}

void ImageStore::deleteImage(const QString &image)
{
    const QString folder = directory();
    const FolderLock lock(folder);
    const QString name = imageName(image);
    TextMap links = readTextMap(variantsPath());

    // The image, the enlarged copy of this original, and the originals of this enlarged copy.
    QStringList paths{image};
    const auto addMember = [&](const QString &member) {
        if (const auto path = memberPath(folder, member)) {
            paths.append(*path);
        }
    };
    if (const auto link = links.find(name); link != links.end()) {
        addMember(link->second);
    }
    for (const auto &[original, upscaled] : links) {
        if (upscaled == name) {
            addMember(original);
        }
    }

    std::set<QString> removed;
    for (const QString &path : std::as_const(paths)) {
        removeFromDisk(path);
        removed.insert(imageName(path));
    }

    TextMap prompts = readTextMap(promptsPath());
    std::erase_if(prompts, [&removed](const auto &entry) { return removed.contains(entry.first); });
    write(promptsPath(), bytesFromTextMap(prompts));

    std::set<QString> favorites = readFavorites(favoritesPath());
    if (std::erase_if(favorites, [&removed](const QString &favorite) { return removed.contains(favorite); }) > 0) {
        writeFavorites(favoritesPath(), favorites);
    }

    const auto namesRemoved = [&removed](const auto &link) {
        return removed.contains(link.first) || removed.contains(link.second);
    };
    if (std::erase_if(links, namesRemoved) > 0) {
        write(variantsPath(), bytesFromTextMap(links));
    }
}

void ImageStore::removeAbandonedTemporaries()
{
    quorvane::removeAbandonedTemporaries(directory());
}

} // namespace quorvane
