#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/values/date.h"
#include "data/tables/records.h"

namespace chengheng {

/// An opening entry as one read gives it: its line, and of its header what is shown; of a header
/// that is gone the defaults.
struct EntryRow {
    std::int32_t lId = 0;
    std::int32_t lTieId = 0;
    std::string sDigest;
    std::int16_t bDirect = 0;
    double mMoney = 0;
    double mFgn = 0;
    double dAmt = 0;
    std::int32_t lDeptId = 0;
    std::optional<std::int32_t> lPersonId;
    std::int32_t lEnterId = 0;
    std::int32_t lItemId = 0;
    std::string sItemId;
    Date dtDate;
    std::string sSign;
    std::int32_t lNumber = 0;
};

template <>
const RecordType& recordTypeOf<EntryRow>();

}  // namespace chengheng
