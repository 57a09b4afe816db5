#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chengheng {

struct CheckedAccount;
namespace integrity_sql {
struct Reference;
}

/// What the integrity checks say.
namespace integrity_texts {

inline constexpr const char* engineTitle = "数据库文件";
inline constexpr const char* parametersTitle = "帐套参数";
inline constexpr const char* objectsTitle = "数据库对象";
inline constexpr const char* cellsTitle = "单元数据";
inline constexpr const char* idCountersTitle = "编号计数";
inline constexpr const char* sharedIdsTitle = "凭证编号";
inline constexpr const char* uniqueCodesTitle = "科目编码唯一";
inline constexpr const char* codePatternTitle = "科目编码与级长";
inline constexpr const char* gradesTitle = "科目级次";
inline constexpr const char* parentsTitle = "上级科目";
inline constexpr const char* endAccountsTitle = "末级科目";
inline constexpr const char* designationTitle = "现金、银行科目指定";
inline constexpr const char* openingsTitle = "各期的期初余额";
inline constexpr const char* uniqueMnemonicsTitle = "助记码唯一";
inline constexpr const char* referencesTitle = "数据引用";
inline constexpr const char* projectItemsTitle = "项目引用";
inline constexpr const char* operatorsTitle = "操作员与权限";
inline constexpr const char* periodSumsTitle = "科目总帐期间";
inline constexpr const char* auxiliarySumsTitle = "辅助总帐与科目总帐";
inline constexpr const char* openingEntriesTitle = "辅助期初明细与辅助总帐";
inline constexpr const char* parentSumsTitle = "上级科目与下级合计";
inline constexpr const char* voucherRestrictionsTitle = "凭证与类别的限制";
inline constexpr const char* unposted = "未记帐";
inline constexpr const char* posted = "已记帐";
/// Type, number, date, posted or not; why it may not be of the type.
inline constexpr const char* voucherBreaks = "凭证 {} 第 {} 号({},{}):{}";
/// Type, what is wrong with its restriction.
inline constexpr const char* typeWrong = "凭证类别 {}:{}";
inline constexpr const char* rateGapsTitle = "缺少的汇率";
/// Currency, kind, year, the gaps.
inline constexpr const char* rateGaps = "外币 {} {} {} 年{}";
inline constexpr const char* fixedRatesTitle = "固定汇率";
inline constexpr const char* floatingRatesTitle = "浮动汇率";

inline constexpr const char* openingMoney = "期初金额";
inline constexpr const char* debitMoney = "借方金额";
inline constexpr const char* creditMoney = "贷方金额";
inline constexpr const char* openingQuantity = "期初数量";
inline constexpr const char* debitQuantity = "借方数量";
inline constexpr const char* creditQuantity = "贷方数量";
inline constexpr const char* openingForeign = "期初外币";
inline constexpr const char* debitForeign = "借方外币";
inline constexpr const char* creditForeign = "贷方外币";

std::string engineFault(std::string_view detail);
std::string parameterRows(int rows);
std::string wrongPattern(std::string_view pattern);

std::string foreignObject(std::string_view object);
std::string indexMissing(std::string_view table, std::string_view name);

/// The value of a column in the row of an id, and what is wrong with it.
std::string cellWrong(std::string_view table, std::string_view id, std::string_view column,
                      std::string_view fault);
std::string notWhole(std::string_view value);
std::string outOfRange(std::int64_t value, std::int64_t least, std::int64_t most);
std::string notNumber(std::string_view value);
inline constexpr const char* notFinite = "不是有限的数";
inline constexpr const char* passwordWrong = "口令的内容不正确";
inline constexpr const char* notUtf8 = "不是有效的 UTF-8 文字";
std::string controlCharacter(std::string_view value);
std::string notDate(std::string_view value);

std::string counterMissing(std::string_view row);
std::string counterTwice(std::string_view row, int times);
std::string counterBehind(std::string_view row, std::int64_t counter, std::string_view table,
                          std::int64_t highest);
std::string idInBoth(std::string_view one, std::string_view other, std::int64_t id);

std::string codeTwice(const CheckedAccount& account, int times);
std::string blankInCode(const CheckedAccount& account);
std::string codeUnfit(const CheckedAccount& account, std::string_view pattern);
std::string wrongGrade(const CheckedAccount& account, int grade);
std::string parentMissing(const CheckedAccount& account, std::string_view parent);
std::string endWithChildren(const CheckedAccount& account);
std::string noEndWithoutChildren(const CheckedAccount& account);
std::string mnemonicTwice(const CheckedAccount& account, const CheckedAccount& earlier);

std::string dangling(const integrity_sql::Reference& reference, std::string_view value,
                     std::int64_t rows);
std::string itemTableMissing(std::string_view classCode, std::string_view className);
std::string itemMissing(std::string_view table, std::string_view classCode, std::int64_t item);

std::string operatorIds(std::string_view name, std::int64_t id, std::int64_t userId);
std::string operatorTwice(std::string_view name, std::int64_t times);
std::string operatorRights(std::string_view name, std::int64_t rows);
std::string strayRights(std::int64_t id, std::int64_t userId);
inline constexpr const char* noManager = "没有主管:Users 中没有 bManager 不为 0 的操作员";
std::string passwordUnsafe(std::string_view name);

std::string wrongPeriods(const CheckedAccount& account, std::string_view periods);
/// A period's opening figure in a row of AccSum, and that of the other periods.
std::string openingDiffers(const CheckedAccount& account, int period, std::int64_t row,
                           std::string_view column, std::string_view figure,
                           std::string_view usual);
/// An account is marked as cash or bank account and the one above it is not.
std::string markedAlone(const CheckedAccount& account, std::string_view column,
                        const CheckedAccount& above);
std::string sumsDiffer(const CheckedAccount& account, int period, std::string_view figure,
                       std::string_view accountSum, std::string_view auxiliarySum);

/// What an entry or a sum is kept apart by, as ids; 0 where it is not.
struct Combination {
    std::int64_t item = 0;
    std::int64_t department = 0;
    std::int64_t person = 0;
    std::int64_t unit = 0;
    std::string itemClass;

    auto operator<=>(const Combination&) const = default;
};

/// The opening entries of a combination and its auxiliary sums differ in a figure.
std::string entriesDiffer(const CheckedAccount& account, const Combination& combination,
                          std::string_view figure, std::string_view entries,
                          std::string_view auxiliarySum);

/// An account above others has another amount than their total; so often, this time first.
std::string parentDiffers(const CheckedAccount& account, int period, std::string_view figure,
                          std::string_view amount, std::string_view total, int times);

std::string noRates(std::string_view kind, std::string_view currency);
std::string ratesMissing(std::string_view kind, std::string_view currency, int year, int count,
                         std::string_view firstDate);
std::string rateWrong(std::string_view kind, std::string_view currency, std::string_view date,
                      std::int64_t period);

}  // namespace integrity_texts
}  // namespace chengheng
