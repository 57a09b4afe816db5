#pragma once

/// What the commands print that make books and change their parameters. {} is a value.
namespace chengheng::tool_texts {

inline constexpr const char* newCommand = "建立新帐套";
inline constexpr const char* newPlaceArgument =
    "帐套文件的路径、文件夹或服务器地址;省略时放在本机的帐套文件夹中";
inline constexpr const char* nameOption = "帐套名称";
inline constexpr const char* companyOption = "单位名称";
inline constexpr const char* yearOption = "会计年度";
inline constexpr const char* startMonthOption = "启用月份,1到12,默认1";
inline constexpr const char* levelPatternOption = "科目级长,每级一位数字,默认4222";
inline constexpr const char* foreignOption = "是否核算外币:on(默认)或 off";
inline constexpr const char* chartOption =
    "科目体系:small-enterprise(小企业会计准则,默认)、enterprise(企业会计准则)、empty(不预置科目)";
inline constexpr const char* supervisorOption = "主管姓名";
inline constexpr const char* passwordFileOption = "口令文件,口令写在第一行;省略时在终端上输入";
inline constexpr const char* unlistedOption = "不列入本机的帐套列表";
inline constexpr const char* unknownChart =
    "不认识科目体系“{}”。\n请用 small-enterprise、enterprise 或 empty。";
inline constexpr const char* created = "帐套“{}”已建立:{}";
inline constexpr const char* passwordPrompt = "主管口令:";
inline constexpr const char* passwordAgainPrompt = "确认口令:";
inline constexpr const char* passwordNowhere =
    "没有终端可以输入口令。\n请用 --password-file 指定口令文件。";
inline constexpr const char* passwordNotTyped = "没有输入口令,帐套没有建立。";
inline constexpr const char* passwordsDiffer = "两次输入的口令不一致,帐套没有建立。";

inline constexpr const char* setCommand = "修改帐套参数,并说明每项修改的影响";
inline constexpr const char* setForeignOption = "是否核算外币:on 或 off;有科目核算外币时不能 off";
inline constexpr const char* levelsOption = "整个科目级长,只能在原来的末尾增加级次,例如 42222";
inline constexpr const char* startOption =
    "启用月份,例如 2026-04;没有余额、凭证,也没有其他人使用时可以改";
inline constexpr const char* dryRunSet = "只说明将要修改什么和有什么影响,不改动帐套";
inline constexpr const char* forceSet = "改启用月份时不看列为已登录的人,用于其工作站已经关机的情形";
inline constexpr const char* nothingToSet = "请至少给出一项要修改的参数";
inline constexpr const char* startOutsideYear = "启用月份应在本帐套的会计年度{}内";
inline constexpr const char* parametersSet = "帐套参数已修改。";
inline constexpr const char* notSet = "没有改动帐套。";
inline constexpr const char* setAlready = "帐套参数与给出的相同,没有改动。";

}  // namespace chengheng::tool_texts
