#include "accounts/screen/where_used.h"

#include <span>

#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "accounts/chart/where_used_sql.h"
#include "accounts/screen/chart_texts.h"
#include "base/values/numbers.h"
#include "data/access/host_database.h"
#include "data/access/selected_cells.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

enum class Shown { asItIs, amount, direction };

struct UseColumn {
    const char* heading;
    Shown shown = Shown::asItIs;
};

constexpr UseColumn voucherColumns[]{{chart_texts::codeColumn},
                                     {chart_texts::periodColumn},
                                     {chart_texts::dateColumn},
                                     {chart_texts::signColumn},
                                     {chart_texts::numberColumn},
                                     {chart_texts::digestColumn},
                                     {chart_texts::directionColumn, Shown::direction},
                                     {chart_texts::amountColumn, Shown::amount}};
constexpr UseColumn sumColumns[]{{chart_texts::codeColumn},
                                 {chart_texts::periodColumn},
                                 {chart_texts::openingColumn, Shown::amount},
                                 {chart_texts::debitColumn, Shown::amount},
                                 {chart_texts::creditColumn, Shown::amount}};
constexpr UseColumn frequentColumns[]{{chart_texts::codeColumn},
                                      {chart_texts::frequentColumn},
                                      {chart_texts::digestColumn},
                                      {chart_texts::directionColumn, Shown::direction},
                                      {chart_texts::amountColumn, Shown::amount}};
constexpr UseColumn digestColumns[]{{chart_texts::codeColumn}, {chart_texts::digestColumn}};
constexpr UseColumn transferColumns[]{{chart_texts::codeColumn},
                                      {chart_texts::transferColumn},
                                      {chart_texts::digestColumn},
                                      {chart_texts::directionColumn, Shown::direction}};
constexpr UseColumn projectColumns[]{
    {chart_texts::codeColumn}, {chart_texts::projectCodeColumn}, {chart_texts::projectColumn}};

std::span<const UseColumn> columnsOf(UsePlace place) {
    switch (place) {
        case UsePlace::unposted:
        case UsePlace::posted:
            return voucherColumns;
        case UsePlace::sums:
            return sumColumns;
        case UsePlace::frequentVouchers:
            return frequentColumns;
        case UsePlace::digests:
            return digestColumns;
        case UsePlace::transfers:
            return transferColumns;
        case UsePlace::projects:
            break;
    }
    return projectColumns;
}

std::string shownText(const SelectedCells& cells, int row, int column, Shown shown) {
    if (cells.cell(row, column) == nullptr) return {};
    switch (shown) {
        case Shown::asItIs:
            break;
        case Shown::amount:
            return ftoaWithSap(cells.number<double>(row, column), 2);
        case Shown::direction:
            return cells.number<double>(row, column) != 0 ? account_texts::debit
                                                          : account_texts::credit;
    }
    return std::string(cells.text(row, column));
}

Status readRows(std::span<const int> ids, UseSection& section) {
    const auto columns = columnsOf(section.place);
    for (const UseColumn& column : columns) section.headings.emplace_back(column.heading);
    const SelectedCells cells(*g_pDB, where_used_sql::rows(section.place, ids, mostUsesListed));
    if (!cells.isRead()) return g_pDB->lastStatus();
    for (int row = 0; row < cells.rows(); ++row) {
        std::vector<std::string>& texts = section.rows.emplace_back();
        for (const UseColumn& column : columns)
            texts.push_back(shownText(cells, row, static_cast<int>(texts.size()), column.shown));
    }
    return Status::done();
}

}  // namespace

Status findUses(std::string_view code, std::vector<UseSection>& sections) {
    sections.clear();
    Status status = selectOpenBooks();
    if (!status) return status;
    StoredChart chart(*g_pDB);
    const std::vector<int> ids = chart.idsWithBelow(code);
    if (ids.empty()) return chart.status();
    for (const UsePlace place : usePlaces) {
        const SelectedCells counted(*g_pDB, where_used_sql::count(place, ids));
        if (!counted.isRead()) return g_pDB->lastStatus();
        UseSection section{.place = place, .title = placeTitle(place)};
        if (counted.rows() > 0) section.count = counted.number<decltype(section.count)>(0, 0);
        if (section.count == 0) continue;
        status = readRows(ids, section);
        if (!status) return status;
        sections.push_back(std::move(section));
    }
    return status;
}

}  // namespace chengheng
