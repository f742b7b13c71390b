// Reads and writes rows through the lists that name their fields. Private to this folder.
//
// A list is a type with the row that it belongs to and a function that calls `field(name, member)` for each
// field, `field(name, member, ifNull)` where Null means something else than 0 or "", and
// `field(name, member, ifNull, DateOnly())` for a date:
//     struct PlaceFields {
//         using Row = EmployeeRow;
//         static void Of(auto& row, auto&& field) { field("Street", row.street); }
//     };
#pragma once

#include "platform/basic/Number.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tvx::rows {

/// A whole number of the file as an int; one that no int can hold becomes the nearest.
inline int Whole(std::int64_t number) {
    return static_cast<int>(
        std::clamp<std::int64_t>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// A member from a value.
template <typename Member>
Member FromValue(const dao::Value& value, const Member& ifNull) {
    if (dao::IsNull(value)) return ifNull;
    if constexpr (std::is_same_v<Member, std::string>)
        return dao::ToText(value);
    else if constexpr (std::is_same_v<Member, bool>)
        return dao::ToLong(value) != 0;
    else if constexpr (std::is_same_v<Member, int>)
        return Whole(dao::ToLong(value));
    else if constexpr (std::is_same_v<Member, double>)
        return dao::ToDouble(value);
    else
        return FromValue(value, typename Member::value_type{});
}

inline dao::Value ToValue(const std::string& text) {
    return text;
}
inline dao::Value ToValue(bool flag) {
    return std::int64_t{flag ? -1 : 0};
}
inline dao::Value ToValue(int whole) {
    return std::int64_t{whole};
}
inline dao::Value ToValue(double real) {
    return real;
}
template <typename Member>
dao::Value ToValue(const std::optional<Member>& member) {
    return member ? ToValue(*member) : dao::Value(dao::Null{});
}

/// What a list says of a field beyond its type.
struct Plain {};
struct DateOnly {}; // a date, whose time of day does not count
struct Times {};    // a time text; a scan gives it as the file holds it

/// The fields of a list in one recordset, which must outlive it; their places are looked up once.
template <typename Fields>
class Record {
  public:
    explicit Record(dao::Recordset& set) : set_(set) {
        typename Fields::Row any;
        Fields::Of(any, [&](const char* name, const auto&...) { places_.push_back(set_.PositionOf(name)); });
    }

    /// The row of the current record.
    typename Fields::Row Read() const {
        typename Fields::Row row;
        auto place = places_.begin();
        Fields::Of(
            row, [&]<typename Member, typename Kind = Plain>(const char*, Member& member,
                                                             const std::type_identity_t<Member>& ifNull = {},
                                                             Kind = {}) {
                dao::Value value = set_.Fields(*place++).Value();
                if (std::is_same_v<Kind, DateOnly> && !dao::IsNull(value)) value = Int(dao::ToDouble(value));
                member = FromValue<Member>(value, ifNull);
            });
        return row;
    }

    /// Sets every field of the list in the record that AddNew or Edit has begun.
    void Write(const typename Fields::Row& row) const {
        auto place = places_.begin();
        Fields::Of(row, [&](const char*, const auto& member, auto&&...) {
            set_.Fields(*place++) = ToValue(member);
        });
    }

  private:
    dao::Recordset& set_;
    std::vector<std::size_t> places_;
};

/// Every row of a set, from the first on.
template <typename Fields>
std::vector<typename Fields::Row> ReadAll(dao::Recordset& set) {
    std::vector<typename Fields::Row> rows;
    if (set.BOF() && set.AtEnd()) return rows;
    const Record<Fields> record(set);
    for (set.MoveFirst(); !set.AtEnd(); set.MoveNext()) rows.push_back(record.Read());
    return rows;
}

/// The current record of a table that was sought in; nothing after a miss.
template <typename Fields>
std::optional<typename Fields::Row> Found(dao::Recordset& set) {
    if (set.NoMatch()) return std::nullopt;
    return Record<Fields>(set).Read();
}

/// Adds a record with the fields of a list, and stands on it.
template <typename Fields>
dao::Recordset Add(dao::Database& database, const char* table, const typename Fields::Row& row) {
    dao::Recordset set = database.OpenRecordset(table);
    set.AddNew();
    Record<Fields>(set).Write(row);
    set.Update();
    set.MoveLast();
    return set;
}

/// Deletes every row of a table whose field holds a number, by one statement.
inline void DeleteWhere(dao::Database& database, const std::string& table, const std::string& field,
                        std::int64_t number) {
    database.Execute("DELETE FROM [" + table + "] WHERE [" + field + "] = ?", {number});
}

/// Adds to the number that is the first field of every record of a set.
inline void AddToFirstField(dao::Recordset& set, int number) {
    for (; !set.AtEnd(); set.MoveNext()) {
        set.Edit();
        set.Fields(std::size_t{0}) = ToValue(Whole(set.Fields(std::size_t{0}).Long() + number));
        set.Update();
    }
}

/// A table with an index to seek by.
inline dao::Recordset OpenTable(dao::Database& database, const char* table, const char* index) {
    dao::Recordset set = database.OpenRecordset(table);
    set.Index(index);
    return set;
}

} // namespace tvx::rows
