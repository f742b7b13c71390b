#include "platform/files/TemporaryName.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace tvx {
namespace {

constexpr std::string_view End = ".tmp";

std::string Host() {
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) != 0) return "unknown";
    return name.data();
}

/// Takes a number off the end of a name, with the "-" before it; 0 when there is none.
int TakeNumber(std::string_view& name) {
    const std::size_t dash = name.rfind('-');
    if (dash == std::string_view::npos) return 0;
    int number = 0;
    std::from_chars(name.data() + dash + 1, name.data() + name.size(), number);
    name = name.substr(0, dash);
    return number;
}

/// `name` is what stands between the file's name and ".tmp".
bool IsOfProcessThatIsGone(std::string_view name) {
    TakeNumber(name); // the random one
    const int process = TakeNumber(name);
    return process > 0 && name == Host() && kill(process, 0) != 0 && errno == ESRCH;
}

bool IsOlderThanADay(const fs::path& path) {
    std::error_code unknown;
    const auto written = fs::last_write_time(path, unknown);
    return !unknown && fs::file_time_type::clock::now() - written > std::chrono::hours(24);
}

bool IsLeft(const fs::path& path, const std::string& fileName) {
    const std::string name = path.filename();
    const std::string begin = fileName + ".";
    const std::size_t end = name.rfind(End);
    if (!name.starts_with(begin) || end == std::string::npos || end < begin.size()) return false;
    const std::string behind = name.substr(end + End.size());
    if (!behind.empty() && behind != "-journal") return false;
    const std::string_view middle = std::string_view(name).substr(begin.size(), end - begin.size());
    return IsOfProcessThatIsGone(middle) || IsOlderThanADay(path);
}

} // namespace

fs::path TemporaryBeside(const fs::path& file) {
    std::random_device random;
    const std::string number = std::to_string(random() % 1'000'000'000);
    return file.string() + "." + Host() + "-" + std::to_string(getpid()) + "-" + number + std::string(End);
}

void ClearTemporariesBeside(const fs::path& file) {
    std::error_code ignored;
    const std::string name = file.filename();
    std::vector<fs::path> left;
    for (fs::directory_iterator entry(file.parent_path(), ignored), end; !ignored && entry != end;
         entry.increment(ignored))
        if (IsLeft(entry->path(), name)) left.push_back(entry->path());
    for (const fs::path& each : left) fs::remove(each, ignored);
}

} // namespace tvx
