#include "platform/dao/Recordset.h"

#include "platform/basic/Text.h"
#include "platform/dao/Connection.h"
#include "platform/dao/DaoError.h"
#include "platform/dao/SelectText.h"
#include "platform/dao/TimeText.h"

#include <algorithm>

namespace tvx::dao {
namespace {

constexpr std::size_t PageRows = 256;

std::vector<std::string> KeysOf(const TableDef& table) {
    return table.key.fields.empty() ? std::vector<std::string>{RowKeyWord} : table.key.fields;
}

[[noreturn]] void FailNoCurrentRecord() {
    throw DaoError(error::NoCurrentRecord, "No current record.");
}

/// A value as it is bound: time texts in the form of the file.
Value Stored(const FieldDef& field, const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr && field.type == FieldType::TimeText ? Value(EncodeTimeText(*text)) : value;
}

} // namespace

bool Field::IsNull() const {
    return dao::IsNull(Value());
}

dao::Value Field::Value() const {
    if (set_->pending_ != Recordset::Pending::Nothing && set_->drafted_[position_])
        return set_->draft_[position_];
    const bool yesNo = set_->columns_[position_].type == FieldType::Boolean;
    if (set_->pending_ == Recordset::Pending::Add)
        return yesNo ? dao::Value(std::int64_t{0}) : dao::Value(Null{});
    return set_->Current().values[position_];
}

std::string Field::Text(std::string_view ifNull) const {
    return ToText(Value(), ifNull);
}
std::int64_t Field::Long(std::int64_t ifNull) const {
    return ToLong(Value(), ifNull);
}
int Field::Int(int ifNull) const {
    return ToInt(Value(), ifNull);
}
double Field::Double(double ifNull) const {
    return ToDouble(Value(), ifNull);
}

void Field::operator=(dao::Value value) {
    if (set_->pending_ == Recordset::Pending::Nothing)
        throw DaoError(error::UpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
    set_->draft_[position_] = set_->Checked(position_, std::move(value));
    set_->drafted_[position_] = true;
}

Field& Field::operator=(const Field& other) {
    *this = other.Value();
    return *this;
}

Recordset::Recordset(std::shared_ptr<Connection> connection, const std::string& tableOrSql,
                     const std::vector<Value>& parameters)
    : connection_(std::move(connection)) {
    if (IsSelect(tableOrSql)) {
        OpenSelect(tableOrSql, parameters);
    } else {
        RequireParameters(0, parameters.size());
        OpenTable(tableOrSql);
    }
}

void Recordset::OpenTable(const std::string& name) {
    isTable_ = true;
    table_ = Open().Table(name);
    columns_ = table_.fields;
    keys_ = KeysOf(table_);
    empty_.reset();
    place_ = Place::Unread; // who only seeks or adds meets no lock here
}

void Recordset::OpenSelect(const std::string& sql, const std::vector<Value>& parameters) {
    const SelectText select = ParseSelect(sql);
    table_ = Open().Table(select.table);
    keys_ = KeysOf(table_);
    StatementUse use(Open(), select.Runnable(keys_), parameters);
    ReadColumns(use);
    ReadRows(use);
    empty_ = rows_.empty();
    visited_ = rows_.empty() ? 0 : 1;
    place_ = rows_.empty() ? Place::None : Place::Record;
}

void Recordset::ReadColumns(const StatementUse& select) {
    for (int i = static_cast<int>(keys_.size()); i < select.Row().ColumnCount(); ++i) {
        const std::string name = select.Row().ColumnName(i);
        const int position = table_.PositionOf(name);
        columns_.push_back(position >= 0 ? table_.fields[static_cast<std::size_t>(position)]
                                         : FieldDef{name, FieldType::Memo, 0});
    }
}

Connection& Recordset::Open() const {
    if (!connection_) throw DaoError(error::ObjectInvalid, "Object invalid or no longer set.");
    return *connection_;
}

/// Stands on the first record of a table where nothing was read yet.
void Recordset::ReadFirst() {
    if (place_ != Place::Unread) return;
    LoadPage({}, Page::First);
    empty_ = rows_.empty();
    place_ = rows_.empty() ? Place::None : Place::Record;
}

/// Also after a seek that missed, which tells nothing of the others.
bool Recordset::IsEmpty() {
    ReadFirst();
    if (!empty_) {
        StatementUse first(Open(), "SELECT 1 FROM " + Bracketed(table_.name) + " LIMIT 1");
        empty_ = !first.Step();
    }
    return *empty_;
}

bool Recordset::BOF() {
    return IsEmpty();
}
bool Recordset::AtEnd() {
    return IsEmpty() || place_ == Place::End;
}

std::int64_t Recordset::RecordCount() const {
    Connection& open = Open();
    if (!isTable_) return static_cast<std::int64_t>(visited_);
    StatementUse count(open, "SELECT count(*) FROM " + Bracketed(table_.name));
    count.Step();
    return count.Row().Whole(0);
}

std::string Recordset::SelectList() const {
    std::string list;
    for (const std::string& key : keys_) list += KeyName(key) + ", ";
    for (const FieldDef& column : columns_) list += Bracketed(column.name) + ", ";
    return "SELECT " + list.substr(0, list.size() - 2) + " FROM " + Bracketed(table_.name);
}

std::string Recordset::KeyList(std::string_view direction) const {
    std::string list;
    for (const std::string& key : keys_)
        list += (list.empty() ? "" : ", ") + KeyName(key) + std::string(direction);
    return list;
}

void Recordset::ReadRows(StatementUse& use) {
    std::vector<Row> rows;
    const int hidden = static_cast<int>(keys_.size());
    while (use.Step()) {
        Row& row = rows.emplace_back();
        for (int i = 0; i < hidden; ++i) row.key.push_back(ColumnValue(use.Row(), i, FieldType::Memo));
        row.values.reserve(columns_.size());
        for (std::size_t i = 0; i < columns_.size(); ++i)
            row.values.push_back(ColumnValue(use.Row(), hidden + static_cast<int>(i), columns_[i].type));
    }
    rows_ = std::move(rows); // only now: a read that fails leaves the set as it was
    at_ = 0;
}

void Recordset::LoadPage(const std::vector<Value>& after, Page page) {
    std::string sql = SelectList();
    if (!after.empty()) {
        std::string marks;
        for (std::size_t i = 0; i < after.size(); ++i) marks += i == 0 ? "?" : ", ?";
        sql += " WHERE (" + KeyList("") + ") > (" + marks + ")";
    }
    const std::size_t most = page == Page::Next ? PageRows : 1;
    sql += " ORDER BY " + KeyList(page == Page::Last ? " DESC" : "") + " LIMIT " + std::to_string(most);
    StatementUse use(Open(), sql, after);
    ReadRows(use);
    lastPage_ = page == Page::Last || rows_.size() < most;
}

const Recordset::Row& Recordset::Current() {
    ReadFirst();
    if (place_ == Place::Deleted) throw DaoError(error::RecordDeleted, "Record is deleted.");
    if (place_ != Place::Record) FailNoCurrentRecord();
    return rows_[at_];
}

void Recordset::DropPending() {
    pending_ = Pending::Nothing;
    draft_.clear();
    drafted_.clear();
}

/// Makes a row of rows_ the current record; throws 3021 when there is none.
void Recordset::StandOn(std::size_t at) {
    empty_ = rows_.empty();
    place_ = rows_.empty() ? Place::None : Place::Record;
    if (rows_.empty()) FailNoCurrentRecord();
    at_ = at;
    visited_ = std::max(visited_, at + 1);
}

/// Removes a deleted record from the rows of a select, so that the next one takes its place. A table keeps
/// it: its next page begins behind that key.
bool Recordset::TakeOutDeleted() {
    if (isTable_ || place_ != Place::Deleted) return false;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(at_));
    --visited_;
    return true;
}

void Recordset::MoveFirst() {
    Open();
    DropPending();
    if (isTable_)
        LoadPage({}, Page::Next);
    else
        TakeOutDeleted();
    StandOn(0);
}

void Recordset::MoveLast() {
    Open();
    DropPending();
    if (isTable_)
        LoadPage({}, Page::Last);
    else
        TakeOutDeleted();
    StandOn(rows_.size() - 1);
}

void Recordset::MoveNext() {
    Open();
    DropPending();
    ReadFirst();
    if (place_ != Place::Record && place_ != Place::Deleted) FailNoCurrentRecord();
    const std::size_t next = TakeOutDeleted() ? at_ : at_ + 1;
    if (next < rows_.size()) {
        StandOn(next);
    } else if (isTable_ && !lastPage_) {
        const Row& row = rows_[at_];
        const std::vector<Value> after = row.keyAsRead.empty() ? row.key : row.keyAsRead;
        LoadPage(after, Page::Next);
        place_ = rows_.empty() ? Place::End : Place::Record;
    } else {
        place_ = Place::End;
    }
}

void Recordset::Index(std::string_view name) {
    Open();
    const IndexDef* found = isTable_ ? table_.FindIndex(name) : nullptr;
    if (found == nullptr)
        throw DaoError(error::InvalidIndex, "'" + std::string(name) + "' is not an index in this table.");
    index_ = *found;
}

void Recordset::Seek(std::initializer_list<Value> keys) {
    Open();
    DropPending();
    if (index_.fields.empty()) throw DaoError(error::InvalidIndex, "No index is chosen.");
    if (keys.size() == 0 || keys.size() > index_.fields.size())
        throw DaoError(error::SyntaxError, "The number of keys does not fit the index.");
    std::string sql = SelectList();
    std::size_t i = 0;
    for (; i < keys.size(); ++i) sql += (i == 0 ? " WHERE " : " AND ") + Bracketed(index_.fields[i]) + " = ?";
    sql += " ORDER BY ";
    for (; i < index_.fields.size(); ++i) sql += Bracketed(index_.fields[i]) + ", ";
    sql += KeyList("") + " LIMIT 1";
    StatementUse use(Open(), sql, std::vector<Value>(keys));
    ReadRows(use);
    // What follows the record found is read by a move, from its key on.
    lastPage_ = false;
    noMatch_ = rows_.empty();
    if (!noMatch_) empty_ = false;
    place_ = noMatch_ ? Place::None : Place::Record;
}

void Recordset::AddNew() {
    Open();
    DropPending();
    pending_ = Pending::Add;
    draft_.assign(columns_.size(), Null{});
    drafted_.assign(columns_.size(), false);
}

void Recordset::Edit() {
    Open();
    Current();
    DropPending();
    pending_ = Pending::Change;
    draft_.assign(columns_.size(), Null{});
    drafted_.assign(columns_.size(), false);
}

Value Recordset::Checked(std::size_t position, Value value) {
    const FieldDef& field = columns_[position];
    switch (field.type) {
    case FieldType::Text:
    case FieldType::Memo:
    case FieldType::TimeText:
        if (!dao::IsNull(value) && !std::holds_alternative<std::string>(value)) value = ToText(value);
        break;
    case FieldType::Boolean:
        value = std::int64_t{ToDouble(value) != 0 ? -1 : 0};
        break;
    case FieldType::Integer:
    case FieldType::Long:
    case FieldType::AutoNumber:
        if (!dao::IsNull(value)) value = ToLong(value);
        break;
    default:
        if (const auto* text = std::get_if<std::string>(&value)) value = ToDouble(Value(*text));
        break;
    }
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr || field.width == 0) return value;
    const std::size_t length = field.type == FieldType::TimeText ? text->size() : CharacterCount(*text);
    // A text that stands there already is left alone, however it came to be that wide.
    const bool asBefore = pending_ == Pending::Change && value == Current().values[position];
    if (length > field.width && !asBefore)
        throw DaoError(error::FieldTooSmall,
                       "The field '" + field.name + "' is too small to accept the amount of data.",
                       field.name);
    return value;
}

