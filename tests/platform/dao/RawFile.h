// A database file worked on behind the engine's back: states that no caller of the engine can make.
#pragma once

#include <filesystem>
#include <string>

namespace tvx::test {

/// Runs statements on a file that nobody has open; makes the file when it is missing. Throws
/// std::runtime_error.
void RunSql(const std::filesystem::path& path, const std::string& sql);

/// The first column of the first row of an answer; "" when there is none.
std::string AskSql(const std::filesystem::path& path, const std::string& sql);

} // namespace tvx::test
