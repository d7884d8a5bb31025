#include "Upscaling/Network/BoundedAllocator.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace quorvane {

TEST(BoundedAllocator, blocksAreAlignedAndCountedWhileTheyAreHeld)
{
    BoundedAllocator memory(100 << 20);
    for (const std::size_t size : {std::size_t(0), std::size_t(1), std::size_t(1000), std::size_t(20) << 20}) {
        void *block = memory.allocate(size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 64, 0U);
        EXPECT_GE(memory.used(), size);
        std::memset(block, 1, size);
        memory.release(block);
        EXPECT_EQ(memory.used(), 0U);
    }
    memory.release(nullptr);
    EXPECT_EQ(memory.used(), 0U);
}

TEST(BoundedAllocator, whatIsHeldMayNotExceedTheBound)
{
    BoundedAllocator memory(10 << 20);
    void *block = memory.allocate(8 << 20);
    EXPECT_EQ(text(thrown<std::runtime_error>([&] { static_cast<void>(memory.allocate(8 << 20)); })),
              "The model needs more than 10 MB of memory");
    EXPECT_THROW(static_cast<void>(memory.allocate(SIZE_MAX)), std::runtime_error);
    memory.release(block);
    memory.release(memory.allocate(8 << 20));
    EXPECT_EQ(memory.used(), 0U);
}

} // namespace quorvane
