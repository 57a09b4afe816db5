#pragma once

/// What the operator is told and asked about settlement methods.
namespace chengheng::settle_texts {

inline constexpr const char* title = "结算方式";
inline constexpr const char* number = "方式号";
inline constexpr const char* name = "方式名";
inline constexpr const char* usesChequeRegister = "使用支票登记簿";

/// How an addition clashes with the first leaf and with any later one: the wordings differ.
inline constexpr const char* firstNumberNotAdded = "结算方式号重复,不能添加!";
inline constexpr const char* firstNameNotAdded = "结算方式重复,不能添加!";
inline constexpr const char* numberNotAdded = "结算方式号重复,不能增加!";
inline constexpr const char* nameNotAdded = "结算方式重复,不能增加!";
inline constexpr const char* numberNotModified = "结算方式号重复,不能修改!";
inline constexpr const char* nameNotModified = "结算方式重复,不能修改!";

inline constexpr const char* usedNotModified = "结算方式已使用,不能再修改!";
inline constexpr const char* usedNotDeleted = "该结算方式已使用, 不能删除!";
inline constexpr const char* nothingSelected = "请选择要删除的结算方式";
/// Number and name take the places of {}.
inline constexpr const char* deletion = "是否删除当前结算方式号?\n\n结算方式号:{}\n结算方式名:{}";

inline constexpr const char* gone = "该结算方式已被其他工作站删除,列表已重新读入。";
inline constexpr const char* changed =
    "该结算方式已被其他工作站修改,本次操作没有进行,列表已重新读入。";

/// The method as it is stored and as it was typed take the places of {}.
inline constexpr const char* changedBelowTyped =
    "该结算方式已被其他工作站修改,本次操作没有进行。\n\n现在的内容:{}\n输入的内容:{}\n\n"
    "输入已保留,核对后可以再次确定。";
inline constexpr const char* goneBelowTyped =
    "该结算方式已被其他工作站删除,列表已重新读入。\n输入已保留,再次确定将作为新的结算方式增加。";
inline constexpr const char* withRegister = "{}(使用支票登记簿)";

/// What the operation log says. A method takes the place of {}.
inline constexpr const char* loggedAddition = "增加结算方式 {}";
inline constexpr const char* loggedChange = "修改结算方式 {}";
inline constexpr const char* loggedDeletion = "删除结算方式 {}";

}  // namespace chengheng::settle_texts
