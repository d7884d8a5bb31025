#include "Storage/ImageStore.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/Paths.h"
#include "Platform/Files/SystemCall.h"
#include "Platform/Logging.h"
#include "Storage/CreationDate.h"
#include "Storage/SideFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <functional>
#include <memory>
#include <set>

#include <dirent.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ImageStore)
};

/// The path of the image called name. A side file is edited by hand now and then, and no entry of it may lead a
/// deletion out of the library, to the library itself or to one of its side files.
std::optional<QString> linkedPath(const QString &folder, const QString &name)
{
    return isImageName(name) ? std::optional(folder + '/'_L1 + name) : std::nullopt;
}

/// What is not there needs no removal.
Result<> removeFromDisk(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (path.contains(QChar(u'\0')) || uninterrupted([&] { return std::remove(name.constData()); }) == 0 ||
        errno == ENOENT || errno == ENOTDIR) {
        return kDone;
    }
    return Failure{Tr::tr("%1 could not be deleted: %2").arg(imageName(path), systemWords(errno))};
}

QString withoutSlashesAtItsEnd(QString path)
{
    while (path.size() > 1 && path.endsWith('/'_L1)) {
        path.chop(1);
    }
    return path;
}

Result<> saveEntry(const QString &path, const QString &name, const QString &text)
{
    const FolderLock lock(QFileInfo(path).path());
    const auto insert = [&](TextMap &map) {
        map.insert_or_assign(name, text);
        return Change::Write;
    };
    return changeTextMap(path, FileAccess::Default, insert);
}

/// Lets change alter the set of favourites, which the file holds sorted.
Result<> changeFavorites(const QString &path, const std::function<Change(std::set<QString> &)> &change)
{
    const auto changeList = [&](QStringList &list) {
        std::set<QString> favorites(list.cbegin(), list.cend());
        const Change answer = change(favorites);
        list = QStringList(favorites.begin(), favorites.end());
        return answer;
    };
    return changeTextList(path, FileAccess::Default, changeList);
}

} // namespace

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

bool ImageStore::isInLibrary(const QString &path)
{
    const QString folder = QFileInfo(withoutSlashesAtItsEnd(path)).absolutePath();
    const QString library = directory();
    if (!isPlainName(imageName(path))) {
        return false;
    }
    if (folder == library) {
        return true;
    }
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(library).canonicalFilePath();
}

Result<QString> ImageStore::saveImage(const QString &name, const QByteArray &bytes)
{
    if (!isPlainName(name)) {
        return Failure{systemWords(EINVAL)};
    }
    const QString path = directory() + '/'_L1 + name;
    const Result<> written = writeFileAtomically(path, bytes);
    qCInfo(logLibrary) << "a picture of" << bytes.size() << "bytes"
                       << (written ? u"was written"_s : u"could not be written: "_s + written.failure().words);
    return written ? Result<QString>(path) : written.failure();
}

Result<> ImageStore::savePrompt(const QString &prompt, const QString &image)
{
    return saveEntry(promptsPath(), imageName(image), prompt);
}

Result<> ImageStore::saveVariantLink(const QString &original, const QString &upscaled)
{
    return saveEntry(variantsPath(), imageName(original), imageName(upscaled));
}

std::optional<QString> ImageStore::variant(const QString &image)
{
    const QString folder = directory();
    const QString name = imageName(image);
    const TextMap links = readTextMap(variantsPath());
    const auto existing = [&folder](const QString &candidate) {
        std::optional<QString> path = linkedPath(folder, candidate);
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

Result<> ImageStore::saveFavorite(const QString &name)
{
    const FolderLock lock(directory());
    const auto insert = [&](std::set<QString> &favorites) {
        favorites.insert(name);
        return Change::Write;
    };
    return changeFavorites(favoritesPath(), insert);
}

Result<> ImageStore::removeFavorite(const QString &name)
{
    const FolderLock lock(directory());
    const auto erase = [&](std::set<QString> &favorites) {
        favorites.erase(name);
        return Change::Write;
    };
    return changeFavorites(favoritesPath(), erase);
}

Result<> ImageStore::deleteImage(const QString &image)
{
    const QString folder = directory();
    const FolderLock lock(folder);
    const QString name = imageName(image);
    const TextMap links = readTextMap(variantsPath());
    Result<> outcome = kDone;
    const auto tell = [&outcome](const Result<> &step) {
        if (outcome && !step) {
            outcome = step;
        }
    };

    // The image, the enlarged copy of this original, and the originals of this enlarged copy.
    QStringList paths{withoutSlashesAtItsEnd(image)};
    const auto addMember = [&](const QString &member) {
        if (const auto path = linkedPath(folder, member)) {
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
    int gone = 0;
    for (const QString &path : std::as_const(paths)) {
        const Result<> step = removeFromDisk(path);
        gone += step ? 1 : 0;
        tell(step);
        removed.insert(imageName(path));
    }
    qCInfo(logLibrary) << gone << "pictures of" << paths.size() << "were deleted, with what is known of them all";

    const auto dropPrompts = [&removed](TextMap &prompts) {
        std::erase_if(prompts, [&removed](const auto &entry) { return removed.contains(entry.first); });
        return Change::Write;
    };
    tell(changeTextMap(promptsPath(), FileAccess::Default, dropPrompts));

    const auto isRemoved = [&removed](const QString &favorite) { return removed.contains(favorite); };
    const auto dropFavorites = [&isRemoved](std::set<QString> &favorites) {
        return std::erase_if(favorites, isRemoved) > 0 ? Change::Write : Change::LeaveAlone;
    };
    tell(changeFavorites(favoritesPath(), dropFavorites));

    const auto namesRemoved = [&removed](const auto &link) {
        return removed.contains(link.first) || removed.contains(link.second);
    };
    const auto dropLinks = [&namesRemoved](TextMap &entries) {
        return std::erase_if(entries, namesRemoved) > 0 ? Change::Write : Change::LeaveAlone;
    };
    tell(changeTextMap(variantsPath(), FileAccess::Default, dropLinks));
    return outcome;
}

void ImageStore::removeAbandonedTemporaries()
{
    for (const QString &path : {promptsPath(), variantsPath(), favoritesPath()}) {
        removeAbandonedTemporariesOf(path);
    }
}

} // namespace quorvane
