#include "Upscaling/Network/BoundedAllocator.h"

#include <QCoreApplication>

#include <cstdlib>
#include <malloc.h>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(BoundedAllocator)
};

constexpr std::size_t kVectorAlignment = 64;
constexpr std::size_t kLargePage = std::size_t(2) << 20;

} // namespace

BoundedAllocator::BoundedAllocator(std::size_t bound)
    : m_bound(bound)
{
}

void *BoundedAllocator::allocate(std::size_t size)
{
    const bool large = size >= 2 * kLargePage;
    void *memory = nullptr;
    if (size > m_bound || m_used + size > m_bound) {
        throw std::runtime_error(Tr::tr("The model needs more than %1 MB of memory").arg(m_bound >> 20).toStdString());
    }
    if (posix_memalign(&memory, large ? kLargePage : kVectorAlignment, size) != 0) {
        throw std::runtime_error(Tr::tr("There is not enough memory for the model").toStdString());
    }
    if (large) {
        madvise(memory, size, MADV_HUGEPAGE);
    }
    m_used += malloc_usable_size(memory);
    return memory;
}

void BoundedAllocator::release(void *memory)
{
    m_used -= malloc_usable_size(memory);
    std::free(memory);
}

std::size_t engineMemoryBound()
{
    return static_cast<std::size_t>(sysconf(_SC_PHYS_PAGES)) * static_cast<std::size_t>(sysconf(_SC_PAGE_SIZE)) / 4 * 3;
}

} // namespace quorvane
