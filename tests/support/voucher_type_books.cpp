#include "tests/support/voucher_type_books.h"

#include <fmt/format.h>

#include <sstream>

#include "data/access/row_lease.h"
#include "data/tables/settlement.h"

namespace chengheng {

void VoucherTypeBooks::addAccounts() {
    run("INSERT Code (lId, sCode, sName, byGrade) VALUES(1, '1001', '库存现金', 1)\r\n"
        "INSERT Code (lId, sCode, sName, byGrade) VALUES(2, '1012', '其他货币资金', 1)\r\n"
        "INSERT Code (lId, sCode, sName, byGrade) VALUES(3, '1002', '银行存款', 1)\r\n"
        "INSERT Code (lId, sCode, sName, byGrade) VALUES(4, '100201', '工行', 2)");
}

void VoucherTypeBooks::insert(const std::vector<std::string>& types) {
    for (const std::string& text : types) {
        std::istringstream words(text);
        _SignInfo type;
        int kind = 0;
        words >> type.sSign >> type.sSignName >> kind >> type.sCode1 >> type.sCode2;
        type.byLimit = static_cast<std::uint8_t>(kind);
        int id = 0;
        mustBe(database.Sign_AddNew(type, id) == 0);
    }
}

std::vector<std::string> VoucherTypeBooks::stored() {
    std::vector<std::string> texts;
    for (const _SignInfo& type : readRows<_SignInfo>(database, "ORDER BY lId")) {
        std::string text =
            fmt::format("{} {} {} {}", type.lId, type.sSign, type.sSignName, type.byLimit);
        for (const std::string& account : {type.sCode1, type.sCode2})
            if (!account.empty()) text += ' ' + account;
        texts.push_back(std::move(text));
    }
    return texts;
}

}  // namespace chengheng
