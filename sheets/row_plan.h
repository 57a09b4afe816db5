#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace chengheng {

enum class RowFate : std::uint8_t { added, changed, unchanged, refused };

/// What becomes of a row of an imported sheet, which is a record with a code and a name.
struct PlannedRow {
    std::size_t row = 0;  ///< in the sheet, from 1
    std::string code = {};
    std::string name = {};
    RowFate fate = RowFate::refused;
    std::string reason = {};   ///< why it is refused
    std::size_t column = 0;    ///< where, from 1; 0: no single cell
    std::string heading = {};  ///< of that column
    /// What a dialog would ask; the import goes on only when all is accepted.
    std::vector<std::string> questions = {};

    bool operator==(const PlannedRow&) const = default;
};

/// An import as it is shown before it is done: whole or not at all.
struct RowPlan {
    std::vector<PlannedRow> rows;      ///< in the order of the sheet
    std::vector<std::string> ignored;  ///< headings that mean nothing here

    std::size_t count(RowFate fate) const;
    std::size_t rowsWithQuestions() const;
    /// Whether no row is refused.
    bool isAcceptable() const { return count(RowFate::refused) == 0; }
    bool changesSomething() const { return count(RowFate::added) + count(RowFate::changed) > 0; }

    bool operator==(const RowPlan&) const = default;
};

/// "第 7 行 B 列:科目编码不唯一"
std::string refusalText(const PlannedRow& row);
/// The cell that a row is refused for: "B7 科目编码"; empty when it is no single one.
std::string refusedPlace(const PlannedRow& row);
/// 新增, 修改, 不变, 拒绝.
const char* fateTitle(RowFate fate);

/// Told how much of an import is written; false gives it up, and nothing is changed.
using ImportProgress = std::function<bool(std::size_t done, std::size_t total)>;

}  // namespace chengheng
