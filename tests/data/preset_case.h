#pragma once

#include <string>
#include <vector>

#include "tests/support/voucher_type_books.h"

namespace chengheng {

inline constexpr const char* typesAlreadySet = "凭证类别已经被设置!";

/// What 收款凭证 付款凭证 转帐凭证 writes into books with both accounts.
inline const std::vector<std::string> presetReceipts{
    "1 收 收款凭证 1 1001 1002", "2 付 付款凭证 2 1001 1002", "3 转 转帐凭证 3 1001 1002"};

/// The cash and bank accounts of books without accounts.
inline void addDesignatedAccounts(VoucherTypeBooks& books) {
    books.addAccounts();
    books.run(
        "UPDATE Code SET bCash = 1 WHERE sCode = '1001'\r\n"
        "UPDATE Code SET bBank = 1 WHERE sCode LIKE '1002%'");
}

/// Takes all types away, so that the next one gets the id 1.
inline void removeTypes(VoucherTypeBooks& books) {
    books.run(
        "DELETE Sign WHERE lId > 0\r\nUPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'Sign'");
}

}  // namespace chengheng
