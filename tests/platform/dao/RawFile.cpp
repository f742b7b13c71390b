#include "platform/dao/RawFile.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace tvx::test {
namespace {

int TakeFirst(void* answer, int count, char** values, char**) {
    auto& text = *static_cast<std::string*>(answer);
    if (text.empty() && count > 0 && values[0] != nullptr) text = values[0];
    return 0;
}

} // namespace

std::string AskSql(const std::filesystem::path& path, const std::string& sql) {
    sqlite3* handle = nullptr;
    sqlite3_open(path.c_str(), &handle);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closing(handle, sqlite3_close);
    std::string answer;
    if (sqlite3_exec(handle, sql.c_str(), TakeFirst, &answer, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle));
    return answer;
}

void RunSql(const std::filesystem::path& path, const std::string& sql) {
    AskSql(path, sql);
}

} // namespace tvx::test
