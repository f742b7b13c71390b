#include "store/rows/Query.h"

#include "platform/dao/Database.h"

namespace tvx {

Query& Query::With(std::int64_t value, std::string_view words) {
    whole_ += std::to_string(value);
    marked_ += '?';
    values_.emplace_back(value);
    return Then(words);
}

Query& Query::Then(std::string_view words) {
    whole_ += words;
    marked_ += words;
    return *this;
}

dao::Recordset Query::Open(dao::Database& database) const {
    return database.OpenRecordset(marked_, values_);
}

} // namespace tvx
