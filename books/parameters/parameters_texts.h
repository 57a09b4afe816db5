#pragma once

/// The texts of the parameters of books. {} is a value.
namespace chengheng::parameters_texts {

inline constexpr const char* title = "帐套参数";

inline constexpr const char* nameTaken = "帐套列表中已有“{}”的{}年度:\n{}\n请用另一个名称。";
inline constexpr const char* accountsKeepCurrency =
    "有科目核算外币,不能取消外币核算:{}\n请先在会计科目中取消这些科目的外币核算。";
inline constexpr const char* patternNotLengthened =
    "科目级长“{}”不能改变,只能在末尾增加级次,例如“{}”。";
inline constexpr const char* patternAtItsEnd = "科目级长“{}”已有6级,不能再增加或改变。";
inline constexpr const char* vouchersThere = "已有凭证,不能再改启用月份。";
inline constexpr const char* entriesThere =
    "已有辅助科目的期初明细,不能再改启用月份。\n请先在期初余额录入中删除全部期初明细。";
inline constexpr const char* figuresThere =
    "已有期初余额,不能再改启用月份。\n请先在期初余额录入中把全部余额清为零。";
inline constexpr const char* othersAtWork =
    "其他人正在使用本帐套:{}。\n改启用月份时不能有其他人使用,请等其退出后重试。";
inline constexpr const char* between = "、";
inline constexpr const char* moreAccounts = "等 {} 个";

// What a change touches.
inline constexpr const char* name = "帐套名称";
inline constexpr const char* company = "单位名称";
inline constexpr const char* foreignCurrency = "外币核算";
inline constexpr const char* levelPattern = "科目级长";
inline constexpr const char* startMonth = "启用月份";
inline constexpr const char* yes = "是";
inline constexpr const char* no = "否";
inline constexpr const char* month = "{}月";
inline constexpr const char* change = "{}:“{}”改为“{}”\n    {}\n";
inline constexpr const char* nameEffect = "登录列表和窗口显示新的名称,帐套的存放位置不变。";
inline constexpr const char* otherYearsEffect =
    "本机列表中{}年度的帐套不随之改名,{}年度另列为“{}”。";
inline constexpr const char* companyEffect = "以后打印的页面用新的单位名称。";
inline constexpr const char* foreignOnEffect = "可以使用汇率管理,并让科目核算外币。";
inline constexpr const char* foreignOffEffect = "汇率管理不能再使用。";
inline constexpr const char* currenciesStay = "已登记的 {} 种外币和汇率保留不变。";
inline constexpr const char* patternEffect =
    "科目最多 {} 级,末级编码最长 {} 位;已有的科目不变。以后不能再减少级次。";
inline constexpr const char* startInJanuary =
    "期初余额录入只录期初余额,不再录年初余额和累计发生额。";
inline constexpr const char* startMidYear = "期初余额录入还要录年初余额、累计借方和累计贷方。";
inline constexpr const char* entryDay = "辅助科目期初明细的日期为 {}。";
inline constexpr const char* othersSeeLater = "\n正在使用本帐套的{}重新登录后才使用新的参数。\n";
inline constexpr const char* heading = "将修改帐套参数:\n\n";
inline constexpr const char* question = "\n是否修改?";

inline constexpr const char* changedMeanwhile =
    "帐套参数已被其他工作站修改,本次操作没有进行。\n\n现在的内容:\n{}\n输入的内容:\n{}\n"
    "输入已保留,核对后可以再次确定。";
inline constexpr const char* parameterLine = "    {}:{}\n";
inline constexpr const char* parametersMissing =
    "帐套中没有帐套参数,不能修改。\n请用 chbooks check 查明,再用最近的备份恢复。";
inline constexpr const char* listNotCorrected =
    "帐套参数已修改,但本机的帐套列表没有更新,仍显示原来的名称。\n{}";
inline constexpr const char* listHasOther = "列表中已有同名同年度的帐套:\n{}";

// The fields of the window, and what stands below them.
inline constexpr const char* atWork = "帐套参数调整";
inline constexpr const char* nameField = "帐套名称(&N):";
inline constexpr const char* companyField = "单位名称(&C):";
inline constexpr const char* foreignField = "核算外币(&F)";
inline constexpr const char* patternField = "科目级长(&L):";
inline constexpr const char* startField = "启用月份(&M):";
inline constexpr const char* currencyKept = "核算外币的科目:{};有这样的科目时不能取消";
inline constexpr const char* currencyNotKept = "没有科目核算外币,可以取消";
inline constexpr const char* currencyOff = "选中后可以使用汇率管理,并让科目核算外币";
inline constexpr const char* patternHint = "各级编码示例:{}\n只能在末尾增加级次,最多6级";
inline constexpr const char* patternRule = "1到6位数字,每位1到9,表示该级编码的位数";
inline constexpr const char* startFree = "没有余额和凭证时可以改;会计年度 {} 不能改";

/// What the operation log says: the parameters that become others.
inline constexpr const char* logged = "修改帐套参数:{}";
inline constexpr const char* loggedChange = "{} {} → {}";

}  // namespace chengheng::parameters_texts
