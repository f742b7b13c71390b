// A session with its statements kept for their next use and its tables known. Private to this folder.
#pragma once

#include "platform/dao/FieldType.h"
#include "platform/dao/Session.h"
#include "platform/dao/Value.h"

#include <cstdint>
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
    std::unique_ptr<Statement> statement;
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

    void Bind(int parameter, const Value& value) { statement_.Bind(parameter, value); } // they count from 1
    /// True while there is a row. Throws DaoError.
    bool Step() { return statement_.Step(); }
    const Statement& Row() const { return statement_; }

  private:
    void BindAll(const std::vector<Value>& values);
    Connection& connection_;
    KeptStatements::node_type node_;
    Statement& statement_;
};

/// The value of a result column, read as the kind of its field.
Value ColumnValue(const Statement& row, int column, FieldType type);

class Connection {
  public:
    explicit Connection(std::unique_ptr<Session> session);

    /// Closes the session; an open transaction is rolled back. Every later use throws DaoError 3420.
    void Close();
    /// Throws DaoError 3420 when it is closed.
    Session& OpenSession() const;

    /// A statement for this text of the system's SQL out of the kept ones, or a new one. Throws DaoError.
    KeptStatements::node_type Take(const std::string& sql);
    /// Keeps a statement for the next use; of more than 64 the one that was not needed for longest goes.
    void GiveBack(KeptStatements::node_type node);
    std::size_t KeptCount() const { return statements_.size(); }

    /// Runs a text of the system's SQL once.
    void Execute(const std::string& sql);

    /// The table as the file declares it, without regard to case. Throws DaoError 3078.
    const TableDef& Table(std::string_view name);
    /// After the file's tables were changed.
    void ForgetTables();

  private:
    std::unique_ptr<Session> session_;
    KeptStatements statements_;
    std::uint64_t uses_ = 0;
    std::map<std::string, TableDef> tables_; // by name in capitals
};

} // namespace tvx::dao
