// A set of records and a place in it: the way in which every screen reads and writes the store.
#pragma once

#include "platform/dao/FieldType.h"
#include "platform/dao/Value.h"

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::dao {

class Connection;
class Recordset;
class StatementUse;

/// One field of the current record, for reading and, between AddNew or Edit and Update, for writing.
class Field {
  public:
    bool IsNull() const;
    dao::Value Value() const;
    std::string Text(std::string_view ifNull = "") const;
    std::int64_t Long(std::int64_t ifNull = 0) const;
    /// Throws DaoError 3349 when the number is out of the range of int.
    int Int(int ifNull = 0) const;
    double Double(double ifNull = 0) const;

    /// Throws DaoError 3020 outside AddNew and Edit, 3163 when a text is wider than the field.
    void operator=(dao::Value value);
    /// The value of the other field, which may be of another set.
    Field& operator=(const Field& other);
    Field(const Field& other) = default;
    void operator=(std::string_view text) { *this = dao::Value(std::string(text)); }
    void operator=(const char* text) { *this = dao::Value(std::string(text)); }
    void operator=(const std::string& text) { *this = dao::Value(text); }
    void operator=(int whole) { *this = dao::Value(std::int64_t{whole}); }
    void operator=(double real) { *this = dao::Value(real); }
    void operator=(bool flag) { *this = dao::Value(std::int64_t{flag ? -1 : 0}); }

  private:
    friend class Recordset;
    Field(Recordset& set, std::size_t position) : set_(&set), position_(position) {}
    Recordset* set_;
    std::size_t position_;
};

/// A table or the rows of a select. Nothing stays locked between two calls: a select is read whole when it is
/// opened; a table is read in pages, in the order of its key, and shows what other workstations wrote
/// meanwhile on the pages that it has not reached. Opening a table reads none of its records: the first is
/// read when it is first asked for, and whatever asks throws DaoError 3260 while the file is locked.
class Recordset {
  public:
    /// No set; opened by Database::OpenRecordset. Whatever needs one throws DaoError 3420.
    Recordset() = default;

    bool IsOpen() const { return connection_ != nullptr; }
    void Close() { *this = Recordset(); }

    /// Both are true on an empty set.
    bool BOF();
    bool AtEnd(); // the end-of-file mark; named so because EOF is a macro of the C library
    /// Records of a table; of a select, the records visited so far: MoveLast first.
    std::int64_t RecordCount() const;

    /// Throw DaoError 3021 on an empty set; MoveNext also when the set stands at its end.
    void MoveFirst();
    void MoveLast();
    void MoveNext();

    /// Chooses the index for Seek, without regard to case. Tables only. Throws DaoError 3015.
    void Index(std::string_view name);
    /// Looks up the record whose index fields equal the keys; of several, the first in the order of the
    /// index. With fewer keys than the index has fields only the leading ones count. A miss sets NoMatch and
    /// leaves no current record. Moves do not change NoMatch.
    void Seek(std::initializer_list<Value> keys);
    bool NoMatch() const { return noMatch_; }

    /// A new record, filled through Fields and written by Update. The record that was current before stays
    /// the current one after Update.
    void AddNew();
    /// Begins a change of the current record. Throws DaoError 3021 or 3167.
    void Edit();
    /// Writes the fields that were set. Throws DaoError 3020 without AddNew or Edit, 3022 on a key that
    /// exists, 3167 when another workstation deleted the record, 3260 when the file is locked; the change is
    /// then still pending.
    void Update();
    /// Deletes the current record, which stays current but unreadable until a move.
    void Delete();

    /// A field by name, without regard to case. Throws DaoError 3265.
    Field Fields(std::string_view name);
    /// A field by position, from 0. Throws DaoError 3265.
    Field Fields(std::size_t position);
    /// Position of a field, without regard to case. Throws DaoError 3265.
    std::size_t PositionOf(std::string_view name) const;
    std::size_t FieldCount() const { return columns_.size(); }

  private:
    friend class Database;
    friend class Field;

    enum class Place { Unread, None, Record, Deleted, End };
    enum class Pending { Nothing, Add, Change };
    enum class Page { First, Next, Last }; // the first record alone, a page, the last record alone
    struct Row {
        std::vector<Value> values;
        std::vector<Value> key;
        std::vector<Value> keyAsRead; // when a write has changed the key: a walk goes on from where it was
    };

    Recordset(std::shared_ptr<Connection> connection, const std::string& tableOrSql,
              const std::vector<Value>& parameters);
    void OpenTable(const std::string& name);
    void OpenSelect(const std::string& sql, const std::vector<Value>& parameters);

    Connection& Open() const;
    void ReadFirst();
    bool IsEmpty();
    const Row& Current();
    void StandOn(std::size_t at);
    bool TakeOutDeleted();
    void DropPending();
    void LoadPage(const std::vector<Value>& after, Page page);
    void ReadColumns(const StatementUse& select);
    void ReadRows(StatementUse& use);
    std::string SelectList() const;
    std::string KeyList(std::string_view direction) const;
    Value Checked(std::size_t position, Value value);
    std::string InsertText() const;
    std::string UpdateText() const;
    std::string KeyTest() const;
    const std::string& WriteText();
    void InsertPending();
    void WriteChanges();

    std::shared_ptr<Connection> connection_;
    bool isTable_ = false;
    TableDef table_;                // the table read from; of a select over one table, that table
    std::vector<FieldDef> columns_; // the fields of a record, in order
    std::vector<std::string> keys_; // the columns that identify a record in the file
    IndexDef index_;                // chosen for Seek; no name while none is

    std::vector<Row> rows_; // a select's rows, or one page of a table
    bool lastPage_ = true;
    std::size_t at_ = 0; // index into rows_
    std::size_t visited_ = 0;
    Place place_ = Place::None;
    std::optional<bool> empty_ = true; // nothing until a read has told
    bool noMatch_ = false;

    Pending pending_ = Pending::Nothing;
    std::vector<Value> draft_; // values set since AddNew or Edit
    std::vector<bool> drafted_;
    std::string writeText_; // of the last write, and what it wrote
    Pending writtenBy_ = Pending::Nothing;
    std::vector<bool> writtenFields_;
};

} // namespace tvx::dao
