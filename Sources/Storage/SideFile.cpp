#include "Storage/SideFile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvane {

namespace {

// Qt's parser takes U+FEFF at the beginning of a text for a byte order mark and drops it, though a name or a prompt may
// well begin with it. It keeps the escaped form, so both directions go through that.
constexpr auto kByteOrderMark = "\xef\xbb\xbf";
constexpr auto kEscapedByteOrderMark = "\\ufeff";

QJsonDocument parse(QByteArray bytes)
{
    if (bytes.size() > kLargestSideFileBytes) {
        return {};
    }
    if (bytes.startsWith(kByteOrderMark)) {
        bytes.remove(0, 3);
    }
    bytes.replace(kByteOrderMark, kEscapedByteOrderMark);
    return QJsonDocument::fromJson(bytes);
}

std::optional<QByteArray> serialise(const QJsonDocument &document)
{
    QByteArray bytes = document.toJson(QJsonDocument::Compact);
    bytes.replace(kByteOrderMark, kEscapedByteOrderMark);
    if (bytes.size() > kLargestSideFileBytes) {
        return std::nullopt;
    }
    return bytes;
}

/// Empty when anything fails. Not QFile, because opening a named pipe of that name would wait for a writer.
QByteArray readWholeFile(const QString &path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return {};
    }
    QByteArray bytes;
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= kLargestSideFileBytes) {
        bytes.resize(status.st_size);
        qsizetype done = 0;
        while (done < bytes.size()) {
            const ssize_t count =
                ::read(descriptor, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count <= 0) {
                bytes.clear();
                break;
            }
            done += count;
        }
    }
    ::close(descriptor);
    return bytes;
}

} // namespace

TextMap textMapFromBytes(const QByteArray &bytes)
{
    TextMap map;
    const QJsonObject object = parse(bytes).object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (!entry.value().isString()) {
            return {};
        }
        map.emplace_hint(map.end(), entry.key(), entry.value().toString());
    }
    return map;
}

QStringList textListFromBytes(const QByteArray &bytes)
{
    QStringList list;
    const QJsonArray array = parse(bytes).array();
    list.reserve(array.size());
    for (const QJsonValue element : array) {
        if (!element.isString()) {
            return {};
        }
        list.append(element.toString());
    }
    return list;
}

std::optional<QByteArray> bytesFromTextMap(const TextMap &map)
{
    QJsonObject object;
    for (const auto &[name, text] : map) {
        object.insert(name, text);
    }
    return serialise(QJsonDocument(object));
}

std::optional<QByteArray> bytesFromTextList(const QStringList &list)
{
    return serialise(QJsonDocument(QJsonArray::fromStringList(list)));
}

TextMap readTextMap(const QString &path)
{
    return textMapFromBytes(readWholeFile(path));
}

QStringList readTextList(const QString &path)
{
    return textListFromBytes(readWholeFile(path));
}

} // namespace quorvane
