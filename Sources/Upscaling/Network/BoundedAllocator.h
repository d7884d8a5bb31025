#pragma once

#include <atomic>
#include <cstddef>

namespace quorvane {

/// The memory that the inference engine computes in: taken from the system when needed, given back at once, and
/// bounded.
///
/// The engine's own allocator keeps what it ever had and plans ahead: 7.2 GB for a network of the Real-ESRGAN shape
/// where 2.1 GB are in use at a time. Giving memory back costs page faults, which large pages make cheap, so that this
/// is no slower. The bound is there because a hostile network must end as an error before the system has to end the
/// program. Any thread may call it.
class BoundedAllocator
{
  public:
    explicit BoundedAllocator(std::size_t bound);

    /// size bytes, aligned for vector instructions. Throws std::runtime_error, which says so in a line, when they would
    /// exceed the bound or cannot be had.
    [[nodiscard]] void *allocate(std::size_t size);

    /// Null is allowed.
    void release(void *memory);

    /// Bytes in use.
    [[nodiscard]] std::size_t used() const { return m_used; }

  private:
    std::size_t m_bound;
    std::atomic<std::size_t> m_used = 0;
};

/// Three quarters of the machine's memory.
[[nodiscard]] std::size_t engineMemoryBound();

} // namespace quorvane
