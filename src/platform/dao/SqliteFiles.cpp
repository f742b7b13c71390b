#include "platform/dao/SqliteFiles.h"

#include <sqlite3.h>

namespace tvx::dao {
namespace {

sqlite3_vfs& System() {
    static sqlite3_vfs& system = *sqlite3_vfs_find(nullptr);
    return system;
}

int Delete(sqlite3_vfs*, const char* path, int flushFolder) {
    const int code = System().xDelete(&System(), path, flushFolder);
    return code == SQLITE_IOERR_DIR_FSYNC ? SQLITE_OK : code;
}

sqlite3_vfs Registered() {
    sqlite3_vfs files = System();
    files.pNext = nullptr;
    files.zName = "tvx";
    files.xDelete = Delete;
    return files;
}

} // namespace

const char* SqliteFiles() {
    static sqlite3_vfs files = Registered();
    static const int registered = sqlite3_vfs_register(&files, 0);
    return registered == SQLITE_OK ? files.zName : nullptr;
}

} // namespace tvx::dao
