#include "Storage/ImageStore.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/Paths.h"
#include "Platform/Files/SystemCall.h"
#include "Platform/Logging.h"
#include "Storage/Cascade.h"
#include "Storage/CreationDate.h"
#include "Storage/SideFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <memory>

#include <dirent.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What is not there needs no removal.
Result<> removeFromDisk(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (path.contains(QChar(u'\0')) || uninterrupted([&] { return std::remove(name.constData()); }) == 0 ||
        errno == ENOENT || errno == ENOTDIR) {
        return kDone;
    }
    return notDeleted(path, errno);
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
    return changeTextSet(favoritesPath(), FileAccess::Default, insert);
}

Result<> ImageStore::removeFavorite(const QString &name)
{
    const FolderLock lock(directory());
    const auto erase = [&](std::set<QString> &favorites) {
        favorites.erase(name);
        return Change::Write;
    };
    return changeTextSet(favoritesPath(), FileAccess::Default, erase);
}

Result<> ImageStore::deleteImage(const QString &image)
{
    const FolderLock lock(directory());
    const QStringList paths = withPartners({withoutSlashesAtItsEnd(image)});
    Result<> outcome = kDone;
    int gone = 0;
    for (const QString &path : paths) {
        const Result<> step = removeFromDisk(path);
        gone += step ? 1 : 0;
        outcome = outcome ? step : outcome;
    }
    qCInfo(logLibrary) << gone << "pictures of" << paths.size() << "were deleted, with what is known of them all";
    const Result<> dropped = dropEntriesOf(namesOf(paths));
    return outcome ? dropped : outcome;
}

void ImageStore::removeAbandonedTemporaries()
{
    for (const QString &path : {promptsPath(), variantsPath(), favoritesPath()}) {
        removeAbandonedTemporariesOf(path);
    }
}

} // namespace quorvane