void Recordset::Update() {
    Open();
    switch (pending_) {
    case Pending::Nothing:
        throw DaoError(error::UpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
    case Pending::Add:
        InsertPending();
        break;
    case Pending::Change:
        WriteChanges();
        break;
    }
    DropPending();
}

std::string Recordset::InsertText() const {
    std::string names;
    std::string marks;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (!drafted_[i]) continue;
        names += (names.empty() ? "" : ", ") + Bracketed(columns_[i].name);
        marks += marks.empty() ? "?" : ", ?";
    }
    const std::string values = names.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + marks + ")";
    return "INSERT INTO " + Bracketed(table_.name) + values;
}

std::string Recordset::UpdateText() const {
    std::string sets;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (drafted_[i]) sets += (sets.empty() ? "" : ", ") + Bracketed(columns_[i].name) + " = ?";
    return "UPDATE " + Bracketed(table_.name) + " SET " + sets + KeyTest();
}

std::string Recordset::KeyTest() const {
    std::string test;
    for (const std::string& key : keys_) test += (test.empty() ? " WHERE " : " AND ") + KeyName(key) + " = ?";
    return test;
}

/// The text of a write; many records in a row mostly set the same fields.
const std::string& Recordset::WriteText() {
    if (writeText_.empty() || writtenBy_ != pending_ || writtenFields_ != drafted_) {
        writeText_ = pending_ == Pending::Add ? InsertText() : UpdateText();
        writtenBy_ = pending_;
        writtenFields_ = drafted_;
    }
    return writeText_;
}

