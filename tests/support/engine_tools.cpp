#include "tests/support/engine_tools.h"

#include <stdexcept>

namespace chengheng {
namespace {

std::vector<std::string> rowOf(const Cursor& cursor) {
    std::vector<std::string> row;
    for (int column = 0; column < cursor.columns(); ++column) {
        const bool isNull = cursor.kind(column) == ValueKind::null;
        row.emplace_back(isNull ? "NULL" : cursor.text(column));
    }
    return row;
}

}  // namespace

Status runSql(Engine& engine, std::string_view sql, std::initializer_list<Value> values) {
    std::unique_ptr<PreparedStatement> statement;
    Status status = engine.prepare(sql, static_cast<int>(values.size()), statement);
    if (!status) return status;
    const Command command{statement.get(), {values.begin(), values.size()}};
    return engine.execute({&command, 1});
}

std::vector<std::vector<std::string>> readSql(Engine& engine, std::string_view sql,
                                              std::initializer_list<Value> values) {
    std::unique_ptr<PreparedStatement> statement;
    Status status = engine.prepare(sql, static_cast<int>(values.size()), statement);
    std::unique_ptr<Cursor> cursor;
    if (status) status = engine.open({statement.get(), {values.begin(), values.size()}}, cursor);
    if (!status) throw std::runtime_error(status.detail);
    std::vector<std::vector<std::string>> rows;
    Cursor::Step step = cursor->next();
    for (; step == Cursor::Step::row; step = cursor->next()) rows.push_back(rowOf(*cursor));
    if (step == Cursor::Step::failed) throw std::runtime_error(cursor->status().detail);
    return rows;
}

std::string readCell(Engine& engine, std::string_view sql) {
    const auto rows = readSql(engine, sql);
    if (rows.size() != 1 || rows[0].size() != 1) throw std::runtime_error("not one cell");
    return rows[0][0];
}

}  // namespace chengheng
