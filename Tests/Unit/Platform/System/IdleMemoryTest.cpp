#include "Platform/System/IdleMemory.h"

#include "Support/ProcessMemory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <thread>

#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

namespace quorvane {

namespace {

constexpr std::size_t kPage = 4096;

/// Lies in a segment of this program that cannot be written, as its code does.
alignas(kPage) const char kConstant[2 * kPage] = {'a'};

/// Reads one byte of each page of the segments of all libraries that cannot be written.
int readLibraries()
{
    int sum = 0;
    ::dl_iterate_phdr(
        [](dl_phdr_info *library, std::size_t /*size*/, void *sum) {
            for (int each = 0; each < library->dlpi_phnum; ++each) {
                const ElfW(Phdr) &segment = library->dlpi_phdr[each];
                const bool isReadable = segment.p_type == PT_LOAD && (segment.p_flags & (PF_R | PF_W)) == PF_R;
                for (std::size_t offset = 0; isReadable && offset < segment.p_memsz; offset += kPage) {
                    // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader tells addresses as numbers.
                    *static_cast<int *>(sum) +=
                        *reinterpret_cast<const volatile char *>(library->dlpi_addr + segment.p_vaddr + offset);
                }
            }
            return 0;
        },
        &sum);
    return sum;
}

} // namespace

TEST(IdleMemory, thePagesOfLibrariesAreLetGoAndComeBack)
{
    const int sum = readLibraries();
    const ProcessMemory before = memoryOf(::getpid());
    returnIdlePages();
    const ProcessMemory after = memoryOf(::getpid());
    EXPECT_LT(after.ofFiles(), before.ofFiles() / 2);
    EXPECT_EQ(readLibraries(), sum);
}

TEST(IdleMemory, whatWasWrittenIntoALibraryStays)
{
    // As what patches its own code does.
    volatile char *page = const_cast<volatile char *>(static_cast<const volatile char *>(kConstant));
    const auto setRights = [](int rights) { return ::mprotect(const_cast<char *>(kConstant), kPage, rights); };
    ASSERT_EQ(setRights(PROT_READ | PROT_WRITE), 0);
    page[0] = 'b';
    ASSERT_EQ(setRights(PROT_READ), 0);
    returnIdlePages();
    EXPECT_EQ(page[0], 'b');
}

TEST(IdleMemory, whatOtherThreadsMapAndWriteMeanwhileStays)
{
    // As the heap of a JavaScript engine does: reserved in a private mapping of a file in memory, and written to later.
    const int file = ::memfd_create("heap", MFD_CLOEXEC);
    constexpr std::size_t kSize = 64 * kPage;
    ASSERT_EQ(::ftruncate(file, kSize), 0);
    std::atomic_bool isOver = false;
    std::atomic_int lost = 0;
    std::thread engine([&] {
        while (!isOver) {
            void *heap = ::mmap(nullptr, kSize, PROT_NONE, MAP_PRIVATE | MAP_NORESERVE, file, 0);
            ::mprotect(heap, kSize, PROT_READ | PROT_WRITE);
            std::memset(heap, 1, kSize);
            for (std::size_t offset = 0; offset < kSize; offset += kPage) {
                lost += static_cast<const volatile char *>(heap)[offset] == 1 ? 0 : 1;
            }
            ::munmap(heap, kSize);
        }
    });
    for (int each = 0; each < 300; ++each) {
        returnIdlePages();
    }
    isOver = true;
    engine.join();
    ::close(file);
    EXPECT_EQ(lost, 0);
}

} // namespace quorvane
