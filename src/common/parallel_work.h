#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace tessarin {

// Runs work(i) for every i below count on the machine's cores, the calling thread among
// them; returns when all are done. work must be safe to run for different i at once.
template <typename Work>
void ForEachInParallel(std::size_t count, Work work) {
    const std::size_t threads =
        std::min<std::size_t>(count, std::max(1u, std::thread::hardware_concurrency()));
    std::atomic<std::size_t> next{0};
    const auto run = [&] {
        for (std::size_t i = next++; i < count; i = next++)
            work(i);
    };
    std::vector<std::jthread> pool;
    for (std::size_t t = 1; t < threads; ++t)
        pool.emplace_back(run);
    run();
}

}  // namespace tessarin
