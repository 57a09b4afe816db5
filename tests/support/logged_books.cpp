#include "tests/support/logged_books.h"

#include <stdexcept>

#include "data/tables/operation_log_tables.h"
#include "tests/support/made_layout.h"

namespace chengheng {
namespace {

void succeed(const Status& status) {
    if (!status) throw std::runtime_error(status.detail);
}

LogAuthor author(const std::string& name, int id) {
    return {.operatorId = id,
            .operatorName = name,
            .workstation = "财务1",
            .process = 4711,
            .program = "chengheng 1.0"};
}

}  // namespace

LoggedBooks::LoggedBooks(const std::string& location) : m_location(location) {
    auto engine = openForTest(location);
    makeLayout(*engine);
    m_database = std::make_unique<Database>(std::move(engine), location);
    m_database->keepLog(author("王芳", 7));
}

void LoggedBooks::actAs(const std::string& operatorName, int id) {
    m_database->log()->changeAuthor(author(operatorName, id));
}

void LoggedBooks::change(std::string_view batch, const std::string& words, int function) {
    m_database->log()->say({.function = function, .text = words});
    succeed(m_database->executeBatch(batch));
}

void LoggedBooks::tamper(std::string_view script) {
    const EngineDialect& dialect = engine().dialect();
    std::string unguarded;
    std::string guarded;
    for (const TableInfo* table : {&operationLogTable(), &operationLogPartTable()}) {
        if (dialect.guardOff == nullptr) continue;
        unguarded += dialect.guardOff(table->name);
        guarded += dialect.guardOn(table->name);
    }
    succeed(engine().script(unguarded + std::string(script)));
    if (!guarded.empty()) succeed(engine().script(guarded));
}

}  // namespace chengheng
