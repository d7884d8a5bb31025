#include "Platform/System/IdleMemory.h"

#include <QFile>
#include <QThreadPool>

#include <malloc.h>
#include <sys/mman.h>

#include <cstdint>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Pages
{
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
};

/// What is mapped of files, cannot be written and was not changed by the dynamic linker either: the file has all of it.
std::vector<Pages> unchangedPagesOfFiles()
{
    std::vector<Pages> found;
    QFile mappings(u"/proc/self/smaps"_s);
    if (!mappings.open(QIODevice::ReadOnly)) {
        return found;
    }
    Pages pages;
    bool isReadOnlyFile = false;
    for (QByteArray line = mappings.readLine(); !line.isEmpty(); line = mappings.readLine()) {
        const QList<QByteArray> words = line.simplified().split(' ');
        const qsizetype dash = words.front().indexOf('-');
        if (dash > 0) { // begin-end rwxp offset device inode name
            pages = {static_cast<std::uintptr_t>(words.front().left(dash).toULongLong(nullptr, 16)),
                     static_cast<std::uintptr_t>(words.front().mid(dash + 1).toULongLong(nullptr, 16))};
            isReadOnlyFile = words.value(1).mid(1, 1) == "-" && words.value(4) != "0";
        } else if (isReadOnlyFile && words.front() == "Anonymous:" && words.value(1) == "0") {
            found.push_back(pages);
        }
    }
    return found;
}

} // namespace

void returnIdleMemory()
{
    ::malloc_trim(0);
}

void returnIdlePages()
{
    QThreadPool::globalInstance()->start([] {
        for (const Pages &pages : unchangedPagesOfFiles()) {
            // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel tells addresses as text.
            ::madvise(reinterpret_cast<void *>(pages.begin), pages.end - pages.begin, MADV_DONTNEED);
        }
    });
}

} // namespace quorvane
