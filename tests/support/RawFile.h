// A database file as any other program may have left it: statements and values that the program itself would
// refuse to write, and a look at the rows through a connection of its own.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

struct sqlite3;

namespace tvx::test {

/// Bytes that stand in a field as they are.
struct Blob {
    std::string bytes;
};
using RawValue = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;

class RawFile {
  public:
    /// Opens the file, or makes an empty one.
    explicit RawFile(const std::filesystem::path& path);
    ~RawFile();
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;

    /// Runs one statement; "?" stand for the values in order. Throws std::runtime_error.
    void Run(const std::string& sql, const std::vector<RawValue>& values = {});
    /// The rows of a select, fields parted by "|", Null as "NULL", a blob as x'41'.
    std::vector<std::string> Rows(const std::string& sql, const std::vector<RawValue>& values = {});
    /// "ok", or what the engine finds wrong with the file.
    std::string Integrity();

  private:
    sqlite3* handle_ = nullptr;
};

/// Runs statements, any number, on a file through a connection that is closed at once; makes the file when it
/// is missing, and sets nothing up that a damaged one could refuse. Throws std::runtime_error.
void RunSql(const std::filesystem::path& path, const std::string& sql);

/// The first column of the first row of the answer; "" when there is none.
std::string AskSql(const std::filesystem::path& path, const std::string& sql);

} // namespace tvx::test