void Recordset::InsertPending() {
    ReadFirst(); // the record that is current now stays so
    StatementUse use(Open(), WriteText());
    int parameter = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (drafted_[i]) use.Bind(++parameter, Stored(columns_[i], draft_[i]));
    use.Step();
    if (isTable_) empty_ = false; // a select stays what was read when it was opened
}

void Recordset::WriteChanges() {
    Row& row = rows_[at_];
    if (std::find(drafted_.begin(), drafted_.end(), true) == drafted_.end()) return;
    {
        StatementUse use(Open(), WriteText());
        int parameter = 0;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            if (drafted_[i]) use.Bind(++parameter, Stored(columns_[i], draft_[i]));
        for (const Value& key : row.key) use.Bind(++parameter, key);
        use.Step();
    }
    if (Open().OpenSession().Changes() == 0) throw DaoError(error::RecordDeleted, "Record is deleted.");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (!drafted_[i]) continue;
        row.values[i] = draft_[i];
        for (std::size_t k = 0; k < keys_.size(); ++k) {
            if (!EqualsNoCase(columns_[i].name, keys_[k])) continue;
            if (row.keyAsRead.empty()) row.keyAsRead = row.key;
            row.key[k] = Stored(columns_[i], draft_[i]);
        }
    }
}

void Recordset::Delete() {
    Open();
    const Row& row = Current();
    StatementUse use(Open(), "DELETE FROM " + Bracketed(table_.name) + KeyTest(), row.key);
    use.Step();
    DropPending();
    place_ = Place::Deleted;
}

std::size_t Recordset::PositionOf(std::string_view name) const {
    Open();
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (EqualsNoCase(columns_[i].name, name)) return i;
    throw DaoError(error::ItemNotFound, "Item not found in this collection: " + std::string(name),
                   std::string(name));
}

Field Recordset::Fields(std::string_view name) {
    return {*this, PositionOf(name)};
}

Field Recordset::Fields(std::size_t position) {
    Open();
    if (position >= columns_.size())
        throw DaoError(error::ItemNotFound, "Item not found in this collection: " + std::to_string(position));
    return {*this, position};
}

} // namespace tvx::dao
