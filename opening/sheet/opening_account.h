#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "opening/sheet/auxiliary_kind.h"

namespace chengheng {

/// Books that begin in January keep one figure an account; those that begin later keep the
/// year-start balance and what was posted before the start as well.
enum class OpeningLayout : std::uint8_t { simple, midYear };

/// What is counted: money, and where the account keeps them, foreign currency and quantity.
enum class Measure : std::uint8_t { money, foreign, quantity };

inline constexpr std::array measures{Measure::money, Measure::foreign, Measure::quantity};

/// To which the books round it.
constexpr int decimalsOf(Measure measure) { return measure == Measure::quantity ? 5 : 2; }

/// The figures of one measure. In the simple layout only the opening balance is used.
struct Balance {
    double yearStart = 0;
    double debit = 0;   ///< accumulated from the start of the year
    double credit = 0;  ///< likewise
    double opening = 0;

    bool operator==(const Balance&) const = default;
};

using BalanceFigure = double Balance::*;

inline constexpr std::array<BalanceFigure, 4> balanceFigures{&Balance::yearStart, &Balance::debit,
                                                             &Balance::credit, &Balance::opening};

/// The figures that a layout shows and keeps.
constexpr std::span<const BalanceFigure> figuresOf(OpeningLayout layout) {
    const std::span<const BalanceFigure> all(balanceFigures);
    return layout == OpeningLayout::midYear ? all : all.last(1);
}

using Balances = std::array<Balance, measures.size()>;

/// An account as the opening balances know it.
struct OpeningAccount {
    std::int32_t id = 0;
    std::string code;
    std::string name;
    std::string type;           ///< name of its class
    std::string unit;           ///< of its quantities
    std::uint8_t grade = 0;     ///< level, 1 = top
    std::uint8_t currency = 0;  ///< 0 = home currency only
    bool isEnd = false;         ///< has no accounts below it
    bool isDebit = false;
    bool hasQuantity = false;
    AuxiliaryKind auxiliary = AuxiliaryKind::none;
    std::uint32_t firstLine = 0;  ///< its main line in the sheet
    Balances balances{};

    Balance& balance(Measure measure) { return balances[static_cast<std::size_t>(measure)]; }
    const Balance& balance(Measure measure) const {
        return balances[static_cast<std::size_t>(measure)];
    }
    double opening() const { return balance(Measure::money).opening; }
    bool keeps(Measure measure) const {
        if (measure == Measure::foreign) return currency != 0;
        return measure == Measure::money || hasQuantity;
    }
    /// End accounts with auxiliary accounting get their figures from the auxiliary windows.
    bool isAuxiliary() const { return isEnd && auxiliary != AuxiliaryKind::none; }
};

/// What the opening balance is by the three other figures, rounded: debits raise the balance
/// of a debit account and lower that of a credit account.
double openingByMovements(const Balance& balance, bool isDebit, Measure measure);

/// Whether the opening balance is what the other figures make it.
bool agrees(const Balance& balance, bool isDebit, Measure measure);

/// What the year-start balance is by the three other figures, likewise.
double yearStartByOthers(const Balance& balance, bool isDebit, Measure measure);

/// The name as the sheet lists it: a blank before it for each level from the second to the
/// sixth; any other level is not indented.
std::string openingName(std::string_view name, int grade);

}  // namespace chengheng
