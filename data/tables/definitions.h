#pragma once

#include <cstdint>
#include <string>

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

/// Header of an automatic transfer definition.
struct _AutoMainInfo {
    std::int32_t lId = 0;
    std::string sSign;  ///< voucher type
    std::string sName;

    bool operator==(const _AutoMainInfo&) const = default;
};

/// Line of an automatic transfer definition.
struct _AutoSubInfo {
    std::int32_t lId = 0;
    std::int32_t lTieId = 0;
    std::int32_t lCodeId = 0;  ///< account
    std::string sDigest;
    std::int16_t bDirect = 0;
    std::string sFormula;

    bool operator==(const _AutoSubInfo&) const = default;
};

/// Line of a frequent voucher.
struct _FreqSubInfo {
    std::int32_t lId = 0;
    std::int32_t lTieId = 0;
    std::int32_t lCodeId = 0;  ///< account
    std::string sDigest;
    std::int16_t bDirect = 0;
    double mMoney = 0;

    bool operator==(const _FreqSubInfo&) const = default;
};

/// A frequent summary, with the account it proposes.
struct __DigestInfo {
    std::int32_t lId = 0;
    std::int32_t lCodeId = 0;  ///< account
    std::string sDigest;

    bool operator==(const __DigestInfo&) const = default;
};
