#pragma once

/// What the operator is told while books are made. {} is a value.
namespace chengheng::making_texts {

inline constexpr const char* nameMissing = "请输入帐套名称";
inline constexpr const char* nameTooLong = "帐套名称不能超过40个字";
inline constexpr const char* companyMissing = "请输入单位名称";
inline constexpr const char* companyTooLong = "单位名称不能超过60个字";
inline constexpr const char* yearOutOfRange = "会计年度应在{}到{}之间";
inline constexpr const char* monthOutOfRange = "启用月份应在1到12之间";
inline constexpr const char* patternMalformed =
    "科目级长“{}”不正确\n科目级长由1到6位数字组成,每位数字1到9,表示该级编码的位数,例如4222";
inline constexpr const char* patternUnfitForChart =
    "科目级长“{}”不适用于所选科目体系\n法定一级科目编码为4位,"
    "请将科目级长的第一位改为4,或选择“不预置科目”";
inline constexpr const char* supervisorMissing = "请输入主管姓名";
inline constexpr const char* supervisorTooLong = "主管姓名不能超过20个字";
inline constexpr const char* passwordMissing = "请输入主管口令";
inline constexpr const char* placeMissing = "请指定帐套存放的路径或服务器地址";
inline constexpr const char* yearExists = "帐套“{}”的{}年度已经存在:\n{}";
inline constexpr const char* placeExists =
    "“{}”已经存在,没有改动它\n请换一个路径或地址,或直接打开该帐套";
inline constexpr const char* passwordNotHashed = "内存不足,无法加密口令,帐套没有建立";
inline constexpr const char* homeMissing = "找不到存放帐套的文件夹,请设置环境变量 CHENGHENG_HOME";

// In the operation log.
inline constexpr const char* logNewBooks = "建立帐套“{}”";
inline constexpr const char* logDemo = "建立演示帐套";

}  // namespace chengheng::making_texts
