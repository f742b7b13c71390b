// Another workstation on the same database, in a process of its own.
#pragma once

#include "support/ChildProcess.h"

#include <filesystem>
#include <string>

namespace tvx::test {

/// Does what the test says, one thing at a time. Make it before the test opens its database.
class OtherWorkstation {
  public:
    OtherWorkstation();

    /// Opens the file there.
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
    void Tell(const std::string& words);

    ChildProcess process_;
};

} // namespace tvx::test
