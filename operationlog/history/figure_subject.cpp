#include "operationlog/history/figure_subject.h"

#include <array>

namespace chengheng {
namespace {

/// The columns of a measure: what a period begins with, its debits and its credits.
using FigureColumns = std::array<const char*, 3>;

constexpr std::array<FigureColumns, measures.size()> columnsOfMeasures{
    FigureColumns{"mBegin", "mDebet", "mCredit"},  // sic
    FigureColumns{"mFgnBegin", "mFgnDebet", "mFgnCredit"},
    FigureColumns{"dAmtBegin", "dAmtDebet", "dAmtCredit"}};

}  // namespace

HistorySubject figureSubject(std::int32_t account, Measure measure, BalanceFigure figure,
                             OpeningLayout layout) {
    const FigureColumns& columns = columnsOfMeasures.at(static_cast<std::size_t>(measure));
    const std::size_t column = figure == &Balance::debit ? 1 : figure == &Balance::credit ? 2 : 0;
    // Where the year begins before the books, its first period holds what came before them.
    const bool isBehindFirst = layout == OpeningLayout::midYear && figure == &Balance::opening;
    return {.table = "AccSum",
            .column = columns.at(column),
            .balances = BalancesOf{account, isBehindFirst ? 2 : 1}};
}

}  // namespace chengheng
