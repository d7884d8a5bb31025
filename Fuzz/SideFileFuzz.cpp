#include "Storage/SideFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace quorvane;

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// What a side file must look like: valid UTF-8, one line, nothing before and after the brackets.
void requireWrittenForm(const QByteArray &bytes, char first, char last)
{
    require(bytes.size() >= 2 && bytes.front() == first && bytes.back() == last && bytes.isValidUtf8());
    for (const char byte : bytes) {
        require(static_cast<unsigned char>(byte) >= 0x20);
    }
}

void checkMap(const TextMap &map)
{
    const auto bytes = bytesFromTextMap(map);
    require(bytes.has_value());
    requireWrittenForm(*bytes, '{', '}');
    require(textMapFromBytes(*bytes) == map);
    require(textListFromBytes(*bytes).isEmpty());

    // One member of another kind spoils the whole file.
    const QByteArray spoilt = bytes->chopped(1) + (map.empty() ? "" : ",") + "\"x\":[]}";
    require(textMapFromBytes(spoilt).empty());
    require(textMapFromBytes(bytes->chopped(1)).empty());
}

void checkList(const QStringList &list)
{
    const auto bytes = bytesFromTextList(list);
    require(bytes.has_value());
    requireWrittenForm(*bytes, '[', ']');
    require(textListFromBytes(*bytes) == list);
    require(textMapFromBytes(*bytes).empty());

    const QByteArray spoilt = bytes->chopped(1) + (list.isEmpty() ? "" : ",") + "null]";
    require(textListFromBytes(spoilt).isEmpty());
    require(textListFromBytes(bytes->chopped(1)).isEmpty());
}

} // namespace

/// Whatever bytes a file holds can be read, and what was read can be written and read again; the same for whatever
/// texts come from elsewhere: here the bytes are cut at line feeds and taken for UTF-16, lone surrogates and all.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const TextMap map = textMapFromBytes(bytes);
    const QStringList list = textListFromBytes(bytes);
    require(map.empty() || list.isEmpty());
    checkMap(map);
    checkList(list);

    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::copy_n(bytes.constData(), text.size() * 2, reinterpret_cast<char *>(text.data()));
    const QStringList texts = text.split(QChar(u'\n'));
    TextMap named;
    for (const QString &part : texts) {
        named.insert_or_assign(part, text);
    }
    checkMap(named);
    checkList(texts);
    return 0;
}
