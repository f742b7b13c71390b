#include "platform/dao/SqliteStatement.h"

#include "platform/dao/DaoError.h"

namespace tvx::dao {
namespace {

struct CodeMapping {
    int code; // primary result code of SQLite
    int number;
};

constexpr CodeMapping Mappings[] = {
    {SQLITE_BUSY, error::CouldNotLock},         {SQLITE_LOCKED, error::CouldNotLock},
    {SQLITE_READONLY, error::ReadOnly},         {SQLITE_CANTOPEN, error::CannotOpen},
    {SQLITE_PERM, error::CannotOpen},           {SQLITE_AUTH, error::CannotOpen},
    {SQLITE_NOTADB, error::UnrecognisedFormat}, {SQLITE_CORRUPT, error::UnrecognisedFormat},
    {SQLITE_FORMAT, error::UnrecognisedFormat}, {SQLITE_FULL, error::DiskFull},
    {SQLITE_IOERR, error::DiskError},           {SQLITE_CONSTRAINT, error::DuplicateKey},
    {SQLITE_NOMEM, error::NotEnoughMemory},     {SQLITE_TOOBIG, error::FieldTooSmall},
};

int NumberOf(int code, std::string_view text) {
    for (const CodeMapping& mapping : Mappings)
        if (mapping.code == (code & 0xFF)) return mapping.number;
    if (text.find("no such table") != std::string_view::npos) return error::TableNotFound;
    if (text.find("no such column") != std::string_view::npos) return error::ItemNotFound;
    if (text.find("duplicate column name") != std::string_view::npos) return error::FieldExists;
    return (code & 0xFF) == SQLITE_ERROR ? error::SyntaxError : error::InternalError;
}

} // namespace

void FailSqlite(sqlite3* handle, int code) {
    const std::string text = handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
    throw DaoError(NumberOf(code, text), text);
}

SqliteStatement::SqliteStatement(sqlite3* handle, const std::string& sql)
    : statement_(nullptr, sqlite3_finalize) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(handle, sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK) FailSqlite(handle, code);
    if (statement == nullptr) throw DaoError(error::SyntaxError, "Syntax error in query.");
    statement_.reset(statement);
}

std::size_t SqliteStatement::ParameterCount() const {
    return static_cast<std::size_t>(sqlite3_bind_parameter_count(statement_.get()));
}

void SqliteStatement::Bind(int parameter, const Value& value) {
    sqlite3_stmt* statement = statement_.get();
    int code = SQLITE_OK;
    if (IsNull(value))
        code = sqlite3_bind_null(statement, parameter);
    else if (const auto* whole = std::get_if<std::int64_t>(&value))
        code = sqlite3_bind_int64(statement, parameter, *whole);
    else if (const auto* real = std::get_if<double>(&value))
        code = sqlite3_bind_double(statement, parameter, *real);
    else {
        const std::string& text = std::get<std::string>(value);
        code = sqlite3_bind_text64(statement, parameter, text.data(), text.size(), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    }
    if (code != SQLITE_OK) FailSqlite(sqlite3_db_handle(statement), code);
}

bool SqliteStatement::Step() {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    FailSqlite(sqlite3_db_handle(statement_.get()), code);
}

void SqliteStatement::Reset() noexcept {
    sqlite3_reset(statement_.get());
    sqlite3_clear_bindings(statement_.get());
}

int SqliteStatement::ColumnCount() const {
    return sqlite3_column_count(statement_.get());
}

std::string SqliteStatement::ColumnName(int column) const {
    const char* name = sqlite3_column_name(statement_.get(), column);
    return name != nullptr ? name : "";
}

ColumnKind SqliteStatement::Kind(int column) const {
    switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_NULL:
        return ColumnKind::Nothing;
    case SQLITE_INTEGER:
        return ColumnKind::Whole;
    case SQLITE_FLOAT:
        return ColumnKind::Real;
    default:
        return ColumnKind::Text;
    }
}

std::int64_t SqliteStatement::Whole(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

double SqliteStatement::Real(int column) const {
    return sqlite3_column_double(statement_.get(), column);
}

std::string_view SqliteStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

} // namespace tvx::dao
