#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "common/file_io.h"
#include "config/preferences.h"
#include "config/profile_file.h"

// The preferences file with many keys: every read and write must cost the same per key of
// the file whether it holds a thousand keys or a hundred thousand. Compare the per_key
// counters (CPU time per key of the file) of the two sizes: their ratio must stay near 1.

namespace {

using namespace tessarin;

std::string ManyKeys(std::int64_t count) {
    std::string text = "[Preferences]\r\nUseXSLT=0\r\nFontSize3=14\r\n[Many]\r\n";
    for (std::int64_t key = 0; key < count; ++key)
        text += "Key" + std::to_string(key) + "=value " + std::to_string(key) + "\r\n";
    return text;
}

std::filesystem::path FileWith(const std::string& text) {
    const auto file = std::filesystem::temp_directory_path() /
                      ("tessarin-bench-" + std::to_string(::getpid()) + ".ini");
    WriteFileAtomically(file, text);
    return file;
}

// The time of one key of the file: seconds, shown with an SI prefix (n for nanoseconds).
void PerKey(benchmark::State& state) {
    state.counters["per_key"] = benchmark::Counter(
        static_cast<double>(state.range(0)),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Start-up: every preference read from the file.
void BM_ReadPreferences(benchmark::State& state) {
    const ProfileFile profile(FileWith(ManyKeys(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadPreferences(profile));
    PerKey(state);
    std::filesystem::remove(profile.Path());
}
BENCHMARK(BM_ReadPreferences)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

// The preferences dialog's OK: every preference written at once.
void BM_WritePreferencesDialog(benchmark::State& state) {
    const std::string text = ManyKeys(state.range(0));
    ProfileFile profile(FileWith(text));
    const Preferences preferences;
    for (auto _ : state)
        benchmark::DoNotOptimize(WritePreferencesDialog(profile, preferences));
    PerKey(state);
    std::filesystem::remove(profile.Path());
}
BENCHMARK(BM_WritePreferencesDialog)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

// Every key of the file set in one write.
void BM_WriteEveryKey(benchmark::State& state) {
    ProfileFile profile(FileWith(ManyKeys(state.range(0))));
    std::vector<ProfileEntry> entries;
    for (std::int64_t key = 0; key < state.range(0); ++key)
        entries.push_back({"Many", "Key" + std::to_string(key), "new " + std::to_string(key)});
    for (auto _ : state)
        benchmark::DoNotOptimize(profile.Write(entries));
    PerKey(state);
    std::filesystem::remove(profile.Path());
}
BENCHMARK(BM_WriteEveryKey)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
