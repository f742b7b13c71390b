#include "support/RawFile.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace tvx::test {
namespace {

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

[[noreturn]] void Fail(sqlite3* handle, const std::string& sql) {
    throw std::runtime_error(std::string(sqlite3_errmsg(handle)) + ": " + sql);
}

struct Binder {
    sqlite3_stmt* statement;
    int parameter;

    void operator()(std::monostate) const { sqlite3_bind_null(statement, parameter); }
    void operator()(std::int64_t whole) const { sqlite3_bind_int64(statement, parameter, whole); }
    void operator()(double real) const { sqlite3_bind_double(statement, parameter, real); }
    void operator()(const std::string& text) const {
        sqlite3_bind_text64(statement, parameter, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void operator()(const Blob& blob) const {
        sqlite3_bind_blob64(statement, parameter, blob.bytes.data(), blob.bytes.size(), SQLITE_TRANSIENT);
    }
};

Statement Prepare(sqlite3* handle, const std::string& sql, const std::vector<RawValue>& values) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) Fail(handle, sql);
    Statement owned(statement, sqlite3_finalize);
    for (std::size_t i = 0; i < values.size(); ++i)
        std::visit(Binder{statement, static_cast<int>(i) + 1}, values[i]);
    return owned;
}

std::string FieldText(sqlite3_stmt* statement, int column) {
    const int type = sqlite3_column_type(statement, column);
    if (type == SQLITE_NULL) return "NULL";
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    if (type != SQLITE_BLOB)
        return bytes == nullptr ? "" : std::string(reinterpret_cast<const char*>(bytes), size);
    std::string hex = "x'";
    for (std::size_t i = 0; i < size; ++i) {
        hex += "0123456789abcdef"[bytes[i] >> 4];
        hex += "0123456789abcdef"[bytes[i] & 15];
    }
    return hex + "'";
}

int TakeFirst(void* answer, int count, char** values, char**) {
    auto& text = *static_cast<std::string*>(answer);
    if (text.empty() && count > 0 && values[0] != nullptr) text = values[0];
    return 0;
}

} // namespace

RawFile::RawFile(const std::filesystem::path& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) Fail(handle_, path.string());
    sqlite3_busy_timeout(handle_, 2000);
    Run("PRAGMA synchronous = OFF"); // what a test writes need not outlive the machine
}

RawFile::~RawFile() {
    sqlite3_close(handle_);
}

void RawFile::Run(const std::string& sql, const std::vector<RawValue>& values) {
    const Statement statement = Prepare(handle_, sql, values);
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) code = sqlite3_step(statement.get());
    if (code != SQLITE_DONE) Fail(handle_, sql);
}

std::vector<std::string> RawFile::Rows(const std::string& sql, const std::vector<RawValue>& values) {
    const Statement statement = Prepare(handle_, sql, values);
    std::vector<std::string> rows;
    int code = SQLITE_OK;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
            row += (i == 0 ? "" : "|") + FieldText(statement.get(), i);
        rows.push_back(row);
    }
    if (code != SQLITE_DONE) Fail(handle_, sql);
    return rows;
}

std::string RawFile::Integrity() {
    return Rows("PRAGMA integrity_check").front();
}

std::string AskSql(const std::filesystem::path& path, const std::string& sql) {
    sqlite3* handle = nullptr;
    sqlite3_open(path.c_str(), &handle);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closing(handle, sqlite3_close);
    std::string answer;
    if (sqlite3_exec(handle, sql.c_str(), TakeFirst, &answer, nullptr) != SQLITE_OK) Fail(handle, sql);
    return answer;
}

void RunSql(const std::filesystem::path& path, const std::string& sql) {
    AskSql(path, sql);
}

} // namespace tvx::test
