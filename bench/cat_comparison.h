#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace tessarin::bench {

// Seconds that cat takes to read every file of the folder; -1 when it fails.
inline double CatSeconds(const std::filesystem::path& folder) {
    const std::string command = "cat " + folder.string() + "/* > /dev/null";
    const auto start = std::chrono::steady_clock::now();
    if (std::system(command.c_str()) != 0) return -1;
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The counters of a benchmark that reads a folder twice (a first pass, then one with nothing
// changed) and cat of the same files in each iteration, given the sums of their seconds: each
// time in milliseconds and the ratios of the passes to cat.
inline void SetCatComparisonCounters(benchmark::State& state, double first, double second,
                                     double cat) {
    const auto average = [](double seconds) {
        return benchmark::Counter(seconds * 1000, benchmark::Counter::kAvgIterations);
    };
    state.counters["first_ms"] = average(first);
    state.counters["second_ms"] = average(second);
    state.counters["cat_ms"] = average(cat);
    state.counters["first_per_cat"] = cat > 0 ? first / cat : 0;
    state.counters["second_per_cat"] = cat > 0 ? second / cat : 0;
}

}  // namespace tessarin::bench
