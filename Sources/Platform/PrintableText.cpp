#include "Platform/PrintableText.h"

namespace quorvane {

namespace {

constexpr char16_t kFirstPrintable = 0x20;
constexpr char16_t kDelete = 0x7f;
constexpr char16_t kFirstAfterControls = 0xa0;
constexpr char16_t kNull = 0x2400; // The visible signs of the first 32 characters stand in their order from here on.
constexpr char16_t kDeleteSign = 0x2421;
constexpr char16_t kNewLineSign = 0x2424;
constexpr char16_t kReplacement = 0xfffd;

bool isLineSeparator(char16_t unit)
{
    return unit == 0x2028 || unit == 0x2029;
}

// Embeddings, overrides and isolates turn the direction of what follows. The marks U+200E and U+200F are left: they
// turn nothing beyond their neighbours, and honest texts have them.
bool turnsDirection(char16_t unit)
{
    return (unit >= 0x202a && unit <= 0x202e) || (unit >= 0x2066 && unit <= 0x2069);
}

char16_t visible(char16_t unit)
{
    if (unit < kFirstPrintable) {
        return static_cast<char16_t>(kNull + unit);
    }
    if (unit < kDelete) {
        return unit;
    }
    if (unit == kDelete) {
        return kDeleteSign;
    }
    if (isLineSeparator(unit)) {
        return kNewLineSign;
    }
    return unit < kFirstAfterControls || turnsDirection(unit) ? kReplacement : unit;
}

} // namespace

QString withVisibleNulls(QString text)
{
    return text.replace(QChar(), QChar(kNull));
}

QString printable(QString text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar here = text.at(at);
        if (!here.isSurrogate()) {
            text[at] = QChar(visible(here.unicode()));
        } else if (here.isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate()) {
            ++at;
        } else {
            text[at] = QChar(kReplacement);
        }
    }
    return text;
}

QByteArray printableJson(const QByteArray &json)
{
    QString result;
    const QString text = QString::fromUtf8(json);
    result.reserve(text.size());
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        // What lies below 0x20 is an escape in JSON's strings already; between them a line break is layout.
        const bool isControl = unit >= kDelete && unit < kFirstAfterControls;
        if (isControl || isLineSeparator(unit) || turnsDirection(unit)) {
            result += QStringLiteral("\\u%1").arg(static_cast<uint>(unit), 4, 16, QChar(u'0'));
        } else {
            result += character;
        }
    }
    return result.toUtf8();
}

} // namespace quorvane
