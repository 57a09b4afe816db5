#include <fmt/format.h>

#include "base/values/text.h"
#include "books/newyear/new_year_books.h"
#include "books/newyear/new_year_texts.h"

namespace chengheng {

std::string NewYearPlan::text() const {
    std::string text =
        fmt::format(new_year_texts::heading, printableLine(facts.setName), facts.fromYear,
                    shownLocation(facts.source), facts.year, shownLocation(facts.place));
    std::string items;
    for (const Taken& each : taken)
        items += (items.empty() ? "" : new_year_texts::between) +
                 fmt::format(new_year_texts::takenItem, each.text, each.rows);
    text += new_year_texts::takenOver + items;
    text += new_year_texts::leftOut;
    text += bringsLastRates ? new_year_texts::lastRatesFirst : new_year_texts::freshRates;
    return text + fmt::format(new_year_texts::startsInJanuary, facts.year);
}

}  // namespace chengheng
