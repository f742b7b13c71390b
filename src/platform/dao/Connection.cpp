#include "platform/dao/Connection.h"

#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "platform/dao/SelectText.h"
#include "platform/dao/TimeText.h"

#include <algorithm>

namespace tvx::dao {
namespace {

constexpr std::size_t MostKept = 64; // statements

} // namespace

void RequireParameters(std::size_t expected, std::size_t given) {
    if (given == expected) return;
    throw DaoError(error::TooFewParameters, "Too few parameters. Expected " + std::to_string(expected) + ".");
}

StatementUse::StatementUse(Connection& connection, const std::string& sql)
    : connection_(connection), node_(connection.Take(sql)), statement_(*node_.mapped().statement) {}

StatementUse::StatementUse(Connection& connection, const std::string& sql, const std::vector<Value>& values)
    : StatementUse(connection, sql) {
    BindAll(values);
}

StatementUse::~StatementUse() {
    statement_.Reset();
    connection_.GiveBack(std::move(node_));
}

void StatementUse::BindAll(const std::vector<Value>& values) {
    RequireParameters(statement_.ParameterCount(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) Bind(static_cast<int>(i) + 1, values[i]);
}

Value ColumnValue(const Statement& row, int column, FieldType type) {
    if (type == FieldType::Boolean) return std::int64_t{row.Whole(column) != 0 ? -1 : 0};
    switch (row.Kind(column)) {
    case ColumnKind::Nothing:
        return Null{};
    case ColumnKind::Whole:
        return row.Whole(column);
    case ColumnKind::Real:
        return row.Real(column);
    case ColumnKind::Text:
        break;
    }
    return type == FieldType::TimeText ? DecodeTimeText(row.Text(column)) : std::string(row.Text(column));
}

Connection::Connection(std::unique_ptr<Session> session) : session_(std::move(session)) {
    statements_.reserve(MostKept + 1); // so that giving one back needs no memory
}

void Connection::Close() {
    statements_.clear();
    session_.reset();
}

Session& Connection::OpenSession() const {
    if (!session_) throw DaoError(error::ObjectInvalid, "Object invalid or no longer set.");
    return *session_;
}

KeptStatements::node_type Connection::Take(const std::string& sql) {
    const auto known = statements_.find(sql);
    if (known != statements_.end()) return statements_.extract(known);
    std::unique_ptr<Statement> made = OpenSession().Prepare(InDialect(sql, OpenSession().Words()));
    return statements_.extract(statements_.emplace(sql, KeptStatement{std::move(made), 0}));
}

void Connection::GiveBack(KeptStatements::node_type node) {
    if (!session_) return; // closed meanwhile
    node.mapped().lastUse = ++uses_;
    statements_.insert(std::move(node));
    if (statements_.size() <= MostKept) return;
    const auto needed = [](const auto& kept) { return kept.second.lastUse; };
    statements_.erase(std::ranges::min_element(statements_, {}, needed));
}

void Connection::Execute(const std::string& sql) {
    OpenSession().Prepare(InDialect(sql, OpenSession().Words()))->Step();
}

const TableDef& Connection::Table(std::string_view name) {
    const std::string key = UpperCase(name);
    const auto known = tables_.find(key);
    if (known != tables_.end()) return known->second;
    return tables_.emplace(key, OpenSession().ReadTable(std::string(name))).first->second;
}

void Connection::ForgetTables() {
    tables_.clear();
}

} // namespace tvx::dao
