// A select of the system: its words piece by piece, with the values that stand between them.
#pragma once

#include "platform/dao/Recordset.h"
#include "platform/dao/Value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::dao {
class Database;
}

namespace tvx {

class Query {
  public:
    explicit Query(std::string_view words) : whole_(words), marked_(words) {}

    /// Puts a value behind what is there, and more words behind it.
    Query& With(std::int64_t value, std::string_view words);
    Query& Then(std::string_view words);

    /// The whole text, the values in their places.
    const std::string& Whole() const { return whole_; }
    /// The text with "?" in the place of each value, and the values in their order.
    const std::string& Marked() const { return marked_; }
    const std::vector<dao::Value>& Values() const { return values_; }

    /// Runs it. Throws DaoError.
    dao::Recordset Open(dao::Database& database) const;

  private:
    std::string whole_;
    std::string marked_;
    std::vector<dao::Value> values_;
};

} // namespace tvx
