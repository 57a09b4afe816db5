#pragma once

/// What the opening balance window shows, tells and asks. {} is a value.
namespace chengheng::opening_texts {

inline constexpr const char* title = "期初余额录入";
inline constexpr const char* browsing = "浏览,只读";

inline constexpr const char* code = "科目编码";
inline constexpr const char* name = "科目名称";
inline constexpr const char* direction = "借/贷";
inline constexpr const char* unit = "币别/计量";
inline constexpr const char* yearStart = "年初余额";
inline constexpr const char* accumulatedDebit = "累计借方";
inline constexpr const char* accumulatedCredit = "累计贷方";
inline constexpr const char* opening = "期初余额";
inline constexpr const char* id = "编号";
inline constexpr const char* type = "类型";
inline constexpr const char* isEnd = "末级";
inline constexpr const char* grade = "级次";
inline constexpr const char* marker = "类别";
inline constexpr const char* foreign = "外币";
inline constexpr const char* quantity = "数量";
inline constexpr const char* auxiliary = "辅助";

inline constexpr const char* debit = "借";
inline constexpr const char* credit = "贷";
inline constexpr const char* homeCurrency = "本位币";

inline constexpr const char* parentLegend = "非末级科目";
inline constexpr const char* endLegend = "末级科目";
inline constexpr const char* auxiliaryLegend = "辅助科目";

inline constexpr const char* unitAndProject = "项目往来";
inline constexpr const char* departmentAndUnit = "部门往来";
inline constexpr const char* departmentAndProject = "部门项目";
inline constexpr const char* person = "个人往来";
inline constexpr const char* department = "部门核算";
inline constexpr const char* project = "项目核算";
inline constexpr const char* unitDealings = "单位往来";

inline constexpr const char* level = "平";
inline constexpr const char* className = "{} = ";
inline constexpr const char* classLine = "{}\t{:.2f}\r\n\r\n";
inline constexpr const char* totalLine = "合计 = {}\t{:.2f}";
inline constexpr const char* balanced = "试算结果平衡";
inline constexpr const char* notBalanced = "试算结果不平衡,差额为{:.2f}";
inline constexpr const char* closePrompt = "期初余额试算不平衡,差额为{:.2f},是否退出?";

}  // namespace chengheng::opening_texts
