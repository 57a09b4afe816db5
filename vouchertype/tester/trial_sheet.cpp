#include "vouchertype/tester/trial_sheet.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/values/text.h"
#include "sheets/headed_columns.h"
#include "vouchertype/tester/tester_texts.h"

namespace chengheng {

namespace texts = tester_texts;

namespace {

using Wanted = std::array<WantedColumn, 3>;

constexpr std::array headingSets{
    Wanted{WantedColumn{texts::accountColumn, "account", true},
           WantedColumn{texts::debitColumn, "debit", true},
           WantedColumn{texts::creditColumn, "credit", true}},
    Wanted{WantedColumn{texts::accountColumn, texts::accountColumnToo, true},
           WantedColumn{texts::debitColumn, texts::debitColumnToo, true},
           WantedColumn{texts::creditColumn, texts::creditColumnToo, true}},
    Wanted{WantedColumn{texts::accountColumn, texts::accountColumnToo, true},
           WantedColumn{texts::sideColumn, "side", true},
           WantedColumn{texts::amountColumn, "amount", true}},
};

/// Where the three columns stand, from 0, and where the lines begin.
struct Columns {
    std::size_t firstRow = 0;
    std::array<std::size_t, 3> places{0, 1, 2};
};

std::optional<SheetFailure> findColumns(const Sheet& sheet, Columns& columns) {
    for (const Wanted& wanted : headingSets) {
        if (std::ranges::none_of(
                sheet.rows, [&wanted](const SheetRow& row) { return isHeadingRow(row, wanted); }))
            continue;
        HeadedColumns found;
        if (auto failure = findHeadings(sheet, wanted, texts::noColumns, found)) return failure;
        columns.firstRow = found.headingRow;
        std::ranges::transform(found.places, columns.places.begin(),
                               [](std::size_t place) { return place - 1; });
        return std::nullopt;
    }
    return std::nullopt;
}

bool isOneOf(std::string_view text, const char* one, const char* other) {
    return text == one || text == other;
}

/// A line whose second column is a side has its amount in the third.
void putOnItsSide(TrialLine& line) {
    if (isOneOf(line.debit, texts::debit, texts::debitColumn)) {
        line.debit = std::exchange(line.credit, {});
    } else if (isOneOf(line.debit, texts::credit, texts::creditColumn)) {
        line.debit.clear();
    }
}

}  // namespace

std::optional<SheetFailure> readTrialLines(const Sheet& sheet, std::vector<TrialLine>& lines) {
    lines.clear();
    Columns columns;
    if (auto failure = findColumns(sheet, columns)) return failure;
    for (std::size_t row = columns.firstRow; row < sheet.rows.size(); ++row) {
        const auto textAt = [&](std::size_t column) {
            return std::string(
                withoutBlanksAround(cellText(sheet.at(row, columns.places[column]))));
        };
        TrialLine line{static_cast<int>(row) + 1, textAt(0), textAt(1), textAt(2)};
        putOnItsSide(line);
        if (!line.isBlank()) lines.push_back(std::move(line));
    }
    return std::nullopt;
}

}  // namespace chengheng
