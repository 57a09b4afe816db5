#pragma once

/// What windows and lists of currencies and their rates show, tell and ask. {} is a value.
namespace chengheng::currency_texts {

inline constexpr const char* title = "汇率管理";
/// What the tree of currencies is called.
inline constexpr const char* tree = "Tree Coin";

inline constexpr const char* settings = "外币设置";
inline constexpr const char* symbol = "币符";
inline constexpr const char* name = "币名";
inline constexpr const char* decimals = "汇率小数位";
inline constexpr const char* maxError = "外币最大误差";
inline constexpr const char* mode = "折算方式";
inline constexpr const char* multiplied = "原币 * 汇率 = 本位币";
inline constexpr const char* divided = "原币 / 汇率 = 本位币";
inline constexpr const char* fixedRate = "固定汇率";
inline constexpr const char* floatingRate = "浮动汇率";
inline constexpr const char* rates = "汇率表";
inline constexpr const char* month = "月份";
inline constexpr const char* day = "日期";
inline constexpr const char* rate = "记帐汇率";
inline constexpr const char* adjustRate = "调整汇率";

inline constexpr const char* symbolMissing = "外币符号不能为空!";
inline constexpr const char* nameMissing = "外币名称不能为空!";
inline constexpr const char* wrongDecimals = "汇率小数位只能是2-9之间的整数!";
inline constexpr const char* noMaxError = "最大误差应该输入正数或零,请重新输入。";
/// The least one is a tenth of what the text names.
inline constexpr const char* maxErrorTooSmall = "最大误差应该不小于0.0000001,请重新输入。";
inline constexpr const char* maxErrorTooLarge = "最大误差应该不大于100000,请重新输入。";

/// Only this one of the four has its mark.
inline constexpr const char* symbolNotAdded = "币符不唯一!";
inline constexpr const char* nameNotAdded = "币名不唯一";
inline constexpr const char* symbolNotModified = "币符不唯一";
inline constexpr const char* nameNotModified = "币名不唯一";
inline constexpr const char* noMoreCurrencies =
    "一个帐套最多只能先后设置 {} 种外币(包括已删除的),不能再增加。";

inline constexpr const char* usedNotDeleted = "外币已经使用,不能删除";
/// Found under the lock.
inline constexpr const char* usedMeanwhile = "该外币已经使用,不能删除!";
inline constexpr const char* nothingSelected = "请选择要删除的外币";
inline constexpr const char* deletionCaption = "删除信息";
/// Symbol and name take the places of {}.
inline constexpr const char* deletion = "是否删除当前外币?\n\n币符:{}\n币名:{}";

inline constexpr const char* changed = "该外币已被其他工作站修改,本次操作没有进行,列表已重新读入。";
/// The currency as it is stored and as it was typed take the places of {}.
inline constexpr const char* changedBelowTyped =
    "该外币已被其他工作站修改,本次操作没有进行。\n\n现在的内容:{}\n输入的内容:{}\n\n"
    "输入已保留,核对后可以再次确定。";
/// Symbol, name, mode, decimals and maximum error.
inline constexpr const char* inWords = "{} {},{},小数位 {},最大误差 {}";
inline constexpr const char* rateGone = "该汇率记录已被删除,汇率表已重新读入。";

inline constexpr const char* printChoice = "选择范围";
inline constexpr const char* currencyList = "外币一览表";
inline constexpr const char* rateList = "汇率一览表";
inline constexpr const char* wholeYear = "全年";
inline constexpr const char* noRatesWhileAdding =
    "正在增加外币,还没有汇率可以打印。\n请先确定新增的外币,或在左边选择一种外币。";

/// The modes as lists have them.
inline constexpr const char* foreignTimesRate = "原币*汇率 = 本位币";
inline constexpr const char* foreignByRate = "原币/汇率 = 本位币";
/// Name and symbol.
inline constexpr const char* ratesOf = "外币:{}({})";

/// What the operation log says: symbol and name.
inline constexpr const char* loggedAddition = "增加外币 {}";
inline constexpr const char* loggedChange = "修改外币 {}";
inline constexpr const char* loggedDeletion = "删除外币 {}";
inline constexpr const char* symbolAndName = "{} {}";
/// By its number, where its name is not known.
inline constexpr const char* numbered = "外币{}";
/// Kind of the rate, currency, day or month.
inline constexpr const char* loggedRate = "修改{} {} {}";
/// The same of many: how many.
inline constexpr const char* loggedRates = "修改{} {} {} 项";
inline constexpr const char* betweenCurrencies = "、";

}  // namespace chengheng::currency_texts
