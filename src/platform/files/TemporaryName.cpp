#include "platform/files/TemporaryName.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <functional>
#include <optional>
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
constexpr std::string_view Journal = "-journal";

std::string Host() {
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) != 0) return "unknown";
    return name.data();
}

/// The whole number that a text is; nothing when it is anything else.
std::optional<int> NumberOf(std::string_view text) {
    int number = 0;
    const auto [end, trouble] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = !text.empty() && trouble == std::errc() && end == text.data() + text.size();
    return whole && number >= 0 ? std::optional(number) : std::nullopt;
}

/// Cuts what stands behind the last `mark` off a name, and the mark, and returns it; "" when there is none.
std::string_view CutOffBehind(std::string_view& name, char mark) {
    const std::size_t at = name.rfind(mark);
    if (at == std::string_view::npos) return {};
    const std::string_view behind = name.substr(at + 1);
    name = name.substr(0, at);
    return behind;
}

/// A name without the ending of a temporary file, or of the engine's journal of one; nothing for other names.
std::optional<std::string_view> WithoutEnd(std::string_view name) {
    if (name.ends_with(Journal)) name.remove_suffix(Journal.size());
    if (!name.ends_with(End)) return std::nullopt;
    name.remove_suffix(End.size());
    return name;
}

bool IsOlderThanADay(const fs::path& path) {
    std::error_code unknown;
    const auto written = fs::last_write_time(path, unknown);
    return !unknown && fs::file_time_type::clock::now() - written > std::chrono::hours(24);
}

bool IsPlain(const fs::path& path) {
    std::error_code unknown;
    return fs::is_regular_file(fs::symlink_status(path, unknown));
}

/// Whether a killed run left this file, whose name begins so.
bool IsLeft(const fs::path& path, std::string_view begin) {
    const std::string whole = path.filename();
    auto name = WithoutEnd(whole);
    if (!name || !name->starts_with(begin) || !IsPlain(path)) return false;
    const bool random = NumberOf(CutOffBehind(*name, '-')).has_value();
    const auto process = NumberOf(CutOffBehind(*name, '-'));
    if (!random || !process) return false;
    const bool gone = name->ends_with("." + Host()) && kill(*process, 0) != 0 && errno == ESRCH;
    return gone || IsOlderThanADay(path);
}

/// The same for the names that older versions gave: the file's, a number and the ending.
bool IsLeftByOlder(const fs::path& path, std::string_view begin) {
    const std::string whole = path.filename();
    const auto name = WithoutEnd(whole);
    if (!name || !name->starts_with(begin) || !IsPlain(path)) return false;
    const std::string_view number = name->substr(begin.size());
    return !number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos &&
           IsOlderThanADay(path);
}

void ClearWhere(const fs::path& folder, const std::function<bool(const fs::path&)>& left) {
    std::error_code ignored;
    std::vector<fs::path> cleared;
    for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end;
         entry.increment(ignored))
        if (left(entry->path())) cleared.push_back(entry->path());
    for (const fs::path& each : cleared) fs::remove(each, ignored);
}

} // namespace

fs::path TemporaryBeside(const fs::path& file) {
    std::random_device random;
    const std::string number = std::to_string(random() % 1'000'000'000);
    return file.string() + "." + Host() + "-" + std::to_string(getpid()) + "-" + number + std::string(End);
}

void ClearTemporariesBeside(const fs::path& file) {
    const std::string begin = file.filename().string() + ".";
    ClearWhere(file.parent_path(),
               [&](const fs::path& each) { return IsLeft(each, begin) || IsLeftByOlder(each, begin); });
}

void ClearTemporariesIn(const fs::path& folder) {
    ClearWhere(folder, [](const fs::path& each) { return IsLeft(each, ""); });
}

} // namespace tvx
