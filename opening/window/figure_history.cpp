#include "opening/window/figure_history.h"

#include <fmt/format.h>

#include "operationlog/history/figure_subject.h"
#include "operationlog/history/history_texts.h"
#include "screen/history/history_window.h"

namespace chengheng {

void showFigureHistory(OpeningGrid& grid, const OpeningSheet& sheet) {
    const std::size_t column = grid.isOnFigure() ? grid.currentColumn() : grid.openingColumn();
    const OpeningColumn& shownColumn = sheet.columns()[column];
    const OpeningAccount& account = sheet.accountOfLine(grid.currentLine());
    std::string header = shownColumn.header;
    std::erase(header, '\n');
    HistoryWindow({fmt::format(history_texts::figure, account.code, account.name, header),
                   figureSubject(account.id, sheet.line(grid.currentLine()).measure,
                                 figureOf(shownColumn.field), sheet.layout())},
                  grid.window())
        .DoModal();
}

}  // namespace chengheng
