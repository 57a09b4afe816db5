#include "tests/support/settle_books.h"

#include <sstream>
#include <stdexcept>

#include "data/access/row_lease.h"
#include "data/tables/settlement.h"
#include "tests/support/made_layout.h"

namespace chengheng {
namespace {

void mustBe(CNbCwDB& database, bool isDone) {
    if (!isDone) throw std::runtime_error(database.lastStatus().detail);
}

}  // namespace

SettleBooks::SettleBooks(const std::string& location, bool isNew) {
    if (isNew) {
        openNewBooks(database, location);
        return;
    }
    NbCwDBInfo info;
    mustBe(database, database.DBOpen(info, location.c_str(), "books", 1) != 0);
    mustBe(database, database.DBSelect("books") != 0);
}

SettleBooks::SettleBooks(std::unique_ptr<Engine> engine) {
    database.adopt(std::move(engine), "books", "books");
    mustBe(database, database.DBSelect("books") != 0);
}

void SettleBooks::run(const std::string& batch) {
    mustBe(database, database.QRYExecuteSQL(batch) != 0);
}

void SettleBooks::insert(const std::vector<std::string>& methods) {
    for (const std::string& text : methods) {
        std::istringstream words(text);
        _SettleInfo method;
        words >> method.sStlId >> method.sSettle >> method.bNote;
        int id = 0;
        mustBe(database, database.Settle_AddNew(method, id) == 0);
    }
}

std::vector<std::string> SettleBooks::stored() {
    std::vector<std::string> texts;
    for (const _SettleInfo& method : readRows<_SettleInfo>(database, "ORDER BY lId"))
        texts.push_back(std::to_string(method.lId) + ' ' + method.sStlId + ' ' + method.sSettle +
                        ' ' + std::to_string(method.bNote));
    return texts;
}

bool SettleBooks::holdsLocks() {
    LockService& locks = *database.lockService();
    for (const char* name : {"RecpBank", "RecpEnter", "UnregMain", "UnregSub", "Settle"}) {
        if (locks.holds(name, LockMode::shared) || locks.holds(name, LockMode::exclusive))
            return true;
    }
    return false;
}

}  // namespace chengheng
