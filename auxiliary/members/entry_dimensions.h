#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

#include "base/values/exact_sum.h"

namespace chengheng {

/// By what an entry is kept apart.
enum class Dimension : std::uint8_t { department, person, unit, item };

/// To whom or what an entry belongs, by ids; what its account does not keep apart is 0, a
/// person unknown.
struct EntryDimensions {
    std::int32_t department = 0;
    std::optional<std::int32_t> person = {};
    std::int32_t unit = 0;
    std::int32_t item = 0;
    std::string itemClass = {};  ///< code of the project class that the item is of

    auto operator<=>(const EntryDimensions&) const = default;
};

/// What an entry adds to a balance: plus in the direction of its account.
struct EntryFigures {
    double money = 0;
    double foreign = 0;
    double quantity = 0;

    bool operator==(const EntryFigures&) const = default;
};

/// Adds up figures: the sum does not depend on their number or order.
class FigureSums {
  public:
    void add(const EntryFigures& figures);
    /// Rounded as the books round money, foreign currency and quantity.
    EntryFigures total() const;

  private:
    MoneySum m_money;
    MoneySum m_foreign;
    QuantitySum m_quantity;
};

/// The sum, rounded as the books round money, foreign currency and quantity.
EntryFigures operator+(const EntryFigures& one, const EntryFigures& other);
EntryFigures operator-(const EntryFigures& figures);

}  // namespace chengheng
