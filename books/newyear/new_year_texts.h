#pragma once

#include <array>

/// What is said while the books of the next year are made. {} is a value.
namespace chengheng::new_year_texts {

/// What the operator is told is taken over, by its table.
struct TakenText {
    const char* table;
    const char* text;
};

inline constexpr std::array taken{
    TakenText{"Code", "会计科目"},        TakenText{"Dept", "部门"},
    TakenText{"Person", "职员"},          TakenText{"EnterClass", "单位分类"},
    TakenText{"Enter", "往来单位"},       TakenText{"ProjClass", "项目大类"},
    TakenText{"ProjItems", "项目"},       TakenText{"Cyrency", "外币"},
    TakenText{"Sign", "凭证类别"},        TakenText{"Settle", "结算方式"},
    TakenText{"AutoMain", "自动转帐"},    TakenText{"FreqSub", "常用凭证分录"},
    TakenText{"_Digest", "常用摘要"},     TakenText{"ZWPrintMain", "打印模板"},
    TakenText{"Users", "操作员及其权限"},
};

inline constexpr const char* heading = "由帐套“{}”的{}年度({})\n建立{}年度,存放在:\n{}\n\n";
inline constexpr const char* takenOver = "带入:";
inline constexpr const char* takenItem = "{} {}";
inline constexpr const char* between = "、";
inline constexpr const char* leftOut = "\n不带入:凭证、期初余额和各期发生额、对帐单。";
inline constexpr const char* carriedLater = "期初余额另用“结转上年余额”带入。";
inline constexpr const char* carriedAtOnce = "建立后随即结转期初余额。";
inline constexpr const char* freshRates = "\n汇率:新年度各月、各日的汇率为空。";
inline constexpr const char* lastRatesFirst =
    "\n汇率:各外币上年最后一个汇率作为新年度的第一个汇率,其余为空。";
inline constexpr const char* startsInJanuary = "\n启用日期:{}年1月1日。上年帐套只读取,不改动。\n";

inline constexpr const char* homeMissing = "找不到存放帐套的文件夹,请设置环境变量 CHENGHENG_HOME";
inline constexpr const char* parametersMissing =
    "“{}”中没有帐套参数,不能由它建立新年度。\n请用 chbooks check 查明,再用最近的备份恢复。";
inline constexpr const char* yearOutOfRange =
    "帐套“{}”的{}年度之后不能再建立新年度,会计年度应在{}到{}之间";
inline constexpr const char* otherSource =
    "列表中帐套“{}”的{}年度在“{}”,不是“{}”。\n"
    "请由列表中的帐套建立新年度;要由这一份建立,请用 chbooks new-year 加 --unlisted。";
inline constexpr const char* yearListed = "帐套“{}”的{}年度已经存在:\n{}\n没有改动它。";
inline constexpr const char* placeMissing = "请指定新年度帐套存放的路径或服务器地址";
inline constexpr const char* placeTaken = "“{}”已经存在,没有改动它。\n请换一个路径或地址。";
inline constexpr const char* inTheMaking =
    "“{}”正由另一个程序建立,没有改动它。\n请等其完成后再看。";
inline constexpr const char* contentDiffers =
    "写好的新年度帐套与“{}”不一致,已经丢弃,什么都没有改变。\n请检查磁盘后重试。";
inline constexpr const char* cancelled = "已取消,没有建立新年度帐套,什么都没有改变。";

// In the operation log.
inline constexpr const char* logMade = "建立 {} 年度帐套,由“{}”结转而来";

}  // namespace chengheng::new_year_texts
