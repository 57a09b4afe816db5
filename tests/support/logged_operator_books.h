#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "data/connection/database.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/operator_books.h"

namespace chengheng {

/// Books of the supervisor 张三 whose changes are logged; made on an engine that may fail.
struct LoggedOperatorBooks {
    explicit LoggedOperatorBooks(std::unique_ptr<FaultyEngine> engine)
        : faulty(engine.get()), books(std::move(engine)) {
        emptyLog();
        log().keepLog({.operatorId = 1,
                       .operatorName = "张三",
                       .workstation = "财务1",
                       .process = 4711,
                       .program = "chengheng 1.0"});
    }
    /// What made the books is not told.
    void emptyLog() {
        const EngineDialect& dialect = faulty->dialect();
        std::string script = "DELETE FROM OperationLogHead;\n";
        for (const char* table : {"OperationLog", "OperationLogPart"}) {
            if (dialect.guardOff != nullptr) script += dialect.guardOff(table);
            script += std::string("DELETE FROM ") + table + ";\n";
            if (dialect.guardOn != nullptr) script += dialect.guardOn(table);
        }
        if (Status status = faulty->real().script(script); !status)
            throw std::runtime_error(status.detail);
    }
    Database& log() { return *books.database.selectedDatabase(); }
    void change(const std::string& batch, const std::string& words = "", int function = 0) {
        log().log()->say({.function = function, .text = words});
        if (Status status = log().executeBatch(batch); !status)
            throw std::runtime_error(status.detail);
    }
    void actAs(const std::string& name, int id) {
        log().log()->changeAuthor({.operatorId = id,
                                   .operatorName = name,
                                   .workstation = "财务2",
                                   .process = 9,
                                   .program = "chbooks 1.0"});
    }
    /// So many changes of a settlement method, each an entry.
    void flood(int count) {
        change("INSERT Settle VALUES( 90, '9', '', 0 )", "增加结算方式 9", 57);
        for (int turn = 2; turn <= count; ++turn)
            change("Update Settle Set sSettle = '" + std::to_string(turn) + "' Where lId = 90",
                   "修改结算方式 9", 57);
    }

    FaultyEngine* faulty;
    OperatorBooks books;
};

}  // namespace chengheng
