// A prepared statement of SQLite, and the numbers of its troubles. Private to the session on SQLite.
#pragma once

#include "platform/dao/Session.h"

#include <sqlite3.h>

#include <memory>
#include <string>

namespace tvx::dao {

/// Throws DaoError with the number that the system knows a result code of SQLite by.
[[noreturn]] void FailSqlite(sqlite3* handle, int code);

class SqliteStatement final : public Statement {
  public:
    /// Throws DaoError; 3075 also for a text that holds no statement.
    SqliteStatement(sqlite3* handle, const std::string& sql);

    std::size_t ParameterCount() const override;
    void Bind(int parameter, const Value& value) override;
    bool Step() override;
    void Reset() noexcept override;

    int ColumnCount() const override;
    std::string ColumnName(int column) const override;
    ColumnKind Kind(int column) const override;
    std::int64_t Whole(int column) const override;
    double Real(int column) const override;
    std::string_view Text(int column) const override;

  private:
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_;
};

} // namespace tvx::dao
