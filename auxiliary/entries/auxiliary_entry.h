#pragma once

#include <cstdint>
#include <string>

#include "auxiliary/members/entry_dimensions.h"
#include "base/values/date.h"

namespace chengheng {

/// The account whose opening balance is entered, as its window knows it.
struct AuxiliaryAccount {
    std::int32_t id = 0;
    std::string code = {};
    std::string name = {};
    bool isDebit = false;
    bool hasForeign = false;
    bool hasQuantity = false;
};

/// What an opening entry says; the amounts are those of its own direction.
struct EntryContent {
    Date date = {};
    std::string sign = {};    ///< voucher type; may be empty
    std::int32_t number = 0;  ///< of the voucher; 0: none
    std::string summary = {};
    EntryDimensions of = {};
    bool isDebit = false;
    double money = 0;
    double foreign = 0;
    double quantity = 0;

    bool operator==(const EntryContent&) const = default;
};

/// The names that the dimensions of an entry have now; empty where one has vanished.
struct EntryNames {
    std::string department;
    std::string person;
    std::string unit;
    std::string item;

    bool operator==(const EntryNames&) const = default;
};

/// An opening entry in the books.
struct AuxiliaryEntry {
    std::int32_t lineId = 0;
    std::int32_t headerId = 0;
    EntryContent content;
    EntryNames names;

    bool operator==(const AuxiliaryEntry&) const = default;
};

/// What an entry adds to its account: plus in the account's own direction, rounded.
EntryFigures figuresOf(const EntryContent& content, const AuxiliaryAccount& account);

/// The name of a dimension of an entry.
const std::string& nameOf(const EntryNames& names, Dimension dimension);
std::string& nameOf(EntryNames& names, Dimension dimension);

/// "记-0001", or "0001" without a voucher type; empty without a number and a type.
std::string voucherNumberText(const EntryContent& content);

}  // namespace chengheng
