#include "platform/dao/Database.h"

#include "platform/dao/Connection.h"
#include "platform/dao/DaoError.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/SqliteSession.h"

#include <system_error>

namespace fs = std::filesystem;

namespace tvx::dao {
namespace {

void RefuseExisting(const fs::path& path) {
    std::error_code code;
    if (fs::exists(path, code))
        throw DaoError(error::AlreadyExists, "Database already exists: '" + path.string() + "'.",
                       path.string());
}

/// Several statements that happen all or not at all, inside a transaction as well as outside.
class Step {
  public:
    explicit Step(Session& session) : session_(session) { session_.BeginPart(); }
    ~Step() {
        if (kept_) return;
        try {
            session_.UndoPart();
        } catch (const DaoError&) {
            return; // the engine has undone everything by itself
        }
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    void Keep() {
        session_.KeepPart();
        kept_ = true;
    }

  private:
    Session& session_;
    bool kept_ = false;
};

/// False also when that cannot be told.
bool IsTrue(const std::function<bool()>& question) {
    try {
        return question();
    } catch (const DaoError&) {
        return false;
    }
}

} // namespace

bool ScanRow::IsNull(int column) const {
    return statement_.Kind(column) == ColumnKind::Nothing;
}
std::int64_t ScanRow::Long(int column) const {
    return statement_.Whole(column);
}
int ScanRow::Int(int column) const {
    return Narrowed(Long(column));
}
double ScanRow::Double(int column) const {
    return statement_.Real(column);
}

std::string_view ScanRow::Text(int column) const {
    return statement_.Text(column);
}

Database::Database(const fs::path& path, std::unique_ptr<Session> session)
    : path_(path), connection_(std::make_shared<Connection>(std::move(session))) {}

Database::~Database() {
    connection_->Close();
}

Recordset Database::OpenRecordset(const std::string& tableOrSql, const std::vector<Value>& parameters) {
    return {connection_, tableOrSql, parameters};
}

void Database::BeginTrans() {
    connection_->OpenSession().Begin(Access::Write);
}

void Database::CommitTrans() {
    connection_->OpenSession().Commit();
}

void Database::Rollback() {
    if (!InTransaction()) return;
    connection_->OpenSession().Rollback();
    connection_->ForgetTables(); // those that the transaction made or changed are as before
}

bool Database::InTransaction() const {
    return connection_->OpenSession().InTransaction();
}

std::vector<std::string> Database::TableNames() const {
    return connection_->OpenSession().TableNames();
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
    Session& session = connection_->OpenSession();
    const std::vector<std::string> statements = CreateStatements(table, session.Words());
    Step step(session);
    for (const std::string& statement : statements) connection_->Execute(statement);
    step.Keep();
    connection_->ForgetTables();
}

void Database::AppendField(std::string_view table, const FieldDef& field) {
    const TableDef& present = connection_->Table(table);
    if (present.PositionOf(field.name) >= 0)
        throw DaoError(error::FieldExists, "Cannot define field '" + field.name + "' more than once.");
    connection_->Execute(AddFieldStatement(present, field, connection_->OpenSession().Words()));
    connection_->ForgetTables();
}

void Database::RequireWholeFile() const {
    const Snapshot snapshot(*this); // nobody writes meanwhile
    if (connection_->OpenSession().IsCutOff())
        throw DaoError(error::UnrecognisedFormat, "The database file is cut off.");
}

void Database::Scan(const std::string& sql, const std::vector<Value>& parameters,
                    const std::function<void(const ScanRow&)>& row) const {
    StatementUse use(*connection_, sql, parameters);
    const ScanRow present(use.Row());
    while (use.Step()) row(present);
}

std::int64_t Database::Execute(const std::string& sql, const std::vector<Value>& parameters) {
    StatementUse use(*connection_, sql, parameters);
    while (use.Step()) continue;
    return connection_->OpenSession().Changes();
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
    Commit([] { return false; });
}

void Transaction::Commit(const std::function<bool()>& stands) {
    try {
        database_.CommitTrans();
        open_ = false;
    } catch (const DaoError&) {
        open_ = database_.InTransaction();
        if (open_ || !IsTrue(stands)) throw;
    }
}

Snapshot::Snapshot(const Database& database) : connection_(database.connection_) {
    begun_ = !database.InTransaction();
    if (begun_) connection_->OpenSession().Begin(Access::Read);
}

Snapshot::~Snapshot() {
    if (!begun_) return;
    try {
        connection_->OpenSession().Rollback();
    } catch (const DaoError&) {
        return; // a read that ends badly has nothing to lose
    }
}

Engine::Engine(EngineOptions options) : Engine(options, OpenSqliteSession) {}

Engine::Engine(EngineOptions options, SessionFactory sessions)
    : options_(options), sessions_(std::move(sessions)) {}

std::unique_ptr<Database> Engine::Open(const fs::path& path, FileMode mode) const {
    try {
        return std::make_unique<Database>(path, sessions_(path, options_, mode));
    } catch (const DaoError& trouble) {
        if (trouble.Number() != error::CouldNotLock) throw;
        throw DaoError(error::FileInUse, trouble.what(), path.string());
    }
}

std::unique_ptr<Database> Engine::OpenDatabase(const fs::path& path) const {
    return Open(path, FileMode::Existing);
}

std::unique_ptr<Database> Engine::CreateDatabase(const fs::path& path) const {
    RefuseExisting(path);
    return Open(path, FileMode::New);
}

void Engine::CompactDatabase(const fs::path& source, const fs::path& target) const {
    RefuseExisting(target);
    const std::unique_ptr<Session> session = sessions_(source, options_, FileMode::Existing);
    try {
        session->CopyTo(target);
    } catch (const DaoError&) {
        std::error_code ignored;
        fs::remove(target, ignored); // a part of a copy
        throw;
    }
}

void Engine::RepairDatabase(const fs::path& path) const {
    const std::unique_ptr<Session> session = sessions_(path, options_, FileMode::Existing);
    session->RebuildIndexes();
    if (!session->IsSound())
        throw DaoError(error::UnrecognisedFormat, "The database is damaged: '" + path.string() + "'.",
                       path.string());
}

} // namespace tvx::dao
