#pragma once

namespace quorvane {

/// Gives what the allocator keeps for later back to the system: a program that lives all day and works for seconds
/// shall hold little in between. Takes milliseconds; meant for the end of some work.
void returnIdleMemory();

/// Lets go of the pages of the program's and its libraries' code and constants: those used again come back from the
/// system's cache of files, a fraction of a microsecond each. Nothing can be lost by it, whatever other threads do.
/// Takes two milliseconds; meant for when nothing is shown, on the thread that makes the windows, so that none is made
/// meanwhile.
void returnIdlePages();

} // namespace quorvane
