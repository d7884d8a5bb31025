#pragma once

namespace quorvane {

/// Gives what the allocator keeps for later back to the system: a program that lives all day and works for seconds
/// shall hold little in between. Takes milliseconds; meant for the end of some work.
void returnIdleMemory();

} // namespace quorvane
