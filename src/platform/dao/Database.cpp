#include "platform/dao/Database.h"

#include "platform/dao/Connection.h"
#include "platform/dao/DaoError.h"
#include "platform/dao/Recordset.h"

#include <system_error>

namespace fs = std::filesystem;

namespace tvx::dao {
namespace {

constexpr int AlreadyExists = 3204;

void RefuseExisting(const fs::path& path) {
    std::error_code code;
    if (fs::exists(path, code))
        throw DaoError(AlreadyExists, "Database already exists: '" + path.string() + "'.");
}

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c);
    return quoted + "'";
}

/// Several statements that happen all or not at all, inside a transaction as well as outside.
class Step {
  public:
    explicit Step(Connection& connection) : connection_(connection) { connection_.Execute("SAVEPOINT step"); }
    ~Step() {
        if (kept_) return;
        try {
            connection_.Execute("ROLLBACK TO step");
            connection_.Execute("RELEASE step");
        } catch (const DaoError&) {
            return; // the engine has undone everything by itself
        }
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    void Keep() {
        connection_.Execute("RELEASE step");
        kept_ = true;
    }

  private:
    Connection& connection_;
    bool kept_ = false;
};

} // namespace

bool ScanRow::IsNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}
std::int64_t ScanRow::Long(int column) const {
    return sqlite3_column_int64(statement_, column);
}
int ScanRow::Int(int column) const {
    return Narrowed(Long(column));
}
double ScanRow::Double(int column) const {
    return sqlite3_column_double(statement_, column);
}

std::string_view ScanRow::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

Database::Database(const fs::path& path, const EngineOptions& options)
    : path_(path), connection_(std::make_shared<Connection>(path, options)) {}

Database::~Database() {
    connection_->Close();
}

Recordset Database::OpenRecordset(const std::string& tableOrSql, const std::vector<Value>& parameters) {
    return {connection_, tableOrSql, parameters};
}

// Immediate: a transaction that begins by reading and turns to writing would be refused at once when another
// workstation did the same.
void Database::BeginTrans() {
    connection_->Execute("BEGIN IMMEDIATE");
}

void Database::CommitTrans() {
    connection_->Execute("COMMIT");
}

void Database::Rollback() {
    if (!InTransaction()) return;
    connection_->Execute("ROLLBACK");
    connection_->ForgetTables(); // those that the transaction made or changed are as before
}

bool Database::InTransaction() const {
    return sqlite3_get_autocommit(connection_->Handle()) == 0;
}

std::vector<std::string> Database::TableNames() const {
    return connection_->TableNames();
}

const TableDef& Database::Table(std::string_view name) const {
    return connection_->Table(name);
}

bool Database::HasTable(std::string_view name) const {
    try {
        connection_->Table(name);
        return true;
    } catch (const DaoError& trouble) {
        if (trouble.Number() == error::TableNotFound) return false;
        throw;
    }
}

void Database::CreateTable(const TableDef& table) {
    const std::vector<std::string> statements = CreateStatements(table);
    Step step(*connection_);
    for (const std::string& statement : statements) connection_->Execute(statement);
    step.Keep();
    connection_->ForgetTables();
}

void Database::AppendField(std::string_view table, const FieldDef& field) {
    const TableDef& present = connection_->Table(table);
    if (present.PositionOf(field.name) >= 0)
        throw DaoError(error::FieldExists, "Cannot define field '" + field.name + "' more than once.");
    std::string sql = "ALTER TABLE " + Bracketed(present.name) + " ADD COLUMN " + Bracketed(field.name) +
                      " " + DeclaredType(field);
    if (field.type == FieldType::Boolean) sql += " NOT NULL DEFAULT 0";
    if (field.type == FieldType::Text) sql += " COLLATE NOCASE";
    connection_->Execute(sql);
    connection_->ForgetTables();
}

void Database::Scan(const std::string& sql, const std::vector<Value>& parameters,
                    const std::function<void(const ScanRow&)>& row) const {
    StatementUse use(*connection_, sql, parameters);
    const ScanRow present(use.Handle());
    while (use.Step()) row(present);
}

Transaction::Transaction(Database& database) : database_(database) {
    database_.BeginTrans();
}

Transaction::~Transaction() {
    if (!open_) return;
    try {
        database_.Rollback();
    } catch (const DaoError&) {
        // The engine has rolled back by itself, or does so when the file is opened next.
        return;
    }
}

void Transaction::Commit() {
    database_.CommitTrans();
    open_ = false;
}

Snapshot::Snapshot(const Database& database) : connection_(database.connection_) {
    begun_ = !database.InTransaction();
    if (begun_) connection_->Execute("BEGIN");
}

Snapshot::~Snapshot() {
    if (!begun_) return;
    try {
        connection_->Execute("COMMIT");
    } catch (const DaoError&) {
        return; // a read that ends badly has nothing to lose
    }
}

std::unique_ptr<Database> Engine::OpenDatabase(const fs::path& path) const {
    try {
        return std::make_unique<Database>(path, options_);
    } catch (const DaoError& trouble) {
        if (trouble.Number() != error::CouldNotLock) throw;
        throw DaoError(error::FileInUse, trouble.what());
    }
}

std::unique_ptr<Database> Engine::CreateDatabase(const fs::path& path) const {
    RefuseExisting(path);
    Connection::MakeFile(path);
    return OpenDatabase(path);
}

void Engine::CompactDatabase(const fs::path& source, const fs::path& target) const {
    RefuseExisting(target);
    Connection connection(source, options_);
    try {
        connection.Execute("VACUUM INTO " + Quoted(target.string()));
    } catch (const DaoError&) {
        std::error_code ignored;
        fs::remove(target, ignored); // a part of a copy
        throw;
    }
}

void Engine::RepairDatabase(const fs::path& path) const {
    Connection connection(path, options_);
    connection.Execute("REINDEX");
    StatementUse check(connection, "PRAGMA quick_check(1)");
    const bool sound =
        check.Step() && Value(std::string("ok")) == ColumnValue(check.Handle(), 0, FieldType::Memo);
    if (!sound)
        throw DaoError(error::UnrecognisedFormat, "The database is damaged: '" + path.string() + "'.");
}

} // namespace tvx::dao
