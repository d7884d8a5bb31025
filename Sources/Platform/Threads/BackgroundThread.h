#pragma once

/// Long computations that must leave the machine usable.
namespace quorvane {

/// Lets everything else go first: the calling thread gets a low priority for the rest of its life, and so do the
/// threads that it starts from then on. There is no way back without special rights, so only call it on a thread of
/// one's own.
void lowerThreadPriority();

/// How many cores this process may use, counting the two halves of one core once; at least 1. Dense arithmetic fills a
/// core's units with one thread, so a second one on the same core only costs memory.
[[nodiscard]] int physicalCores();

} // namespace quorvane
