#include "Platform/Files/SettingsValue.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace quorvane::SettingsValue {

namespace {

constexpr bool isSpace(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

bool isHexDigit(char16_t character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

/// The number that stands at position in that base; position goes behind it.
char16_t number(QByteArrayView bytes, qsizetype &position, int base)
{
    unsigned value = 0;
    while (position < bytes.size() && isHexDigit(static_cast<unsigned char>(bytes[position]))) {
        const int digit = QByteArray(1, bytes[position]).toInt(nullptr, 16);
        if (digit >= base) {
            break;
        }
        value = value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
        ++position;
    }
    return static_cast<char16_t>(value);
}

/// What a backslash and the characters behind it mean; position goes behind them.
QString escaped(QByteArrayView bytes, qsizetype &position)
{
    constexpr QByteArrayView kLetters("abfnrtv\"?'\\");
    constexpr QByteArrayView kMeanings("\a\b\f\n\r\t\v\"?'\\");
    if (position >= bytes.size()) {
        return {};
    }
    const char letter = bytes[position];
    if (const qsizetype at = kLetters.indexOf(letter); at >= 0) {
        ++position;
        return QString(QLatin1Char(kMeanings[at]));
    }
    if (letter >= '0' && letter <= '7') {
        return QString(QChar(number(bytes, position, 8)));
    }
    ++position;
    if (letter == 'x' && position < bytes.size() && isHexDigit(static_cast<unsigned char>(bytes[position]))) {
        return QString(QChar(number(bytes, position, 16)));
    }
    if (letter == '\r' && position < bytes.size() && bytes[position] == '\n') {
        ++position;
    }
    return {};
}

/// A value as the list of its parts, which commas outside quotes set apart.
QStringList parts(QByteArrayView bytes)
{
    QStringList all{QString()};
    qsizetype solid = 0; ///< How much of the last part stays when trailing spaces go.
    bool isQuoted = false;
    bool isAtStart = true;
    for (qsizetype position = 0; position < bytes.size();) {
        const char character = bytes[position];
        QString &part = all.last();
        if (character == '\\') {
            part += escaped(bytes, ++position);
            solid = part.size();
        } else if (character == '"') {
            ++position;
            isQuoted = !isQuoted;
            solid = part.size();
            isAtStart = !isQuoted; // Spaces behind a quotation are skipped, like those before it.
            continue;
        } else if (character == ',' && !isQuoted) {
            ++position;
            part.truncate(solid);
            all.append(QString());
            solid = 0;
            isAtStart = true;
            continue;
        } else {
            qsizetype end = position + 1;
            while (end < bytes.size() && bytes[end] != '\\' && bytes[end] != '"' && bytes[end] != ',') {
                ++end;
            }
            QByteArrayView plain = bytes.sliced(position, end - position);
            position = end;
            if (isAtStart && !isQuoted) {
                while (!plain.isEmpty() && isSpace(plain.front())) {
                    plain = plain.sliced(1);
                }
            }
            part += QString::fromUtf8(plain);
            qsizetype spaces = 0;
            while (!isQuoted && spaces < plain.size() && isSpace(plain[plain.size() - 1 - spaces])) {
                ++spaces;
            }
            if (spaces < plain.size()) {
                solid = part.size() - spaces;
            }
            if (plain.isEmpty()) {
                continue; // Still at the start.
            }
        }
        isAtStart = false;
    }
    if (!isQuoted) {
        all.last().truncate(solid);
    }
    return all;
}

/// A part without the marks by which other types than texts are kept; nothing where it is no text.
std::optional<QString> textOf(const QString &part)
{
    if (!part.startsWith('@'_L1)) {
        return part;
    }
    if (part.startsWith("@@"_L1)) {
        return part.sliced(1);
    }
    for (const QLatin1String mark : {"@ByteArray("_L1, "@String("_L1}) {
        if (part.startsWith(mark) && part.endsWith(')'_L1)) {
            return part.sliced(mark.size(), part.size() - mark.size() - 1);
        }
    }
    const bool isOther = part.endsWith(')'_L1) && (part.startsWith("@Invalid("_L1) || part.startsWith("@Variant("_L1) ||
                                                   part.startsWith("@DateTime("_L1) || part.startsWith("@Rect("_L1) ||
                                                   part.startsWith("@Size("_L1) || part.startsWith("@Point("_L1));
    return isOther ? std::nullopt : std::optional(part);
}

/// Whether half a character stands there without the other half, which UTF-8 cannot tell.
bool isHalf(const QString &text, qsizetype index)
{
    const QChar character = text[index];
    if (character.isHighSurrogate()) {
        return index + 1 == text.size() || !text[index + 1].isLowSurrogate();
    }
    return character.isLowSurrogate() && (index == 0 || !text[index - 1].isHighSurrogate());
}

} // namespace

std::optional<QString> decoded(QByteArrayView bytes)
{
    QStringList texts;
    const QStringList all = parts(bytes);
    for (const QString &part : all) {
        const std::optional<QString> text = textOf(part);
        if (!text && all.size() == 1) {
            return std::nullopt;
        }
        texts.append(text.value_or(QString()));
    }
    // A hand-written line with commas reads as a list; the user meant the text.
    return texts.join(u", "_s);
}

QByteArray encoded(const QString &value)
{
    const QString text = value.startsWith('@'_L1) ? '@'_L1 + value : value;
    QByteArray bytes;
    bool isBehindNumber = false;
    bool needsQuotes = text.startsWith(' '_L1) || text.endsWith(' '_L1);
    QString plain; ///< Kept together until the next escape, because two units can be one character.
    const auto flush = [&bytes, &plain] {
        bytes += plain.toUtf8();
        plain.clear();
    };
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar character = text[index];
        const char16_t unit = character.unicode();
        needsQuotes = needsQuotes || unit == ';' || unit == ',' || unit == '=';
        // A digit behind a number would be read as a part of it.
        const bool isNumber = unit < ' ' || unit == 0x7f || isHalf(text, index) || (isBehindNumber && isHexDigit(unit));
        if (unit == '\n') {
            flush();
            bytes += "\\n";
        } else if (unit == '"' || unit == '\\') {
            plain += '\\'_L1;
            plain += character;
        } else if (isNumber) {
            flush();
            bytes += "\\x" + QByteArray::number(unit, 16);
        } else {
            plain += character;
        }
        isBehindNumber = isNumber && unit != '\n';
    }
    flush();
    return needsQuotes ? '"' + bytes + '"' : bytes;
}

} // namespace quorvane::SettingsValue
