#include "tests/support/operated_books.h"

#include <sstream>
#include <stdexcept>

#include "data/access/row_lease.h"
#include "data/tables/operators.h"
#include "tests/support/made_layout.h"

namespace chengheng {
namespace {

SessionFacts factsOf(CNbCwDB& database, int year) {
    return {.database = &database,
            .databaseName = "books",
            .logonUser = {1, 1, 1, 1, "王芳"},
            .logonTime = {.day = {static_cast<std::int16_t>(year), 5, 31}}};
}

}  // namespace

OperatedBooks::OperatedBooks(const std::string& location, bool isNew, int year)
    : session(factsOf(database, year)) {
    if (isNew) {
        openNewBooks(database, location);
        enterOperator();
        return;
    }
    NbCwDBInfo info;
    mustBe(database.DBOpen(info, location.c_str(), "books", 1) != 0);
    mustBe(database.DBSelect("books") != 0);
}

OperatedBooks::OperatedBooks(std::unique_ptr<Engine> engine, int year)
    : session(factsOf(database, year)) {
    database.adopt(std::move(engine), "books", "books");
    mustBe(database.DBSelect("books") != 0);
    enterOperator();
}

void OperatedBooks::enterOperator() {
    if (readRows<_UsersInfo>(database, "lUserId = 1").empty())
        run("INSERT Users VALUES( 1, 1, '王芳', 1, '' )");
}

void OperatedBooks::run(const std::string& batch) { mustBe(database.QRYExecuteSQL(batch) != 0); }

void OperatedBooks::mustBe(bool isDone) const {
    if (!isDone) throw std::runtime_error(database.lastStatus().detail);
}

bool OperatedBooks::holdsLocksOf(const std::string& tables) {
    LockService& locks = *database.lockService();
    std::istringstream names(tables);
    for (std::string name; names >> name;)
        if (locks.holds(name, LockMode::shared) || locks.holds(name, LockMode::exclusive))
            return true;
    return false;
}

}  // namespace chengheng
