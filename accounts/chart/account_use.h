#pragma once

#include <array>
#include <span>

namespace chengheng {

/// Where the ledger may hold an account.
enum class UsePlace {
    unposted,          ///< 未记帐凭证
    posted,            ///< 已记帐凭证
    sums,              ///< 总帐
    frequentVouchers,  ///< 常用凭证
    digests,           ///< 常用摘要
    transfers,         ///< 转帐定义
    projects,          ///< 项目档案
};

/// Every place, in the order in which they are asked.
inline constexpr std::array usePlaces{
    UsePlace::unposted, UsePlace::posted,    UsePlace::sums,    UsePlace::frequentVouchers,
    UsePlace::digests,  UsePlace::transfers, UsePlace::projects};

/// Those that keep a new account from being put below an account: all but the last.
inline constexpr auto placesOfParent = std::span(usePlaces).first<6>();

/// The place as the messages name it: 未记帐凭证, ...
const char* placeTitle(UsePlace place);

/// What counts as use in the sums.
enum class SumsUse {
    anyRow,        ///< every row, whatever its amounts
    openingMoney,  ///< only an opening balance other than zero
};

}  // namespace chengheng
