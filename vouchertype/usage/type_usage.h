#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "base/values/date.h"
#include "data/tables/settlement.h"

namespace chengheng {

/// A stored voucher, as the use of its type looks at it.
struct CarriedVoucher {
    std::string type;  ///< its number
    int month = 0;
    std::int32_t number = 0;  ///< counted anew in each month; 0: it has none
    Date date;
    bool isPosted = false;
};

/// What carries voucher types in a set of books.
struct TypeCarriers {
    std::vector<CarriedVoucher> vouchers;
    std::map<std::string, int> openingEntries;  ///< by number of the type
    std::map<std::string, int> transfers;
};

/// The use of a type in a month, or in the whole year.
struct UsageRow {
    std::string type;
    std::string name;
    int month = 0;  ///< 0: the whole year
    int vouchers = 0;
    int unposted = 0;
    std::int32_t firstNumber = 0;  ///< 0: none, as there is none of a year
    std::int32_t lastNumber = 0;
    Date firstDate = {};
    Date lastDate = {};
    std::string remarks =
        {};  ///< numbers that are missing or stand twice; what else carries the type

    bool operator==(const UsageRow&) const = default;
};

/// The use of every type, its year and then the months that have vouchers of it; types that
/// vouchers carry and that are not there come behind those that are. Numbers are counted from 1 in
/// each month, so that what is missing in front of the first is told, too.
std::vector<UsageRow> typeUsage(std::span<const _SignInfo> types, const TypeCarriers& carriers);

}  // namespace chengheng
