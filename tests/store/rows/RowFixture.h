// What the tests of the rows share: a row with something in every field, whose fields become Null one by one.
#pragma once

#include "support/Rows.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace tvx::test {

/// A field, and what a reader finds in the row when that field alone is Null.
template <typename Row>
struct NullCase {
    const char* field;
    std::function<void(Row&)> expected;
};

/// Makes one field after the other Null in the one row of a table whose field `key` is 1, and puts it back.
/// Expects of every reading the row that the case tells, and a case for every field of the schema but those
/// of `without`.
template <typename Row>
void ExpectNulls(dao::Database& db, const std::string& table, const std::string& key, const Row& full,
                 const std::function<Row()>& read, const std::vector<NullCase<Row>>& cases,
                 std::size_t without) {
    EXPECT_EQ(cases.size() + without, db.Table(table).fields.size());
    for (const NullCase<Row>& each : cases) {
        const dao::Value before = FieldOf(db, table, key, 1, each.field);
        EXPECT_FALSE(dao::IsNull(before)) << each.field;
        PutField(db, table, key, 1, each.field, dao::Null{});
        Row expected = full;
        each.expected(expected);
        EXPECT_EQ(read(), expected) << each.field;
        EXPECT_NE(expected, full) << each.field;
        PutField(db, table, key, 1, each.field, before);
        EXPECT_EQ(read(), full) << each.field;
    }
}

} // namespace tvx::test
