#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/values/date.h"

namespace chengheng {

enum class Alignment : std::uint8_t { left, center, right };

struct ReportColumn {
    std::string heading;
    std::string field;  ///< what fills it, by name; empty: its position says it
    int width = 0;      ///< in characters; a Chinese one counts as two
    Alignment alignment = Alignment::left;
};

/// A line under the title, such as "科目:1122" at its left and "打印日期:2026.05.31" at its right.
struct HeadingLine {
    std::string left;
    std::string middle = {};
    std::string right = {};
};

/// What the layout of a page may name in its header and footer.
struct ReportFacts {
    std::string company;
    std::string setName;
    std::string operatorName;
    Date day;  ///< of printing
};

struct PageSettings {
    std::uint8_t paper = 0;  ///< number of the print systems; 0: as the layout file says
    bool isPortrait = true;
};

/// A cell; nothing where the cell is absent.
using ReportCell = std::optional<std::string>;

/// A list as it is printed, previewed and exported: everything but how a page looks, which is
/// the matter of the layout file.
struct Report {
    std::string title;
    std::vector<HeadingLine> lines;
    std::vector<ReportColumn> columns;
    std::size_t keyColumn = 0;      ///< the one that tells the rows apart
    std::vector<ReportCell> cells;  ///< row by row
    PageSettings page;
    ReportFacts facts;
    std::string layoutFile = "Normal.rpn";

    std::size_t rowCount() const { return columns.empty() ? 0 : cells.size() / columns.size(); }
    const ReportCell& cell(std::size_t row, std::size_t column) const {
        return cells[row * columns.size() + column];
    }
    /// Adds a row; cells beyond the last column are left out, missing ones are absent.
    void addRow(std::vector<ReportCell> row) {
        row.resize(columns.size());
        for (ReportCell& cell : row) cells.push_back(std::move(cell));
    }
};

}  // namespace chengheng
