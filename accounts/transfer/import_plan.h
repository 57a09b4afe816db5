#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "accounts/chart/chart_state.h"
#include "accounts/transfer/chart_sheet.h"
#include "data/tables/accounts.h"

namespace chengheng {

enum class RowFate { added, changed, unchanged, refused };

/// What becomes of a row of an imported chart.
struct PlannedRow {
    std::size_t row = 0;  ///< in the sheet, from 1
    std::string code = {};
    std::string name = {};
    RowFate fate = RowFate::refused;
    std::string reason = {};   ///< why it is refused
    std::size_t column = 0;    ///< where, from 1; 0: no single cell
    std::string heading = {};  ///< of that column
    /// What the account dialog would ask; the import goes on only when all is accepted.
    std::vector<std::string> questions = {};

    bool operator==(const PlannedRow&) const = default;
};

/// An import as it was shown before it is done.
struct ImportPlan {
    std::vector<PlannedRow> rows;      ///< in the order of the sheet
    std::vector<_CodeInfo> added;      ///< as they shall be, parents first, without ids
    std::vector<_CodeInfo> changed;    ///< with the parents that get their first child
    std::vector<std::string> ignored;  ///< headings that mean nothing here

    std::size_t count(RowFate fate) const;
    /// Whether no row is refused: a chart is imported whole or not at all.
    bool isAcceptable() const { return count(RowFate::refused) == 0; }

    bool operator==(const ImportPlan&) const = default;
};

/// Decides on every row under the rules of the account dialog: accounts of a code that is there
/// are modified, all others added, in the order of their codes, wherever they stand.
ImportPlan planImport(const ChartSheet& sheet, const ChartState& state);

/// "第 7 行 B 列:科目编码不唯一"
std::string refusalText(const PlannedRow& row);
/// The cell that a row is refused for: "B7 科目编码"; empty when it is no single one.
std::string refusedPlace(const PlannedRow& row);
/// 新增, 修改, 不变, 拒绝.
const char* fateTitle(RowFate fate);

}  // namespace chengheng
