#pragma once

/// The texts of the log-on windows that do not stand in their forms. %1 is a value.
namespace chengheng::shell_texts {

inline constexpr const char* lockWaitTitle = "等待其他工作站";
inline constexpr const char* lockWaited = "已等待 %1";
inline constexpr const char* logon = "登录";
inline constexpr const char* logonWanted = "请先填好操作员和口令,再修改帐套参数";
inline constexpr const char* logLogonWanted = "请先填好操作员和口令,再查看操作日志";

inline constexpr const char* newYearLogonWanted = "请先填好操作员和口令,再建立新年度";
inline constexpr const char* newYearHint = "由帐套“%1”的%2年度建立%3年度";
inline constexpr const char* newYearWorking = "正在建立%1年度帐套...";
inline constexpr const char* newYearMade =
    "帐套“%1”的%2年度已建立,存放在:\n%3\n%4\n操作员和口令与上年相同。现在登录新年度吗?";
inline constexpr const char* newYearCarrying = "正在结转上年余额...";
inline constexpr const char* makeIt = "建立";
inline constexpr const char* serverPasswordTitle = "服务器口令";
inline constexpr const char* serverPasswordWanted = "数据库服务器“%1”需要口令。";
inline constexpr const char* serverPasswordWrong = "数据库服务器“%1”没有接受这个口令,请重新输入。";
inline constexpr const char* serverPasswordField = "口令(&P):";
inline constexpr const char* keepServerPassword = "记住口令,存放在桌面的密钥环中(&R)";
inline constexpr const char* notKept = "桌面的密钥环不能使用,口令没有保存,下次需要重新输入。";
inline constexpr const char* backupElsewhere = "升级前的备份在“%1”。";
inline constexpr const char* passwordsDiffer = "口令和确认口令不一致,请重新输入";
inline constexpr const char* booksMade = "帐套“%1”的%2年度已建立,存放在:\n%3";
inline constexpr const char* levelExample = "各级编码示例:%1";
inline constexpr const char* levelPatternRule = "1到6位数字,每位1到9,表示该级编码的位数";
inline constexpr const char* defaultPlace = "不填时存放在 %1";
inline constexpr const char* chooseBooks = "选择帐套文件";
inline constexpr const char* booksFilter = "帐套文件 (*.db);;所有文件 (*)";
inline constexpr const char* chooseFolder = "选择存放帐套的文件夹";
inline constexpr const char* smallEnterprise = "小企业会计准则";
inline constexpr const char* enterprise = "企业会计准则";
inline constexpr const char* emptyChart = "不预置科目";

}  // namespace chengheng::shell_texts
