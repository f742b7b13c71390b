// SQLite as the engine of a database file.
#pragma once

#include "platform/dao/Session.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace tvx::dao {

/// A session on a file of SQLite, as SessionFactory wants it.
std::unique_ptr<Session> OpenSqliteSession(const std::filesystem::path& path, const EngineOptions& options,
                                           FileMode mode);

/// What a connection calls the order of names. The file itself does not know it.
inline constexpr const char* NameCollation = "Names";

/// How SQLite writes names, marks and declarations.
const Dialect& SqliteDialect();

/// The field that a declaration in a file of SQLite means.
FieldDef FieldOfDeclaration(std::string name, std::string_view declaredType, bool autoNumber);

} // namespace tvx::dao
