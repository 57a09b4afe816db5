#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "data/tables/table.h"

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

namespace chengheng {

template <>
struct TableOf<_AutoMainInfo> {
    static constexpr const char* name = "AutoMain";
    static constexpr const char* idRow = "AutoMain";
    static constexpr std::array<const char*, 1> indexes{"sSign"};
    static constexpr auto columns = std::tuple{
        column("lId", &_AutoMainInfo::lId),
        column("sSign", &_AutoMainInfo::sSign),
        column("sName", &_AutoMainInfo::sName),
    };
};

template <>
struct TableOf<_AutoSubInfo> {
    static constexpr const char* name = "AutoSub";
    static constexpr const char* idRow = "AutoSub";
    static constexpr std::array<const char*, 1> indexes{"lCodeId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_AutoSubInfo::lId),         column("lTieId", &_AutoSubInfo::lTieId),
        column("lCodeId", &_AutoSubInfo::lCodeId), column("sDigest", &_AutoSubInfo::sDigest),
        column("bDirect", &_AutoSubInfo::bDirect), column("sFormula", &_AutoSubInfo::sFormula),
    };
};

template <>
struct TableOf<_FreqSubInfo> {
    static constexpr const char* name = "FreqSub";
    static constexpr const char* idRow = "FreqSub";
    static constexpr std::array<const char*, 1> indexes{"lCodeId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_FreqSubInfo::lId),         column("lTieId", &_FreqSubInfo::lTieId),
        column("lCodeId", &_FreqSubInfo::lCodeId), column("sDigest", &_FreqSubInfo::sDigest),
        column("bDirect", &_FreqSubInfo::bDirect), column("mMoney", &_FreqSubInfo::mMoney),
    };
};

template <>
struct TableOf<__DigestInfo> {
    static constexpr const char* name = "_Digest";
    static constexpr const char* idRow = "_Digest";
    static constexpr std::array<const char*, 1> indexes{"lCodeId"};
    static constexpr auto columns = std::tuple{
        column("lId", &__DigestInfo::lId),
        column("lCodeId", &__DigestInfo::lCodeId),
        column("sDigest", &__DigestInfo::sDigest),
    };
};

}  // namespace chengheng
