#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "books/list/books_registry.h"
#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/tables/books.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/recording_messages.h"

namespace chengheng {

/// The parameters of the books below as they are made: 甲帐套 of 2026 from January on, with foreign
/// currency.
inline _zAccountMInfo madeParameters() {
    return {.lId = 1,
            .sName = "甲帐套",
            .sCompany = "甲公司",
            .dtStart = {2026, 1, 1},
            .sCodeLen = "4222",
            .bFgn = 1,
            .lYear = 2026};
}

/// Books with parameters and nothing else, in a list of their own, that an operator works on.
struct ParametersBooks {
    explicit ParametersBooks(const std::string& location) {
        openNewBooks(database, location);
        addParameters();
        list(location);
    }
    /// On an engine made elsewhere, whose database has its tables, and perhaps its parameters.
    ParametersBooks(std::unique_ptr<Engine> engine, const std::string& location) {
        database.adopt(std::move(engine), location.c_str(), "books");
        mustBe(database.DBSelect("books") != 0);
        addParameters();
        list(location);
    }

    void run(const std::string& batch) { mustBe(database.QRYExecuteSQL(batch) != 0); }
    _zAccountMInfo stored() {
        const auto rows = readRows<_zAccountMInfo>(database, "ORDER BY lId");
        return rows.empty() ? _zAccountMInfo() : rows.front();
    }
    std::vector<BooksSet> listed() const {
        std::vector<BooksSet> sets;
        mustBe(registry.read(sets).isDone());
        return sets;
    }
    bool holdsLocks() {
        LockService& locks = *database.lockService();
        for (const char* name : {"Code", "AccSum", "AssAcc", "Cyrency", "RegMain", "RegSub",
                                 "UnRegMain", "UnRegSub", "zAccountM"})
            if (locks.holds(name, LockMode::shared) || locks.holds(name, LockMode::exclusive))
                return true;
        return false;
    }

    CNbCwDB database;
    RecordingMessages messages;
    HostMessages installed{messages};
    HostSession session{{.database = &database,
                         .databaseName = "books",
                         .setName = "甲帐套",
                         .logonUser = {1, 1, 1, 1, "王芳"}}};
    BooksRegistry registry{freshFolder()};

  private:
    static void mustBe(bool isDone) {
        if (!isDone) throw std::runtime_error("the books for the test cannot be made");
    }
    void addParameters() {
        if (stored().lId != 0) return;
        run("INSERT Users VALUES( 1, 1, '王芳', 1, '' )");
        run("INSERT INTO zAccountM VALUES( 1, '甲帐套', '甲公司', '2026/1/1', '4222', 1, 2026 )");
    }
    void list(const std::string& location) {
        RegistryChange change(registry);
        change.enter({1, "甲帐套", "甲公司", {}}, {2026, location});
        mustBe(change.save().isDone());
    }
};

}  // namespace chengheng
