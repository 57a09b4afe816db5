#include "books/checking/integrity_texts.h"

#include <fmt/format.h>

#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"

namespace chengheng::integrity_texts {
namespace {

std::string shown(const CheckedAccount& account) {
    return fmt::format("科目 {} {}(编号 {})", account.code, account.name, account.id);
}

}  // namespace

std::string engineFault(std::string_view detail) {
    return fmt::format("数据库已损坏,请用最近的备份恢复:{}", detail);
}

std::string parameterRows(int rows) {
    return fmt::format("zAccountM 应有 1 行帐套参数,实有 {} 行", rows);
}

std::string wrongPattern(std::string_view pattern) {
    return fmt::format("科目级长“{}”不正确", pattern);
}

std::string foreignObject(std::string_view object) {
    return fmt::format("{}不是本程序建立的,可能改动或掩盖数据", object);
}

std::string indexMissing(std::string_view table, std::string_view name) {
    return fmt::format("{} 缺少索引 {}", table, name);
}

std::string cellWrong(std::string_view table, std::string_view id, std::string_view column,
                      std::string_view fault) {
    return fmt::format("{} 编号 {} 的 {}:{}", table, id, column, fault);
}

std::string notWhole(std::string_view value) { return fmt::format("“{}”不是整数", value); }

std::string outOfRange(std::int64_t value, std::int64_t least, std::int64_t most) {
    return fmt::format("{} 不在 {} 到 {} 之间", value, least, most);
}

std::string notNumber(std::string_view value) { return fmt::format("“{}”不是数字", value); }

std::string controlCharacter(std::string_view value) {
    return fmt::format("“{}”中有控制字符", value);
}

std::string notDate(std::string_view value) { return fmt::format("“{}”不是日期", value); }

std::string counterMissing(std::string_view row) {
    return fmt::format("ABIdTable 中没有“{}”一行", row);
}

std::string counterTwice(std::string_view row, int times) {
    return fmt::format("ABIdTable 中“{}”有 {} 行", row, times);
}

std::string counterBehind(std::string_view row, std::int64_t counter, std::string_view table,
                          std::int64_t highest) {
    return fmt::format("ABIdTable 中“{}”记到 {},而 {} 中已有编号 {}", row, counter, table, highest);
}

std::string idInBoth(std::string_view one, std::string_view other, std::int64_t id) {
    return fmt::format("编号 {} 在 {} 和 {} 中都有", id, one, other);
}

std::string codeTwice(const CheckedAccount& account, int times) {
    return fmt::format("{}:编码出现 {} 次", shown(account), times);
}

std::string blankInCode(const CheckedAccount& account) {
    return fmt::format("{}:编码中有空格", shown(account));
}

std::string codeUnfit(const CheckedAccount& account, std::string_view pattern) {
    return fmt::format("{}:编码不符合科目级长 {}", shown(account), pattern);
}

std::string wrongGrade(const CheckedAccount& account, int grade) {
    return fmt::format("{}:级次记为 {},按编码应为 {}", shown(account), account.grade, grade);
}

std::string parentMissing(const CheckedAccount& account, std::string_view parent) {
    return fmt::format("{}:没有上级科目 {}", shown(account), parent);
}

std::string endWithChildren(const CheckedAccount& account) {
    return fmt::format("{}:记为末级科目,却有下级科目", shown(account));
}

std::string noEndWithoutChildren(const CheckedAccount& account) {
    return fmt::format("{}:没有下级科目,却未记为末级科目", shown(account));
}

std::string mnemonicTwice(const CheckedAccount& account, const CheckedAccount& earlier) {
    return fmt::format("{}:助记码“{}”与科目 {} 相同", shown(account), account.mnemonic,
                       earlier.code);
}

std::string dangling(const integrity_sql::Reference& reference, std::string_view value,
                     std::int64_t rows) {
    return fmt::format("{}.{} 有 {} 行的值为“{}”,{} 中没有这一{}", reference.table,
                       reference.column, rows, value, reference.target, reference.targetColumn);
}

std::string itemTableMissing(std::string_view classCode, std::string_view className) {
    return fmt::format("项目大类 {} {} 没有项目目录 ProjItems{}", classCode, className, classCode);
}

std::string itemMissing(std::string_view table, std::string_view classCode, std::int64_t item) {
    return fmt::format("{} 用到项目大类“{}”的项目编号 {},项目目录中没有它", table, classCode, item);
}

std::string operatorIds(std::string_view name, std::int64_t id, std::int64_t userId) {
    return fmt::format("操作员 {}:lId 为 {},lUserId 为 {},两者应相等", name, id, userId);
}

std::string operatorTwice(std::string_view name, std::int64_t times) {
    return fmt::format("操作员姓名“{}”出现 {} 次", name, times);
}

std::string operatorRights(std::string_view name, std::int64_t rows) {
    return fmt::format("操作员 {}:UserAuth 中应有 1 行权限,实有 {} 行", name, rows);
}

std::string passwordUnsafe(std::string_view name) {
    return fmt::format("操作员 {}:口令为空或没有加密", name);
}

std::string strayRights(std::int64_t id, std::int64_t userId) {
    return fmt::format("UserAuth 编号 {} 的操作员 {} 不存在", id, userId);
}

std::string wrongPeriods(const CheckedAccount& account, std::string_view periods) {
    return fmt::format("{}:AccSum 中应有 1 至 12 期各一行,实有 {}", shown(account), periods);
}

std::string openingDiffers(const CheckedAccount& account, int period, std::int64_t row,
                           std::string_view column, std::string_view figure,
                           std::string_view usual) {
    return fmt::format("{}:AccSum 编号 {}(第 {} 期)的 {} 为 {},其他各期为 {}", shown(account), row,
                       period, column, figure, usual);
}

std::string markedAlone(const CheckedAccount& account, std::string_view column,
                        const CheckedAccount& above) {
    return fmt::format("{}:Code 的 {} 已标记,而上级科目 {} 没有标记", shown(account), column,
                       above.code);
}

std::string sumsDiffer(const CheckedAccount& account, int period, std::string_view figure,
                       std::string_view accountSum, std::string_view auxiliarySum) {
    return fmt::format("{}:第 {} 期{},科目总帐为 {},辅助总帐合计为 {}", shown(account), period,
                       figure, accountSum, auxiliarySum);
}

std::string entriesDiffer(const CheckedAccount& account, const Combination& combination,
                          std::string_view figure, std::string_view entries,
                          std::string_view auxiliarySum) {
    std::string of;
    const auto add = [&of](const char* name, std::int64_t id) {
        if (id != 0) of += fmt::format("{}{}(编号 {})", of.empty() ? "" : "、", name, id);
    };
    add("部门", combination.department);
    add("个人", combination.person);
    add("单位", combination.unit);
    add(fmt::format("项目 {} ", combination.itemClass).c_str(), combination.item);
    return fmt::format("{}:{}的{},期初明细合计为 {},辅助总帐为 {}", shown(account), of, figure,
                       entries, auxiliarySum);
}

std::string parentDiffers(const CheckedAccount& account, int period, std::string_view figure,
                          std::string_view amount, std::string_view total, int times) {
    return fmt::format("{}:第 {} 期{}为 {},下级科目合计为 {}{}", shown(account), period, figure,
                       amount, total,
                       times > 1 ? fmt::format(",这样的金额共 {} 个", times) : std::string());
}

std::string noRates(std::string_view kind, std::string_view currency) {
    return fmt::format("外币 {} 没有{}", currency, kind);
}

std::string ratesMissing(std::string_view kind, std::string_view currency, int year, int count,
                         std::string_view firstDate) {
    return fmt::format("外币 {} 的 {} 年{}缺 {} 行,最早缺 {}", currency, year, kind, count,
                       firstDate);
}

std::string rateWrong(std::string_view kind, std::string_view currency, std::string_view date,
                      std::int64_t period) {
    return fmt::format("外币 {} 的{}:日期 {}、月份 {} 的一行不合规定或重复", currency, kind, date,
                       period);
}

}  // namespace chengheng::integrity_texts
