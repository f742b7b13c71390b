// What the file database asks of an engine: prepared statements, transactions, tables. SQLite is one.
#pragma once

#include "platform/dao/Dialect.h"
#include "platform/dao/FieldType.h"
#include "platform/dao/Value.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::dao {

struct EngineOptions {
    int busyMilliseconds = 2000;          // how long a lock of another workstation is waited for
    bool reverseUnorderedSelects = false; // for tests: answers rows without a stated order backwards
};

enum class ColumnKind { Nothing, Whole, Real, Text };

/// A prepared text. Whatever fails throws DaoError with the number that the system knows the trouble by.
class Statement {
  public:
    virtual ~Statement() = default;

    virtual std::size_t ParameterCount() const = 0;
    virtual void Bind(int parameter, const Value& value) = 0; // parameters count from 1
    /// True while there is a row, which stays readable until the next step.
    virtual bool Step() = 0;
    /// Ends the reading, lets go of its locks and forgets the values.
    virtual void Reset() noexcept = 0;

    virtual int ColumnCount() const = 0; // columns count from 0
    virtual std::string ColumnName(int column) const = 0;
    virtual ColumnKind Kind(int column) const = 0;
    virtual std::int64_t Whole(int column) const = 0;    // Null gives 0
    virtual double Real(int column) const = 0;           // Null gives 0
    virtual std::string_view Text(int column) const = 0; // Null gives ""
};

enum class Access { Read, Write };

/// An open file, or a connection to a server; it is closed, and an open transaction rolled back, at its end.
class Session {
  public:
    virtual ~Session() = default;

    virtual const Dialect& Words() const = 0;
    /// Prepares one statement in the engine's own words. It may outlive the session, and is useless then.
    virtual std::unique_ptr<Statement> Prepare(const std::string& sql) = 0;
    /// Records that the last statement changed.
    virtual std::int64_t Changes() const = 0;

    /// Write takes the one write lock at once; Read sees one state of the file until its end.
    virtual void Begin(Access access) = 0;
    /// On a throw the transaction is still open, unless InTransaction says otherwise.
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
    virtual bool InTransaction() const = 0;

    /// A part of the work that can be undone alone, inside a transaction as well as outside.
    virtual void BeginPart() = 0;
    virtual void KeepPart() = 0;
    virtual void UndoPart() = 0;

    virtual std::vector<std::string> TableNames() = 0;
    /// The table as the file declares it, without regard to case. Throws DaoError 3078.
    virtual TableDef ReadTable(const std::string& name) = 0;

    /// Writes a compact copy into a file that does not exist.
    virtual void CopyTo(const std::filesystem::path& target) = 0;
    virtual void RebuildIndexes() = 0;
    /// True when the file lost less than a page at its end: it opens like a whole one and reads as zeros
    /// there. Asked inside a transaction, while nobody writes.
    virtual bool IsCutOff() = 0;
    /// False when pages of the file are damaged.
    virtual bool IsSound() = 0;
};

enum class FileMode { Existing, New };

/// Opens a session on a file; New makes an empty file first, and leaves nothing when that fails. Throws
/// DaoError: 3024 no such file, 3051 it cannot be made, opened or written, 3343 it is no database or a
/// damaged one, 3260 it is held.
using SessionFactory = std::function<std::unique_ptr<Session>(const std::filesystem::path& path,
                                                              const EngineOptions& options, FileMode mode)>;

} // namespace tvx::dao
