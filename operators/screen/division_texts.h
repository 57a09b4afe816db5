#pragma once

/// What the window of the division of work and its dialogs show. {} is a value.
namespace chengheng::division_texts {

inline constexpr const char* title = "财务分工";
inline constexpr const char* supervisor = "主管";
inline constexpr const char* userAtWork = "该用户{}已使用";

inline constexpr const char* tree = "操作员";
/// What stands above the boxes: the operator, or the operator and the opened group.
inline constexpr const char* groupsOf = "{} 的权限";
inline constexpr const char* functionsOf = "{} 的权限:{}";
inline constexpr const char* noOperator = "权限";

inline constexpr const char* modify = "修改\tCtrl+M";
inline constexpr const char* matrix = "权限对照表...";
inline constexpr const char* makeSupervisor = "设为主管...";
inline constexpr const char* endSupervisor = "取消主管...";
inline constexpr const char* refresh = "刷新\tF5";

inline constexpr const char* duties = "不相容职务:{}";
inline constexpr const char* betweenDuties = ";";

inline constexpr const char* giveRights = "套用权限...\tCtrl+R";
inline constexpr const char* giveTitle = "套用权限:{}";
inline constexpr const char* giveAs = "按岗位或操作员(&R):";
inline constexpr const char* givePreview = "套用后的变化:";
inline constexpr const char* sameAs = "与“{}”相同";

inline constexpr const char* whoMay = "谁能使用...\tCtrl+F";
inline constexpr const char* whoMayTitle = "谁能使用";
inline constexpr const char* whoMaySearch = "查找功能(&S):";
inline constexpr const char* whoMayFunctions = "功能";
inline constexpr const char* whoMayOperators = "能使用“{}”的操作员:{}";
inline constexpr const char* nobody = "没有人";
inline constexpr const char* betweenNames = "、";
inline constexpr const char* supervisorName = "{}(主管)";
inline constexpr const char* numberedFunction = "{} {} · {}";

inline constexpr const char* additionTitle = "增加操作员";
inline constexpr const char* modificationTitle = "修改操作员姓名、口令";
inline constexpr const char* nameLabel = "操作员姓名:";
inline constexpr const char* passwordLabel = "操作员口令:";
inline constexpr const char* confirmationLabel = "确认口令:";
inline constexpr const char* wantNewPassword = "下次登录时须更改口令(&N)";
inline constexpr const char* confirm = "确 认";
inline constexpr const char* giveUp = "放 弃";
inline constexpr const char* passwordStays = "口令空着不填,原来的口令不变。";

}  // namespace chengheng::division_texts
