// From nothing to a painted console, and the memory of a week of 300 people, beside a Qt program that paints
// one window of the same size.
#include "support/TestStore.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct RunFacts {
    double seconds = 0;
    double megabytes = 0; // peak
};

RunFacts RunOnce(const fs::path& program, const char* argument) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        if (std::freopen("/dev/null", "w", stderr) == nullptr) std::_Exit(126);
        execl(program.c_str(), program.c_str(), argument, nullptr);
        std::_Exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s ended with %d\n", program.c_str(), status);
        std::exit(1);
    }
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
            static_cast<double>(usage.ru_maxrss) / 1024};
}

RunFacts Median(const fs::path& program, const char* argument, int rounds) {
    std::vector<double> seconds;
    std::vector<double> megabytes;
    for (int i = 0; i < rounds; ++i) {
        const RunFacts facts = RunOnce(program, argument);
        seconds.push_back(facts.seconds);
        megabytes.push_back(facts.megabytes);
    }
    std::sort(seconds.begin(), seconds.end());
    std::sort(megabytes.begin(), megabytes.end());
    return {seconds[seconds.size() / 2], megabytes[megabytes.size() / 2]};
}

void Print(const char* what, const char* unit, double work, double floor) {
    std::printf("%-44s %10.1f %s %10.1f %s %8.2f\n", what, work, unit, floor, unit, work / floor);
}

/// A program folder with 300 people and the week of today.
void FillProgramFolder(const fs::path& folder) {
    tvx::test::TestStore store;
    store.AddDepartment("Bench");
    store.AddPeople(300);
    const auto days =
        std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()).time_since_epoch();
    store.FillWeeks(static_cast<tvx::DaySerial>(days.count() + 25569 - 7), 3);
    fs::copy_file(store.folder / "TVX.MDB", folder / "TVX.MDB");
}

} // namespace

int main() {
    const int rounds = std::getenv("TVX_BENCH_SMOKE") != nullptr ? 1 : 25;
    tvx::test::TempFolder folder;
    FillProgramFolder(folder.Path());
    const fs::path program = folder / "console_start";
    fs::copy_file(fs::path(TVX_BENCH_PROGRAMS) / "console_start", program);
    const fs::path minimal = fs::path(TVX_BENCH_PROGRAMS) / "minimal_window";
    const std::string screen = (folder / "screen.json").string();
    std::ofstream(screen)
        << R"({"screens":[{"name":"s","x":0,"y":0,"width":1920,"height":1080,"logicalDpi":96,)"
        << R"("logicalBaseDpi":96,"dpr":1}]})";
    if (std::getenv("DISPLAY") == nullptr)
        setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screen).c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);

    RunOnce(minimal, nullptr); // libraries into the cache for both
    RunOnce(program, nullptr);
    const RunFacts floor = Median(minimal, nullptr, rounds);
    const RunFacts large = Median(minimal, "screen", rounds);
    const RunFacts console = Median(program, nullptr, rounds);
    const RunFacts editor = Median(program, "schedule", rounds);
    std::printf("%-44s %13s %13s %8s\n", "medians", "work", "floor", "ratio");
    Print("start to a painted console", "ms", console.seconds * 1000, floor.seconds * 1000);
    // The picture of a window as large as the screen is 8 MB by itself, whoever paints it.
    Print("peak memory with 300 people loaded", "MB", editor.megabytes, large.megabytes);
    Print("the same beside a small window", "MB", editor.megabytes, floor.megabytes);
    return 0;
}
