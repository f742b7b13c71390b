// One open SQLite file: statements prepared once and kept, result codes turned into the engine's numbers.
// Private to this folder.
#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/FieldType.h"
#include "platform/dao/Value.h"

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tvx::dao {

class Connection;

/// A statement and when it was last needed.
struct KeptStatement {
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement;
    std::uint64_t lastUse = 0;
};

/// By text; several where uses of one text are nested.
using KeptStatements = std::unordered_multimap<std::string, KeptStatement>;

/// Throws DaoError 3061 when the marks of a text are not as many as the values given for them.
void RequireParameters(std::size_t expected, std::size_t given);

/// A use of a statement, which is out of the connection's keeping meanwhile and goes back when the use ends,
/// reset, so that no lock outlives it. Throws DaoError.
class StatementUse {
  public:
    StatementUse(Connection& connection, const std::string& sql);
    /// With values for all its marks, in order. Throws DaoError 3061 when they are more or fewer.
    StatementUse(Connection& connection, const std::string& sql, const std::vector<Value>& values);
    ~StatementUse();
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;

    void Bind(int parameter, const Value& value); // parameters count from 1
    /// True while there is a row. Throws DaoError.
    bool Step();
    sqlite3_stmt* Handle() const { return node_.mapped().statement.get(); }

  private:
    void BindAll(const std::vector<Value>& values);
    Connection& connection_;
    KeptStatements::node_type node_;
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

    /// A statement for this text out of the kept ones, or a new one. Throws DaoError.
    KeptStatements::node_type Take(const std::string& sql);
    /// Keeps a statement for the next use; of more than 64 the one that was not needed for longest goes.
    void GiveBack(KeptStatements::node_type node);
    std::size_t KeptCount() const { return statements_.size(); }
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
    KeptStatements statements_;
    std::uint64_t uses_ = 0;
    std::map<std::string, TableDef> tables_; // by name in capitals
};

} // namespace tvx::dao
