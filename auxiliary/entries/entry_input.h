#pragma once

#include <functional>
#include <span>
#include <string>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/members/auxiliary_member.h"
#include "base/messages/checks.h"

namespace chengheng {

// The fields of the record dialog, by which a refusal names the one that gets the focus.
inline constexpr const char* entryDateField = "dtDate";
inline constexpr const char* entrySignField = "sSign";
inline constexpr const char* entryNumberField = "lNumber";
inline constexpr const char* entrySummaryField = "sDigest";
inline constexpr const char* entryMoneyField = "mMoney";
inline constexpr const char* entryForeignField = "mFgn";
inline constexpr const char* entryQuantityField = "dAmt";
const char* entryField(Dimension dimension);

inline constexpr int entrySummaryWidth = 60;  ///< in characters
inline constexpr int entryNumberWidth = 9;

/// What stands in the fields that the record dialog and the find dialog have in common.
struct EntryFieldTexts {
    std::string date = {};
    std::string sign = {};  ///< code of the voucher type
    std::string number = {};
    std::string summary = {};
    EntryNames names = {};
    std::string money = {};
    std::string foreign = {};
    std::string quantity = {};

    bool operator==(const EntryFieldTexts&) const = default;
};

/// What stands in the record dialog.
struct EntryInput : EntryFieldTexts {
    bool isDebit = false;

    bool operator==(const EntryInput&) const = default;
};

/// The dialog's texts of an entry: the date as 2025-12-31, money with five decimals.
EntryInput entryInput(const AuxiliaryEntry& entry);

/// The last day of the month before the books begin, of which every opening entry is.
Date openingEntryDay(const Date& start);

/// What the checks of an input look at. Names are asked for only when their turn comes.
struct EntryFacts {
    const AuxiliaryMember& member;
    const EntryInput& input;
    Date day;  ///< the last day before the books begin
    std::function<bool(Dimension)> isKnown;
    std::function<bool()> belongTogether;
};

/// In their order; a refusal names the field that gets the focus.
std::span<const Check<EntryFacts>> entryChecks();

/// What a checked input says, without its dimensions: amounts rounded as the books keep them.
EntryContent contentOf(const EntryInput& input);

/// An amount as the dialog leaves it: with five decimals; a text that is no number stays.
std::string rewrittenAmount(const std::string& text);

}  // namespace chengheng
