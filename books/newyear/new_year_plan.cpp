#include <fmt/format.h>

#include "base/values/text.h"
#include "books/newyear/new_year_books.h"
#include "books/newyear/new_year_texts.h"

namespace chengheng {

std::string NewYearPlan::text() const {
    return fmt::format(new_year_texts::heading, printableLine(facts.setName), facts.fromYear,
                       shownLocation(facts.source), facts.year, shownLocation(facts.place)) +
           contentText();
}

std::string NewYearPlan::contentText() const {
    std::string items;
    for (const Taken& each : taken)
        items += (items.empty() ? "" : new_year_texts::between) +
                 fmt::format(new_year_texts::takenItem, each.text, each.rows);
    return new_year_texts::takenOver + items + new_year_texts::leftOut +
           (isCarriedInto ? new_year_texts::carriedAtOnce : new_year_texts::carriedLater) +
           (bringsLastRates ? new_year_texts::lastRatesFirst : new_year_texts::freshRates) +
           fmt::format(new_year_texts::startsInJanuary, facts.year);
}

}  // namespace chengheng
