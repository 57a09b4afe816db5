#pragma once

/// What is shown, told and asked about operators. {} is a value.
namespace chengheng::operator_texts {

inline constexpr const char* safetyFault = "系统安全出现故障!";

inline constexpr const char* passwordsDiffer = "操作员口令和确认口令不匹配!";
inline constexpr const char* nameTakenByAddition = "操作员: {} 已经存在！";
inline constexpr const char* nameTakenByModification = "该操作员已经存在。";

inline constexpr const char* nothingToModify = "请选择要修改的操作员！";
inline constexpr const char* nothingToDelete = "请选择要删除的操作员！";
inline constexpr const char* loggedOn = "用户《 {} 》已经登录，不能删除！";
inline constexpr const char* used = "该用户已经使用,不能删除";
inline constexpr const char* deletion = "是否删除操作员:{}?";
inline constexpr const char* goneReload =
    "该操作员已经被删除了,不能修改。\n要重新读入操作员信息吗？";
inline constexpr const char* passwordNotKept = "机器的内存不足,无法保存口令,操作没有进行。";

inline constexpr const char* lastSupervisorDeleted =
    "操作员“{}”是最后一位主管,不能删除!\n请先把另一位操作员设为主管。";
inline constexpr const char* lastSupervisorEnded =
    "操作员“{}”是最后一位主管,不能取消!\n请先把另一位操作员设为主管。";
inline constexpr const char* ownSupervision = "不能取消自己的主管资格,请由另一位主管取消。";
inline constexpr const char* makeSupervisor =
    "是否把操作员“{}”设为主管?\n\n"
    "主管可以使用全部功能,并可以增加、修改、删除操作员和分配权限。";
inline constexpr const char* endSupervisor = "是否取消操作员“{}”的主管资格?\n\n取消后的权限:{}";

// Work that one person is not to do both of.
inline constexpr const char* cashierAudits = "出纳不得兼任稽核(审核)";
inline constexpr const char* cashierPosts = "出纳不得登记收入、支出、费用帐目(记帐)";
inline constexpr const char* cashierSettles = "出纳不得登记债权债务帐目(往来勾对)";
inline constexpr const char* cashierKeepsArchives =
    "出纳不得保管会计档案(数据备份、数据恢复、删除往年数据)";
inline constexpr const char* cashierReconciles = "出纳不得自己办理银行对帐";
inline constexpr const char* makerAudits = "制单人不得审核凭证";

// Presets, by whom they are for.
inline constexpr const char* headOfAccounting = "会计主管";
inline constexpr const char* ledgerBookkeeper = "总帐会计";
inline constexpr const char* voucherMaker = "制单";
inline constexpr const char* auditor = "审核";
inline constexpr const char* poster = "记帐";
inline constexpr const char* cashier = "出纳";
inline constexpr const char* reader = "查询";

inline constexpr const char* sameRights = "权限没有变化。";
inline constexpr const char* rightsAdded = "增加 {} 项:{}\n";
inline constexpr const char* rightsTaken = "取消 {} 项:{}\n";

// How rights read on paper.
inline constexpr const char* supervisor = "主管";
inline constexpr const char* plainOperator = "操作员";
inline constexpr const char* everything = "全部功能";
inline constexpr const char* nothing = "无";
inline constexpr const char* wholeGroup = "{}(全部)";
inline constexpr const char* partOfGroup = "{}({})";
inline constexpr const char* betweenFunctions = "、";
inline constexpr const char* betweenGroups = ";";

/// What the operation log says. A name takes the place of {}.
inline constexpr const char* loggedAddition = "增加操作员 {}";
inline constexpr const char* loggedChange = "修改操作员 {}";
inline constexpr const char* loggedPassword = "修改操作员 {} 的口令";
inline constexpr const char* loggedDeletion = "删除操作员 {}";
/// Name, and what is granted and taken.
inline constexpr const char* loggedRights = "更改操作员 {} 的权限:{}";
inline constexpr const char* loggedSupervisor = "把操作员 {} 设为主管";
inline constexpr const char* loggedSupervisorEnd = "取消操作员 {} 的主管资格";

}  // namespace chengheng::operator_texts
