#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>

namespace quorvane {

using namespace Qt::StringLiterals;

/// What a process has in memory, in KiB, as the kernel counts it.
struct ProcessMemory
{
    qint64 resident = 0;     ///< Every page that is in memory, also those of libraries that other programs use.
    qint64 proportional = 0; ///< The same, a page that several programs share divided among them.
    qint64 anonymous = 0;    ///< What the program wrote itself: heap, stacks, changed pages of libraries.

    /// Pages of files: programs and libraries, as good as shared where other programs use them.
    [[nodiscard]] qint64 ofFiles() const { return resident - anonymous; }
};

[[nodiscard]] inline ProcessMemory memoryOf(qint64 pid)
{
    ProcessMemory memory;
    QFile file(u"/proc/%1/smaps_rollup"_s.arg(pid));
    if (!file.open(QIODevice::ReadOnly)) {
        return memory;
    }
    const QByteArrayList lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QByteArrayList words = line.simplified().split(' ');
        if (words.size() < 2) {
            continue;
        }
        const qint64 kibibytes = words.at(1).toLongLong();
        if (words.first() == "Rss:") {
            memory.resident = kibibytes;
        } else if (words.first() == "Pss:") {
            memory.proportional = kibibytes;
        } else if (words.first() == "Anonymous:") {
            memory.anonymous = kibibytes;
        }
    }
    return memory;
}

/// How many file descriptors the process has open.
[[nodiscard]] inline int descriptorsOf(qint64 pid)
{
    const QDir folder(u"/proc/%1/fd"_s.arg(pid));
    return static_cast<int>(folder.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot).size());
}

/// The processor time that the process has used, in clock ticks.
[[nodiscard]] inline qint64 processorTicksOf(qint64 pid)
{
    QFile file(u"/proc/%1/stat"_s.arg(pid));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    // The program's name, in parentheses, may hold blanks; user and system time are the 12th and 13th word after it.
    const QByteArray text = file.readAll();
    const QByteArrayList words = text.mid(text.lastIndexOf(')') + 2).split(' ');
    return words.value(11).toLongLong() + words.value(12).toLongLong();
}

} // namespace quorvane
