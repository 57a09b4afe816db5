#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "currency/opening_rate.h"
#include "opening/sheet/edit_journal.h"
#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// A figure of an account and what was typed for it.
struct TypedFigure {
    std::int32_t accountId = 0;
    Measure measure = Measure::money;
    BalanceFigure figure = &Balance::opening;
    double value = 0;
};

/// The rate of the opening balances in a currency; nothing where none is known.
using HomeRateOf = std::function<std::optional<HomeRate>(int currencyId)>;

/// The step that sets these figures. A figure that is typed as it stands has a part in it, because
/// the books may hold another one by now; so has a figure of an account that the sheet does not
/// hold, for the writing to refuse.
///
/// In books that begin mid-year a figure that nobody gave is worked out when another of its line
/// changes: the opening balance while it agrees with the others and was not typed, now or in
/// `earlier`; else the year-start balance while it is 0 or was itself worked out. Movements never
/// are, and what was given is never replaced: such a line disagrees, and is marked.
///
/// Where there is something to ask for rates, a typed opening balance in foreign currency proposes
/// the one in home currency, while that is 0 or was itself worked out, and was not typed.
EditStep typedStep(const OpeningSheet& sheet, std::span<const TypedFigure> typed,
                   const EditJournal& earlier = {}, const HomeRateOf& rateOf = {});

}  // namespace chengheng
