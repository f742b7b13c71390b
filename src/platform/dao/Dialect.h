// How an engine writes what the system's own SQL writes one way: names in brackets, "?" as marks.
#pragma once

#include "platform/dao/FieldType.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::dao {

class Dialect {
  public:
    virtual ~Dialect() = default;

    /// A name as it stands in a text, from the name between brackets.
    virtual std::string Name(std::string_view name) const = 0;
    /// The mark of a parameter; they count from 1.
    virtual std::string Mark(std::size_t number) const = 0;
    /// What tells the records of a table without a key apart.
    virtual std::string RowKey() const = 0;

    /// The type of a field in its declaration: "TEXT(14)", "BOOLEAN".
    virtual std::string DeclaredType(const FieldDef& field) const = 0;
    /// Behind the type of a text that compares and sorts without case.
    virtual std::string WithoutCase() const = 0;
    /// Behind a field by which rows are put in the order of names, CompareNames.
    virtual std::string NameOrder() const = 0;
    /// Behind the name of a key that the engine counts.
    virtual std::string CountedKey() const = 0;
    /// Behind a table that is stored by its key.
    virtual std::string StoredByKey() const = 0;
};

/// The statements that make a table and its indexes in an empty file, in the system's SQL.
std::vector<std::string> CreateStatements(const TableDef& table, const Dialect& dialect);

/// The statement that adds a field behind the last, in the system's SQL.
std::string AddFieldStatement(const TableDef& table, const FieldDef& field, const Dialect& dialect);

} // namespace tvx::dao
