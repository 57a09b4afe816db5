#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "report/engine/report_run.h"
#include "tests/support/engine_cases.h"
#include "tests/support/environment.h"

namespace chengheng {

/// A layout file of the user's own for as long as this lives, in a home of its own.
class OwnLayout {
  public:
    explicit OwnLayout(const std::string& text, const std::string& name = "Normal.rpn")
        : m_home(freshFolder()), m_setting("CHENGHENG_HOME", m_home) {
        std::filesystem::create_directory(m_home + "/print");
        std::ofstream(m_home + "/print/" + name) << text;
    }

  private:
    std::string m_home;
    EnvironmentSetting m_setting;
};

/// A report of 恒源公司 with columns of these widths, headed "栏1", "栏2", ..., and no rows.
inline Report sampleReport(const std::vector<int>& widths) {
    Report report;
    report.title = "结算方式一览表";
    for (const int width : widths) {
        ReportColumn column;
        column.heading = "栏" + std::to_string(report.columns.size() + 1);
        column.width = width;
        report.columns.push_back(column);
    }
    report.page = {.paper = 9, .isPortrait = true};
    report.facts = {"恒源公司", "示例帐套", "王芳", {2026, 5, 31}};
    return report;
}

/// Adds rows "1-1", "1-2", ...
inline void addNumberedRows(Report& report, std::size_t rows) {
    for (std::size_t row = 1; row <= rows; ++row) {
        std::vector<ReportCell> cells;
        for (std::size_t column = 1; column <= report.columns.size(); ++column)
            cells.emplace_back(std::to_string(row) + "-" + std::to_string(column));
        report.addRow(std::move(cells));
    }
}

/// Works on a report that the engine must take.
inline void withReport(const Report& report, const std::function<void(CReport& engine)>& work) {
    const auto refusal = runReport(report, work);
    if (refusal) ADD_FAILURE() << refusal->notice.text;
}

}  // namespace chengheng
