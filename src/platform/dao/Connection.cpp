#include "platform/dao/Connection.h"

#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "platform/dao/TimeText.h"

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

namespace tvx::dao {
namespace {

constexpr std::size_t MostKept = 64;             // statements
constexpr std::uintmax_t SmallestDatabase = 512; // bytes; one page of the least size

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

void CheckFileIsThere(const fs::path& path) {
    std::error_code code;
    if (!fs::exists(path, code))
        throw DaoError(error::FileNotFound, "Couldn't find file '" + path.string() + "'.");
    if (!fs::is_regular_file(path, code))
        throw DaoError(error::CannotOpen, "Cannot open '" + path.string() + "'. It is not a file.");
    // SQLite takes a file of no byte, or of one, for a new database; here it is one that lost its content.
    if (fs::file_size(path, code) < SmallestDatabase && !code)
        throw DaoError(error::UnrecognisedFormat, "Unrecognized database format '" + path.string() + "'.");
}

std::string ColumnText(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    if (text == nullptr) return "";
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

/// The name behind CONSTRAINT that stands before PRIMARY KEY in a table's text; "" when it has none.
std::string KeyNameIn(const std::string& createText) {
    const std::size_t key = createText.find("] PRIMARY KEY");
    if (key == std::string::npos) return "";
    const std::size_t open = createText.rfind('[', key);
    constexpr std::string_view word = "CONSTRAINT ";
    if (open == std::string::npos || open < word.size() ||
        createText.compare(open - word.size(), word.size(), word) != 0)
        return "";
    return createText.substr(open + 1, key - open - 1);
}

} // namespace

void RequireParameters(std::size_t expected, std::size_t given) {
    if (given == expected) return;
    throw DaoError(error::TooFewParameters, "Too few parameters. Expected " + std::to_string(expected) + ".");
}

StatementUse::StatementUse(Connection& connection, const std::string& sql)
    : connection_(connection), node_(connection.Take(sql)) {}

StatementUse::StatementUse(Connection& connection, const std::string& sql, const std::vector<Value>& values)
    : StatementUse(connection, sql) {
    BindAll(values);
}

StatementUse::~StatementUse() {
    sqlite3_reset(Handle());
    sqlite3_clear_bindings(Handle());
    connection_.GiveBack(std::move(node_));
}

void StatementUse::BindAll(const std::vector<Value>& values) {
    RequireParameters(static_cast<std::size_t>(sqlite3_bind_parameter_count(Handle())), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) Bind(static_cast<int>(i) + 1, values[i]);
}

void StatementUse::Bind(int parameter, const Value& value) {
    sqlite3_stmt* statement = Handle();
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
    if (code != SQLITE_OK) Connection::Fail(sqlite3_db_handle(statement), code);
}

bool StatementUse::Step() {
    const int code = sqlite3_step(Handle());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    Connection::Fail(sqlite3_db_handle(Handle()), code);
}

Value ColumnValue(sqlite3_stmt* statement, int column, FieldType type) {
    if (type == FieldType::Boolean)
        return std::int64_t{sqlite3_column_int64(statement, column) != 0 ? -1 : 0};
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return Null{};
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        return type == FieldType::TimeText ? DecodeTimeText(ColumnText(statement, column))
                                           : ColumnText(statement, column);
    }
}

Connection::Connection(const fs::path& path, const EngineOptions& options) {
    statements_.reserve(MostKept + 1); // so that giving one back needs no memory
    CheckFileIsThere(path);
    const int code = sqlite3_open_v2(path.c_str(), &handle_, SQLITE_OPEN_READWRITE, nullptr);
    try {
        if (code != SQLITE_OK) Fail(handle_, code);
        if (sqlite3_db_readonly(handle_, "main") == 1)
            throw DaoError(error::CannotOpen, "Cannot open '" + path.string() +
                                                  "'. You may not have permission to write the file.");
        SetUp(options);
    } catch (const DaoError&) {
        sqlite3_close_v2(handle_);
        throw;
    }
}

void Connection::MakeFile(const fs::path& path) {
    sqlite3* handle = nullptr;
    int code = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    // A mark in the head of the file, without which nothing would be written before the first table.
    if (code == SQLITE_OK)
        code = sqlite3_exec(handle, "PRAGMA application_id = 0x54525658", nullptr, nullptr, nullptr);
    sqlite3_close_v2(handle);
    if (code == SQLITE_OK) return;
    std::error_code ignored;
    fs::remove(path, ignored);
    throw DaoError(error::CannotOpen, "Cannot make '" + path.string() + "'.");
}

Connection::~Connection() {
    Close();
}

void Connection::Close() {
    statements_.clear();
    sqlite3_close_v2(handle_);
    handle_ = nullptr;
}

sqlite3* Connection::Handle() const {
    if (handle_ == nullptr) throw DaoError(error::ObjectInvalid, "Object invalid or no longer set.");
    return handle_;
}

void Connection::SetUp(const EngineOptions& options) {
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_busy_timeout(handle_, options.busyMilliseconds);
    // The file may lie on a share: a rollback journal, every commit on the disk before it counts, and no
    // memory mapping.
    Execute("PRAGMA locking_mode = NORMAL");
    Execute("PRAGMA mmap_size = 0");
    Execute("PRAGMA cell_size_check = ON");
    Execute("PRAGMA trusted_schema = OFF");
    Execute("PRAGMA journal_mode = DELETE");
    Execute("PRAGMA synchronous = EXTRA");
    if (options.reverseUnorderedSelects) Execute("PRAGMA reverse_unordered_selects = ON");
    Execute("SELECT count(*) FROM sqlite_schema"); // a file of another make, or a cut-off one, shows here
}

void Connection::Fail(sqlite3* handle, int code) {
    const std::string text = handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
    throw DaoError(NumberOf(code, text), text);
}

KeptStatements::node_type Connection::Take(const std::string& sql) {
    const auto known = statements_.find(sql);
    if (known != statements_.end()) return statements_.extract(known);
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(Handle(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK) Fail(handle_, code);
    if (statement == nullptr) throw DaoError(error::SyntaxError, "Syntax error in query.");
    KeptStatements::iterator made = statements_.emplace(sql, KeptStatement{{statement, sqlite3_finalize}, 0});
    return statements_.extract(made);
}

void Connection::GiveBack(KeptStatements::node_type node) {
    if (handle_ == nullptr) return; // closed meanwhile
    node.mapped().lastUse = ++uses_;
    statements_.insert(std::move(node));
    if (statements_.size() <= MostKept) return;
    statements_.erase(
        std::min_element(statements_.begin(), statements_.end(),
                         [](const auto& a, const auto& b) { return a.second.lastUse < b.second.lastUse; }));
}

void Connection::Execute(const std::string& sql) {
    const int code = sqlite3_exec(Handle(), sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) Fail(handle_, code);
}

std::vector<std::string> Connection::TableNames() {
    StatementUse names(*this,
                       "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite~_%'"
                       " ESCAPE '~' ORDER BY name");
    std::vector<std::string> found;
    while (names.Step()) found.push_back(ColumnText(names.Handle(), 0));
    return found;
}

const TableDef& Connection::Table(std::string_view name) {
    const std::string key = UpperCase(name);
    const auto known = tables_.find(key);
    if (known != tables_.end()) return known->second;
    return tables_.emplace(key, ReadTable(std::string(name))).first->second;
}

void Connection::ForgetTables() {
    tables_.clear();
}

TableDef Connection::ReadTable(const std::string& name) {
    TableDef table;
    std::string createText;
    {
        StatementUse find(
            *this, "SELECT name, sql FROM sqlite_schema WHERE type = 'table' AND name = ? COLLATE NOCASE",
            {name});
        if (!find.Step())
            throw DaoError(error::TableNotFound,
                           "The database engine cannot find the input table or query '" + name + "'.");
        table.name = ColumnText(find.Handle(), 0);
        createText = ColumnText(find.Handle(), 1);
    }
    std::map<int, std::string> keyFields; // by place in the key
    const bool counts = createText.find("AUTOINCREMENT") != std::string::npos;
    {
        StatementUse columns(*this, "SELECT name, type, pk FROM pragma_table_info(?) ORDER BY cid",
                             {table.name});
        while (columns.Step()) {
            const int place = sqlite3_column_int(columns.Handle(), 2);
            table.fields.push_back(FieldOfDeclaration(ColumnText(columns.Handle(), 0),
                                                      ColumnText(columns.Handle(), 1), counts && place == 1));
            if (place > 0) keyFields[place] = table.fields.back().name;
        }
    }
    table.key.name = KeyNameIn(createText);
    for (const auto& [place, field] : keyFields) table.key.fields.push_back(field);

    StatementUse indexes(*this,
                         "SELECT l.name, i.name FROM pragma_index_list(?) l, pragma_index_info(l.name) i"
                         " WHERE l.origin = 'c' ORDER BY l.name, i.seqno",
                         {table.name});
    const std::string prefix = table.name + ".";
    while (indexes.Step()) {
        std::string index = ColumnText(indexes.Handle(), 0);
        if (index.starts_with(prefix)) index.erase(0, prefix.size());
        if (table.indexes.empty() || table.indexes.back().name != index) table.indexes.push_back({index, {}});
        table.indexes.back().fields.push_back(ColumnText(indexes.Handle(), 1));
    }
    return table;
}

} // namespace tvx::dao
