// One open SQLite file: statements prepared once and kept, result codes turned into the engine's numbers.
// Private to this folder.
#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/FieldType.h"
#include "platform/dao/Value.h"

#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tvx::dao {

/// A use of a kept statement: values are bound on construction, the statement is reset when the use ends, so
/// that no lock outlives it.
class StatementUse {
  public:
    explicit StatementUse(sqlite3_stmt* statement) : statement_(statement) {}
    ~StatementUse();
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;

    void Bind(int parameter, const Value& value); // parameters count from 1
    /// True while there is a row. Throws DaoError.
    bool Step();
    sqlite3_stmt* Handle() const { return statement_; }

  private:
    sqlite3_stmt* statement_;
};

/// The value of a result column, read as the kind of its field.
Value ColumnValue(sqlite3_stmt* statement, int column, FieldType type);

class Connection {
  public:
    Connection(const std::filesystem::path& path, const EngineOptions& options);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Closes the file; an open transaction is rolled back. Every later use throws DaoError 3420.
    void Close();

    /// Makes an empty database file. Throws DaoError 3051 and leaves nothing when it cannot be made.
    static void MakeFile(const std::filesystem::path& path);

    /// A statement for this text that nobody is reading from, prepared on first use. Throws DaoError.
    sqlite3_stmt* Prepared(const std::string& sql);
    void Execute(const std::string& sql);
    sqlite3* Handle() const;

    /// The table as the file declares it, without regard to case. Throws DaoError 3078.
    const TableDef& Table(std::string_view name);
    std::vector<std::string> TableNames();
    /// After the file's tables were changed.
    void ForgetTables();

    [[noreturn]] static void Fail(sqlite3* handle, int code);

  private:
    void SetUp(const EngineOptions& options);
    TableDef ReadTable(const std::string& name);

    sqlite3* handle_ = nullptr;
    std::unordered_multimap<std::string, sqlite3_stmt*> statements_; // several where uses are nested
    std::map<std::string, TableDef> tables_;                         // by name in capitals
};

} // namespace tvx::dao
