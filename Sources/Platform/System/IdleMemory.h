#pragma once

namespace quorvane {

/// Gives what the allocator keeps for later back to the system: a program that lives all day and works for seconds
/// shall hold little in between. Takes milliseconds; meant for the end of some work.
void returnIdleMemory();

/// Lets go of the pages of program and library files that are mapped: those used again come back from the system's
/// cache of files, a fraction of a microsecond each. Starts that on another thread, because finding them takes tens of
/// milliseconds; meant for when nothing is shown.
void returnIdlePages();

} // namespace quorvane
