#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

// The demo books as tables: a small trading firm in Nanjing on 1 January 2026. Nothing here
// names a real company or person.

namespace chengheng::demo {

inline constexpr const char* setName = "演示帐套";
inline constexpr const char* company = "南京清和商贸有限公司";
inline constexpr const char* supervisor = "陈静";
inline constexpr const char* bookkeeper = "李明";
inline constexpr const char* password = "demo-2026";
inline constexpr const char* levelPattern = "4222";
inline constexpr std::int16_t year = 2026;
inline constexpr const char* cashAccount = "1001";
inline constexpr const char* bankAccount = "1002";

struct Currency {
    const char* symbol;
    const char* name;
    std::uint8_t rateDecimals;
    std::array<double, 12> monthlyRates;
};
std::span<const Currency> currencies();

/// An account below one of the statutory ones, or what is set on such a one.
struct Account {
    const char* code;
    const char* name;           ///< null: the account is there, only the rest is set
    const char* letters = "";   ///< its auxiliary books
    const char* currency = "";  ///< symbol
    const char* unit = "";      ///< of its quantities
    const char* mnemonic = "";
};
/// Parents before their children.
std::span<const Account> accounts();

/// A department, a class of units or of projects.
struct Named {
    const char* code;
    const char* name;
};
/// A person of a department, a unit of a class, an item of a project class.
struct Member {
    const char* group;
    const char* code;
    const char* name;
};
std::span<const Named> departments();
std::span<const Member> persons();
inline constexpr std::string_view customerClass = "01";
std::span<const Named> unitClasses();
std::span<const Member> units();
std::span<const Named> projectClasses();
std::span<const Member> projectItems();
/// The accounts that take projects, with the class.
std::span<const Named> projectAccounts();

struct VoucherType {
    const char* number;
    const char* name;
    std::uint8_t restriction;
};
std::span<const VoucherType> voucherTypes();

struct Settlement {
    const char* number;
    const char* name;
    bool isInChequeRegister;
};
std::span<const Settlement> settlements();

struct Operator {
    const char* name;
    std::span<const int> rights;  ///< numbers of functions
};
/// Besides the supervisor.
std::span<const Operator> operators();

/// The opening balance of an end account without auxiliary accounting.
struct Opening {
    const char* code;
    double money;
    double foreign = 0;
    double quantity = 0;
};
std::span<const Opening> openings();

/// An opening entry of an account with auxiliary accounting; dimensions by name.
struct Entry {
    const char* code;
    const char* digest;
    double money;
    const char* department = "";
    const char* person = "";
    const char* unit = "";
    const char* item = "";
};
std::span<const Entry> entries();

/// A line of a voucher; the unit by name.
struct VoucherLine {
    const char* code;
    bool isDebit;
    double money;
    const char* unit = "";
    double quantity = 0;
};
/// A voucher of January that is not posted yet, so that opening balances can still be edited.
struct Voucher {
    const char* type;
    std::int32_t number;
    std::uint8_t day;
    const char* digest;
    std::span<const VoucherLine> lines;
};
/// Receipt 3 is missing, and a transfer takes from the bank what a transfer may not.
std::span<const Voucher> vouchers();

struct Digest {
    const char* code;
    const char* text;
};
std::span<const Digest> digests();

/// A line of the frequent voucher or of the transfer definition.
struct DefinitionLine {
    const char* code;
    const char* digest;
    bool isDebit;
    const char* formula;
};
inline constexpr const char* transferName = "结转本月销售成本";
inline constexpr const char* transferVoucherType = "转";
std::span<const DefinitionLine> transferLines();
std::span<const DefinitionLine> frequentVoucherLines();

}  // namespace chengheng::demo
