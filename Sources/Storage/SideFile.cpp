#include "Storage/SideFile.h"

#include "Platform/Files/AsideFile.h"
#include "Platform/Files/WholeFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(SideFile)
};

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

/// The content of the file at path; nothing where there is none. A second attempt is made, because some faults pass: a
/// network's file that was replaced meanwhile, or a moment without descriptors.
Result<std::optional<QByteArray>> contentOf(const QString &path)
{
    const Result<std::optional<QByteArray>> bytes = readWholeIfAny(path, kLargestSideFileBytes);
    return bytes ? bytes : readWholeIfAny(path, kLargestSideFileBytes);
}

template <typename Content> Content read(const QString &path, std::optional<Content> (*understood)(const QByteArray &))
{
    const Result<std::optional<QByteArray>> found = contentOf(path);
    const std::optional<QByteArray> bytes = found ? *found : std::nullopt;
    return bytes ? understood(*bytes).value_or(Content()) : Content();
}

template <typename Content>
Result<> changeFile(const QString &path, FileAccess access, const std::function<Change(Content &)> &change,
                    std::optional<Content> (*understood)(const QByteArray &),
                    std::optional<QByteArray> (*bytesFrom)(const Content &))
{
    const Result<std::optional<QByteArray>> found = contentOf(path);
    const std::optional<QByteArray> before = found ? *found : std::nullopt;
    std::optional<Content> content = before ? understood(*before) : std::nullopt;
    const bool isMissing = found && !before;
    const bool isKnown = isMissing || content.has_value();
    if (!content) {
        content = Content();
    }
    if (change(*content) == Change::LeaveAlone) {
        return kDone;
    }
    const std::optional<QByteArray> bytes = bytesFrom(*content);
    Result<> written = kDone;
    if (!bytes) {
        written = Failure{systemWords(EFBIG)};
    } else {
        written = isKnown ? writeFileAtomically(path, *bytes, access) : replaceNotUnderstood(path, *bytes, access);
    }
    if (!written) {
        return Failure{Tr::tr("%1 could not be written: %2").arg(QFileInfo(path).fileName(), written.failure().words)};
    }
    return kDone;
}

} // namespace

std::optional<TextMap> understoodTextMap(const QByteArray &bytes)
{
    const QJsonDocument document = parse(bytes);
    if (!document.isObject()) {
        return std::nullopt;
    }
    TextMap map;
    const QJsonObject object = document.object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (!entry.value().isString()) {
            return std::nullopt;
        }
        map.emplace_hint(map.end(), entry.key(), entry.value().toString());
    }
    return map;
}

std::optional<QStringList> understoodTextList(const QByteArray &bytes)
{
    const QJsonDocument document = parse(bytes);
    if (!document.isArray()) {
        return std::nullopt;
    }
    QStringList list;
    const QJsonArray array = document.array();
    list.reserve(array.size());
    for (const QJsonValue element : array) {
        if (!element.isString()) {
            return std::nullopt;
        }
        list.append(element.toString());
    }
    return list;
}

TextMap textMapFromBytes(const QByteArray &bytes)
{
    return understoodTextMap(bytes).value_or(TextMap());
}

QStringList textListFromBytes(const QByteArray &bytes)
{
    return understoodTextList(bytes).value_or(QStringList());
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
    return read(path, &understoodTextMap);
}

QStringList readTextList(const QString &path)
{
    return read(path, &understoodTextList);
}

Result<> changeTextMap(const QString &path, FileAccess access, const std::function<Change(TextMap &)> &change)
{
    return changeFile(path, access, change, &understoodTextMap, &bytesFromTextMap);
}

Result<> changeTextList(const QString &path, FileAccess access, const std::function<Change(QStringList &)> &change)
{
    return changeFile(path, access, change, &understoodTextList, &bytesFromTextList);
}

Result<> changeTextSet(const QString &path, FileAccess access, const std::function<Change(std::set<QString> &)> &change)
{
    const auto changeList = [&](QStringList &list) {
        std::set<QString> texts(list.cbegin(), list.cend());
        const Change answer = change(texts);
        list = QStringList(texts.begin(), texts.end());
        return answer;
    };
    return changeTextList(path, access, changeList);
}

} // namespace quorvane
