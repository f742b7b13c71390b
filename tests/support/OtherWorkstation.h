// Another workstation on the same database, in a process of its own.
#pragma once

#include "support/ChildProcess.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tvx::test {

/// Does what the test says, one thing at a time. Its process starts with the first work, so that a test that
/// needs none pays nothing; it shares nothing with the test, whose database may be open by then.
class OtherWorkstation {
  public:
    /// The file to work on; it is opened there when the first work is done.
    void Open(const std::filesystem::path& database);
    /// Begins a save and does not end it: the file is locked for every other writer.
    void Hold();
    /// Ends that save.
    void LetGo();
    /// Writes one field of the row in which `where` holds `is`.
    void Change(const std::string& table, const std::string& where, const std::string& is,
                const std::string& field, const std::string& value);
    /// Deletes the row in which `where` holds `is`.
    void Delete(const std::string& table, const std::string& where, const std::string& is);

  private:
    void Work(const std::string& words);
    void Tell(const std::string& words);

    std::optional<ChildProcess> process_;
    std::filesystem::path database_;
    bool open_ = false;
};

} // namespace tvx::test
