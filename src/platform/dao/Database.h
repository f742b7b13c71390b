// The file database: opening a file, transactions, table definitions, scans.
#pragma once

#include "platform/dao/FieldType.h"
#include "platform/dao/Session.h"
#include "platform/dao/Value.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::dao {

class Connection;
class Recordset;

/// One row of a scan, valid until the next row is read. Columns count from 0.
class ScanRow {
  public:
    explicit ScanRow(const Statement& statement) : statement_(statement) {}
    bool IsNull(int column) const;
    std::int64_t Long(int column) const;     // Null gives 0
    int Int(int column) const;               // Null gives 0; DaoError 3349 when out of the range of int
    double Double(int column) const;         // Null gives 0
    std::string_view Text(int column) const; // Null gives ""; time texts as the file holds them

  private:
    const Statement& statement_;
};

/// An open database file. Several workstations may have the file open at once; only a transaction locks it.
class Database {
  public:
    /// The session is open on the file of that path.
    Database(const std::filesystem::path& path, std::unique_ptr<Session> session);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    /// Opens a table by name, or the rows of a select, in which "?" stand for `parameters` in order: numbers
    /// and texts are never written into it. A non-empty set stands on its first record. Throws DaoError 3078
    /// (no such table), 3265 (no such field), 3075 (not understood), or 3061 (more or fewer parameters).
    Recordset OpenRecordset(const std::string& tableOrSql, const std::vector<Value>& parameters = {});

    /// Takes the one write lock of the file, after waiting for another workstation for a bounded time.
    /// Throws DaoError 3260 when it stays locked.
    void BeginTrans();
    /// Makes the changes lasting. On a throw the transaction is still open, unless the engine itself had to
    /// roll it back.
    void CommitTrans();
    /// Undoes the changes since BeginTrans; nothing when there is no transaction.
    void Rollback();
    bool InTransaction() const;

    std::vector<std::string> TableNames() const;
    /// The table as the file declares it; valid until a table is made or changed, or a transaction rolled
    /// back. Throws DaoError 3078.
    const TableDef& Table(std::string_view name) const;
    bool HasTable(std::string_view name) const;
    /// Makes a table and its indexes, or throws DaoError and makes nothing.
    void CreateTable(const TableDef& table);
    /// Adds a field behind the last. Throws DaoError 3191 when the table has it.
    void AppendField(std::string_view table, const FieldDef& field);

    /// Throws DaoError 3343 when the end of the file is cut off, which opening alone does not show.
    void RequireWholeFile() const;

    /// Reads the rows of a select whole, one call of `row` each; nothing is locked when it returns.
    /// "?" in the text stand for `parameters` in order. Throws DaoError like OpenRecordset.
    void Scan(const std::string& sql, const std::vector<Value>& parameters,
              const std::function<void(const ScanRow&)>& row) const;

    /// Runs one statement that changes rows, whole or not at all, in the transaction if one is open. "?" in
    /// the text stand for `parameters` in order. Returns how many rows it changed. Throws DaoError like Scan.
    std::int64_t Execute(const std::string& sql, const std::vector<Value>& parameters);

  private:
    friend class Snapshot;
    std::filesystem::path path_;
    std::shared_ptr<Connection> connection_;
};

/// A transaction that is rolled back unless it was committed.
class Transaction {
  public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();
    /// The same. When the engine refuses and the transaction is over, `stands` reads the rows again: true
    /// tells that they are stored as they were written, and the commit counts. Trouble of that reading counts
    /// as false.
    void Commit(const std::function<bool()>& stands);

  private:
    Database& database_;
    bool open_ = true;
};

/// While it lives, every read sees the same state of the file, and a read costs no lock of its own. Inside a
/// transaction it adds nothing.
class Snapshot {
  public:
    explicit Snapshot(const Database& database);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

  private:
    std::shared_ptr<Connection> connection_;
    bool begun_ = false;
};

/// Makes and keeps whole database files.
class Engine {
  public:
    /// Of the kind that keeps its files.
    explicit Engine(EngineOptions options = {});
    /// Of another kind, or with something between it and the files.
    Engine(EngineOptions options, SessionFactory sessions);

    /// Opens an existing file for reading and writing. Throws DaoError: 3024 no such file, 3051 the file
    /// cannot be opened or not be written, 3343 it is no database or a damaged one, 3045 it is held.
    std::unique_ptr<Database> OpenDatabase(const std::filesystem::path& path) const;
    /// Makes an empty file and opens it. Throws DaoError 3204 when the file exists.
    std::unique_ptr<Database> CreateDatabase(const std::filesystem::path& path) const;
    /// Writes a compact copy of a file that nobody writes to meanwhile. `target` must not exist (3204); on a
    /// throw there is none.
    void CompactDatabase(const std::filesystem::path& source, const std::filesystem::path& target) const;
    /// Rebuilds the indexes of a file. Throws DaoError 3343 when its pages themselves are damaged.
    void RepairDatabase(const std::filesystem::path& path) const;

  private:
    std::unique_ptr<Database> Open(const std::filesystem::path& path, FileMode mode) const;
    EngineOptions options_;
    SessionFactory sessions_;
};

} // namespace tvx::dao
