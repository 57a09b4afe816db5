#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/tables/accounts.h"

namespace chengheng {

/// Where the accounts of a new set of books come from.
enum class ChartTemplate {
    smallEnterprise,  ///< 小企业会计准则
    enterprise,       ///< 企业会计准则
    empty,            ///< no accounts, only the classes of the enterprise chart
};

/// A top-level account of a template.
struct ChartAccount {
    std::string code;
    std::string name;
    std::string className;
    bool isDebit = false;
};

/// An account class of a template; the first is number 1.
struct ChartClass {
    std::string_view name;
    bool isDebit = false;
};

/// The data file of a chart: a heading line, then "code,name,class,direction" a line.
std::string_view chartFile(ChartTemplate chart);

/// The accounts of a chart file in its order, read as any imported chart is; nothing when a line of
/// it cannot be read.
std::optional<std::vector<ChartAccount>> readChart(std::string_view file);

/// The accounts of a template; the empty one has none.
const std::vector<ChartAccount>& chartAccounts(ChartTemplate chart);

/// The accounts that an import of a template adds to empty books with its classes; nothing when
/// the pattern refuses their codes.
std::optional<std::vector<_CodeInfo>> templateAccounts(ChartTemplate chart,
                                                       const std::string& levelPattern);

/// The classes of a template in statutory order, which is the order of the codes. A class is
/// of the nature of its first account: 损益 is credit-natured, its first account being income.
std::vector<ChartClass> chartClasses(ChartTemplate chart);

/// Characters of a top-level code in the statutory charts.
inline constexpr int chartCodeLength = 4;

/// "small-enterprise", "enterprise", "empty": the words of the command line.
std::string_view chartWord(ChartTemplate chart);
std::optional<ChartTemplate> chartOfWord(std::string_view word);

}  // namespace chengheng
