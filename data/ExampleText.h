// Reads the example department from its text files and writes it into a new database.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace tvx {

/// A line that cannot be read; the text names the file and the line.
class ExampleError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Makes the database `target` from the text files of `folder`. Throws ExampleError or dao::DaoError; an
/// existing target is an error.
void MakeExampleDatabase(const std::filesystem::path& folder, const std::filesystem::path& target);

/// Writes the stored shifts of the example department beside its database, as "1.SFT" of `programFolder`.
void MakeExampleShifts(const std::filesystem::path& folder, const std::filesystem::path& programFolder);

} // namespace tvx
