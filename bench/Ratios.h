// Benchmarks in pairs: a piece of work, and its floor, the same work done bare in the same run.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>

namespace tvx::bench {

/// Registers a pair. `work` and `floor` do one round each and return its seconds, so that what prepares a
/// round is not counted. Rounds of both alternate.
void Pair(const std::string& name, std::function<double()> work, std::function<double()> floor);

/// The seconds that something takes.
template <typename Something>
double Seconds(Something something) {
    const auto start = std::chrono::steady_clock::now();
    something();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Runs every pair and prints, beside the usual table, "ratio NAME work floor ratio" from the medians.
/// With TVX_BENCH_SMOKE set each pair runs once. Returns the exit status.
int RunPairs(int count, char** arguments);

} // namespace tvx::bench
