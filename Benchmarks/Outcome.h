#pragma once

#include <benchmark/benchmark.h>

namespace quorvane {

/// Whether what a benchmark is to measure did not happen, in any of them.
inline bool benchmarkHasFailed = false;

/// A benchmark whose subject did not happen, or not as it should, says so instead of a figure, and the program ends
/// with a status that tells. Meant for after the measured loop.
inline void expect(benchmark::State &state, bool happened, const char *otherwise)
{
    if (!happened) {
        benchmarkHasFailed = true;
        state.SkipWithError(otherwise);
    }
}

/// The end of main(): its exit status.
[[nodiscard]] inline int runBenchmarks(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    const bool haveAnyRun = benchmark::RunSpecifiedBenchmarks() > 0;
    benchmark::Shutdown();
    return haveAnyRun && !benchmarkHasFailed ? 0 : 1;
}

} // namespace quorvane
