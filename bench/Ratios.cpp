#include "Ratios.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

namespace tvx::bench {
namespace {

/// Collects the rounds of every run beside the usual report.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                seconds_[run.run_name.function_name].push_back(run.real_accumulated_time /
                                                               static_cast<double>(run.iterations));
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatios() const {
        std::printf("\n%-34s %12s %12s %8s\n", "medians", "work ms", "floor ms", "ratio");
        for (const auto& [name, rounds] : seconds_) {
            const std::string suffix = ":work";
            if (!name.ends_with(suffix)) continue;
            const std::string base = name.substr(0, name.size() - suffix.size());
            const auto floor = seconds_.find(base + ":floor");
            if (floor == seconds_.end()) continue;
            const double work = Median(rounds);
            const double bare = Median(floor->second);
            std::printf("%-34s %12.3f %12.3f %8.2f\n", base.c_str(), work * 1000, bare * 1000, work / bare);
        }
    }

  private:
    static double Median(std::vector<double> values) {
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    }
    std::map<std::string, std::vector<double>> seconds_;
};

void Register(const std::string& name, std::function<double()> round) {
    auto* registered =
        benchmark::RegisterBenchmark(name.c_str(), [round = std::move(round)](benchmark::State& state) {
            for (auto _ : state) state.SetIterationTime(round());
        });
    registered->UseManualTime()->Unit(benchmark::kMillisecond);
    if (std::getenv("TVX_BENCH_SMOKE") != nullptr)
        registered->Iterations(1)->Repetitions(1);
    else
        registered->MinTime(0.15)->Repetitions(7);
}

} // namespace

void Pair(const std::string& name, std::function<double()> work, std::function<double()> floor) {
    Register(name + ":work", std::move(work));
    Register(name + ":floor", std::move(floor));
}

int RunPairs(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::ClearRegisteredBenchmarks(); // what the rounds hold ends before the program's own parts do
    return 0;
}

} // namespace tvx::bench
