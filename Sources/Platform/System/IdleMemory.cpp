// What the pages of Qt's libraries cost is given back by MADV_DONTNEED. On a private mapping that advice drops whatever
// was written there, so all depends on giving it only where nothing can have been written:
//
// - Only to segments of loaded libraries that their files declare as not writable: code and constants. What others map
//   by themselves is never looked at; the heap of a JavaScript engine, say, is a private mapping of a file in memory
//   whose reserved parts look untouched until a moment later.
// - While the dynamic linker's own lock is held, as it is in every call of dl_iterate_phdr(): no library comes or goes,
//   and one that is in the list is mapped completely, so that these addresses are what they were a moment ago.
// - Not to libraries whose code is relocated, and only to pages that are still the file's: a library may patch its own
//   code, as dispatchers of OpenGL do, and a debugger does.
//
// The advices that can lose nothing by definition do not help here: MADV_COLD takes no page out, and MADV_PAGEOUT, for
// an ordinary user, none of a file that only root may write, and for root none that another program has mapped, too.

#include "Platform/System/IdleMemory.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include <fcntl.h>
#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace quorvane {

namespace {

using Address = std::uintptr_t;

/// What the kernel tells of each page of this process.
class PageMap
{
  public:
    PageMap()
        : m_file(::open("/proc/self/pagemap", O_RDONLY | O_CLOEXEC))
    {
    }
    ~PageMap()
    {
        if (m_file >= 0) {
            ::close(m_file);
        }
    }
    PageMap(const PageMap &) = delete;
    PageMap &operator=(const PageMap &) = delete;
    PageMap(PageMap &&) = delete;
    PageMap &operator=(PageMap &&) = delete;

    [[nodiscard]] Address pageSize() const { return m_pageSize; }

    /// Lets go of the pages from begin to end that are the file's.
    void letGo(Address begin, Address end)
    {
        for (Address from = begin; from < end; from += m_entries.size() * m_pageSize) {
            const std::size_t count = std::min<std::size_t>((end - from) / m_pageSize, m_entries.size());
            const ssize_t wanted = static_cast<ssize_t>(count * sizeof(std::uint64_t));
            const auto place = static_cast<off_t>(from / m_pageSize * sizeof(std::uint64_t));
            if (::pread(m_file, m_entries.data(), static_cast<std::size_t>(wanted), place) != wanted) {
                return;
            }
            letGo(from, std::span(m_entries).first(count));
        }
    }

  private:
    void letGo(Address from, std::span<const std::uint64_t> entries) const
    {
        const auto isChanged = [](std::uint64_t entry) {
            constexpr std::uint64_t kPresent = 1ULL << 63;
            constexpr std::uint64_t kSwapped = 1ULL << 62;
            constexpr std::uint64_t kOfFile = 1ULL << 61;
            return (entry & (kPresent | kSwapped)) != 0 && (entry & kOfFile) == 0;
        };
        for (auto entry = entries.begin(); entry != entries.end();) {
            const auto changed = std::find_if(entry, entries.end(), isChanged);
            const Address begin = from + static_cast<Address>(entry - entries.begin()) * m_pageSize;
            const Address size = static_cast<Address>(changed - entry) * m_pageSize;
            if (size > 0) {
                // NOLINTNEXTLINE(performance-no-int-to-ptr): the linker tells addresses as numbers.
                ::madvise(reinterpret_cast<void *>(begin), size, MADV_DONTNEED);
            }
            entry = std::find_if_not(changed, entries.end(), isChanged);
        }
    }

    Address m_pageSize = static_cast<Address>(::sysconf(_SC_PAGESIZE));
    int m_file;
    std::array<std::uint64_t, 1024> m_entries{};
};

/// Whether the linker writes into segments that are not writable.
bool hasRelocatedCode(const dl_phdr_info &library, const ElfW(Phdr) & dynamic)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the linker tells addresses as numbers.
    const auto *entry = reinterpret_cast<const ElfW(Dyn) *>(library.dlpi_addr + dynamic.p_vaddr);
    for (; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_TEXTREL || (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL) != 0)) {
            return true;
        }
    }
    return false;
}

int letGoOfLibrary(dl_phdr_info *library, std::size_t /*size*/, void *data)
{
    auto &pages = *static_cast<PageMap *>(data);
    const std::span segments(library->dlpi_phdr, library->dlpi_phnum);
    const auto dynamic = std::ranges::find(segments, PT_DYNAMIC, &ElfW(Phdr)::p_type);
    // The kernel's own piece of code for every program has a name without a folder; the program itself has none.
    const bool isFile = library->dlpi_name[0] == '/' || library->dlpi_name[0] == '\0';
    if (!isFile || dynamic == segments.end() || hasRelocatedCode(*library, *dynamic)) {
        return 0;
    }
    const Address mask = ~(pages.pageSize() - 1);
    for (const ElfW(Phdr) & segment : segments) {
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_W) == 0) {
            // Whole pages, because segments of different rights never share one in memory.
            const Address begin = library->dlpi_addr + segment.p_vaddr;
            pages.letGo(begin & mask, (begin + segment.p_memsz + ~mask) & mask);
        }
    }
    return 0;
}

} // namespace

void returnIdleMemory()
{
    ::malloc_trim(0);
}

void returnIdlePages()
{
    PageMap pages;
    ::dl_iterate_phdr(&letGoOfLibrary, &pages);
}

} // namespace quorvane
