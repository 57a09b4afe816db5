#pragma once

#include <string>
#include <vector>

#include "report/layout/report.h"

namespace chengheng {

/// The rows of a report as a person reads them: cells parted by bars, "-" where one is absent.
inline std::vector<std::string> rowTexts(const Report& report) {
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < report.rowCount(); ++row) {
        std::string text;
        for (std::size_t column = 0; column < report.columns.size(); ++column)
            text += (column > 0 ? "|" : "") + report.cell(row, column).value_or("-");
        rows.push_back(text);
    }
    return rows;
}

/// The headings with their widths: "方式号 10".
inline std::vector<std::string> columnTexts(const Report& report) {
    std::vector<std::string> texts;
    for (const ReportColumn& column : report.columns)
        texts.push_back(column.heading + " " + std::to_string(column.width));
    return texts;
}

}  // namespace chengheng
