// The quick decoder against one that is plain to see right.

#include "Providers/Base64.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

std::optional<QByteArray> decodedPlainly(const QByteArray &text)
{
    const QByteArray alphabet("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    QByteArray digits = text;
    for (int padding = 0; padding < 2 && digits.endsWith('='); ++padding) {
        digits.chop(1);
    }
    QByteArray bytes;
    int bits = 0;
    int count = 0;
    for (const char digit : digits) {
        const auto value = static_cast<int>(alphabet.indexOf(digit));
        if (value < 0) {
            return std::nullopt;
        }
        bits = ((bits << 6) | value) & 0xffff;
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes.append(static_cast<char>((bits >> count) & 0xff));
        }
    }
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (quorvane::decodeBase64(text) != decodedPlainly(text) || quorvane::decodeBase64(text.toBase64()) != text) {
        std::abort();
    }
    return 0;
}
