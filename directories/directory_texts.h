#pragma once

#include <array>

/// What the windows of the directories show and ask. {} is a value.
namespace chengheng::directory_texts {

inline constexpr const char* departments = "部门目录";
inline constexpr const char* persons = "个人往来目录";
inline constexpr const char* unitClasses = "单位往来分类";
inline constexpr const char* units = "单位往来目录";
inline constexpr const char* projectClasses = "项目大类定义";
inline constexpr const char* projectItems = "项目定义及目录";

inline constexpr const char* department = "部门";
inline constexpr const char* person = "个人";
inline constexpr const char* unitClass = "单位分类";
inline constexpr const char* unit = "单位";
inline constexpr const char* projectClass = "项目大类";
inline constexpr const char* project = "项目";

inline constexpr const char* code = "编码";
inline constexpr const char* name = "名称";
inline constexpr const char* ofDepartment = "所属部门";
inline constexpr const char* ofUnitClass = "单位分类";
inline constexpr const char* ofProjectClass = "项目大类";
inline constexpr const char* unitKind = "性质";
/// By the number of the kind.
inline constexpr std::array unitKinds{"客户兼供应商", "客户", "供应商"};
inline constexpr const char* openGroups = "目录...";
inline constexpr const char* add = "增加(&N)...";
inline constexpr const char* openDirectory = "目录(&D)...";
/// {} is the title of the directory.
inline constexpr const char* emptyDirectory = "“{}”中还没有记录。\n按“增加”就地录入一条。";

inline constexpr const char* codeEmpty = "{}编码不能为空";
inline constexpr const char* codeBlank = "{}编码不能包含空格";
inline constexpr const char* codeUnshowable = "{}编码含有不能显示的字符";
inline constexpr const char* codeLong = "{}编码最多 {} 个字";
inline constexpr const char* classCodeLetters = "项目大类编码只能由字母和数字组成";
inline constexpr const char* nameEmpty = "{}名称不能为空";
inline constexpr const char* nameUnshowable = "{}名称含有不能显示的字符";
inline constexpr const char* nameLong = "{}名称最多 {} 个字";
inline constexpr const char* groupMissing = "请选择{}";
inline constexpr const char* groupGone = "所选的{}已被删除,请重新选择";
/// What it is, and who has the code or name.
inline constexpr const char* codeTaken = "{}编码重复:已有“{}”";
inline constexpr const char* nameTaken = "{}名称重复:已有“{}”";
inline constexpr const char* nameShared = "已有同名的{}“{}”。\n\n仍要使用这个名称吗?";
inline constexpr const char* groupFixed = "项目不能改到另一个项目大类";
inline constexpr const char* usedCodeFixed = "该项目大类已在{}中使用,编码不能修改!";

inline constexpr const char* nothingSelected = "请选择要删除的{}";
inline constexpr const char* deletion = "是否删除当前{}?\n\n编码:{}\n名称:{}";
inline constexpr const char* usedNotDeleted = "该{}已在{}中使用,不能删除!";
inline constexpr const char* placeBetween = "、";

// Where a record may be used.
inline constexpr const char* openingEntries = "[期初余额]";
inline constexpr const char* postedVouchers = "[已记帐凭证]";
inline constexpr const char* openVouchers = "[未记帐凭证]";
inline constexpr const char* auxiliaryBalances = "[辅助余额]";
inline constexpr const char* personDirectory = "[个人往来目录]";
inline constexpr const char* unitDirectory = "[单位往来目录]";
inline constexpr const char* itemDirectory = "[项目目录]";
inline constexpr const char* accountProjects = "[项目档案]";
inline constexpr const char* unitReconciliation = "[单位往来勾对]";

inline constexpr const char* gone = "该{}已被其他工作站删除,列表已重新读入。";
inline constexpr const char* changed = "该{}已被其他工作站修改,本次操作没有进行,列表已重新读入。";
/// The record as it is stored and as it was typed.
inline constexpr const char* changedBelowTyped =
    "该{}已被其他工作站修改,本次操作没有进行。\n\n现在的内容:{}\n输入的内容:{}\n\n"
    "输入已保留,核对后可以再次确定。";
inline constexpr const char* goneBelowTyped =
    "该{}已被其他工作站删除,列表已重新读入。\n输入已保留,再次确定将作为新的{}增加。";
/// A record with its group.
inline constexpr const char* inGroup = "{}({})";

/// What the operation log says: what it is, code and name.
inline constexpr const char* loggedAddition = "增加{} {}";
inline constexpr const char* loggedChange = "修改{} {}";
inline constexpr const char* loggedDeletion = "删除{} {}";

}  // namespace chengheng::directory_texts
