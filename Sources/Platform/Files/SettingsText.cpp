// QSettings itself cannot be trusted with the file: it empties it on a full disk and reports success. Its form is kept,
// because people have such files. The alternative, letting QSettings change a copy, needs a second file, a lock file
// and a way to find out whether the copy is whole.

#include "Platform/Files/SettingsText.h"

#include "Platform/Files/SettingsValue.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QByteArrayView kByteOrderMark("\xef\xbb\xbf");
constexpr QByteArrayView kGeneralHeader("[General]\n");

bool isSpace(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

/// One entry "key=value": where it stands, without the line's end.
struct Entry
{
    qsizetype begin;
    qsizetype end;
    QByteArrayView key;
    QByteArrayView value;
};

/// What a file holds in its general group.
struct General
{
    QList<Entry> entries;
    qsizetype insertAt = -1; ///< Behind the group's header; -1 where it has none.
};

/// The end of the line that begins at position. Quotes hold a line together, and a backslash takes away the meaning of
/// what follows; a semicolon ends the line, because a comment begins there.
qsizetype endOfLine(QByteArrayView bytes, qsizetype position)
{
    bool isQuoted = false;
    for (; position < bytes.size(); ++position) {
        const char character = bytes[position];
        if (character == '\\') {
            const bool isLongLineEnd = bytes.sliced(position).startsWith("\\\r\n");
            position += isLongLineEnd ? 2 : 1;
        } else if (character == '"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && (character == '\n' || character == '\r' || character == ';')) {
            return position;
        }
    }
    return bytes.size();
}

qsizetype endOfComment(QByteArrayView bytes, qsizetype position)
{
    while (position < bytes.size() && bytes[position] != '\n' && bytes[position] != '\r') {
        ++position;
    }
    return position;
}

General generalOf(QByteArrayView bytes)
{
    General found;
    bool isGeneral = true;
    qsizetype position = bytes.startsWith(kByteOrderMark) ? kByteOrderMark.size() : 0;
    while (position < bytes.size()) {
        if (isSpace(bytes[position])) {
            ++position;
            continue;
        }
        if (bytes[position] == ';') {
            position = endOfComment(bytes, position);
            continue;
        }
        const qsizetype end = endOfLine(bytes, position);
        const QByteArrayView line = bytes.sliced(position, end - position);
        if (line.startsWith('[')) {
            const qsizetype close = line.indexOf(']');
            const QByteArrayView name = line.sliced(1, (close < 0 ? line.size() : close) - 1).trimmed();
            isGeneral = name.compare("general", Qt::CaseInsensitive) == 0;
            if (isGeneral && found.insertAt < 0 && end < bytes.size() && bytes[end] != ';') {
                found.insertAt = end + (bytes.sliced(end).startsWith("\r\n") ? 2 : 1);
            }
        } else if (const qsizetype equals = line.indexOf('='); isGeneral && equals > 0) {
            found.entries.append({position, end, line.first(equals).trimmed(), line.sliced(equals + 1)});
        }
        position = end;
    }
    return found;
}

} // namespace

std::optional<QString> SettingsText::value(const QString &key) const
{
    const QByteArray name = key.toUtf8();
    const QList<Entry> entries = generalOf(m_bytes).entries;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (entry->key == name) {
            return SettingsValue::decoded(entry->value);
        }
    }
    return std::nullopt;
}

void SettingsText::set(const QString &key, const QString &value)
{
    if (this->value(key) == value) {
        return;
    }
    const QByteArray line = key.toUtf8() + '=' + SettingsValue::encoded(value);
    const General general = generalOf(m_bytes);
    const QByteArray name = key.toUtf8();
    for (auto entry = general.entries.rbegin(); entry != general.entries.rend(); ++entry) {
        if (entry->key == name) {
            m_bytes.replace(entry->begin, entry->end - entry->begin, line);
            return;
        }
    }
    if (general.insertAt >= 0) {
        m_bytes.insert(general.insertAt, line + '\n');
        return;
    }
    const qsizetype start = m_bytes.startsWith(kByteOrderMark) ? kByteOrderMark.size() : 0;
    const QByteArray rest = m_bytes.size() > start ? QByteArray("\n") : QByteArray();
    m_bytes.insert(start, kGeneralHeader.toByteArray() + line + '\n' + rest);
}

void SettingsText::remove(const QString &key)
{
    const QByteArray name = key.toUtf8();
    const QList<Entry> entries = generalOf(m_bytes).entries;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (entry->key == name) {
            const bool endsLine = entry->end < m_bytes.size() && m_bytes[entry->end] == '\n';
            m_bytes.remove(entry->begin, entry->end - entry->begin + (endsLine ? 1 : 0));
        }
    }
}

} // namespace quorvane
