#include "tests/support/settle_books.h"

#include <sstream>

#include "data/access/row_lease.h"
#include "data/tables/settlement.h"

namespace chengheng {

void SettleBooks::insert(const std::vector<std::string>& methods) {
    for (const std::string& text : methods) {
        std::istringstream words(text);
        _SettleInfo method;
        words >> method.sStlId >> method.sSettle >> method.bNote;
        int id = 0;
        mustBe(database.Settle_AddNew(method, id) == 0);
    }
}

std::vector<std::string> SettleBooks::stored() {
    std::vector<std::string> texts;
    for (const _SettleInfo& method : readRows<_SettleInfo>(database, "ORDER BY lId"))
        texts.push_back(std::to_string(method.lId) + ' ' + method.sStlId + ' ' + method.sSettle +
                        ' ' + std::to_string(method.bNote));
    return texts;
}

}  // namespace chengheng
