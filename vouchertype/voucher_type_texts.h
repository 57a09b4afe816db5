#pragma once

/// What the operator is told and asked about voucher types.
namespace chengheng::voucher_type_texts {

inline constexpr const char* title = "凭证类别";
inline constexpr const char* number = "类别";
inline constexpr const char* name = "名称";
inline constexpr const char* restricted = "限制";
inline constexpr const char* debitRequired = "借方必有";
inline constexpr const char* creditRequired = "贷方必有";
inline constexpr const char* bothForbidden = "借贷必无";
inline constexpr const char* accountOne = "科目一";
inline constexpr const char* accountTwo = "科目二";

/// Heads the accounts to choose from; one of them: code and name.
inline constexpr const char* firstLevelAccounts = "一级科目";
inline constexpr const char* noFirstLevelAccounts =
    "还没有一级科目。\n请先在“会计科目”中增加,再回到这里选择。";
inline constexpr const char* choose = "选择...";
inline constexpr const char* chooseAccount = "选择{}";

/// Of a renumbering and of a deletion alike.
inline constexpr const char* used = "凭证类别已使用,不能再修改!";
inline constexpr const char* numberTaken = "类别号重复，\n\n请重新输入。";
inline constexpr const char* noAccount = "请输入限制科目";
inline constexpr const char* wrongAccount = "非法科目";
inline constexpr const char* equalAccounts = "科目不能重复";
inline constexpr const char* noRestriction = "请选择限制方式";

inline constexpr const char* nothingSelected = "请选择要删除的凭证类别";
/// Number and name take the places of {}.
inline constexpr const char* deletion = "是否删除当前凭证类别？\n\n类别:{}\n\n名称:{}";

inline constexpr const char* gone = "该凭证类别已被其他工作站删除,列表已重新读入。";
inline constexpr const char* changed =
    "该凭证类别已被其他工作站修改,本次操作没有进行,列表已重新读入。";

/// The type as it is stored and as it was typed take the places of {}.
inline constexpr const char* changedBelowTyped =
    "该凭证类别已被其他工作站修改,本次操作没有进行。\n\n现在的内容:{}\n输入的内容:{}\n\n"
    "输入已保留,核对后可以再次确定。";
inline constexpr const char* goneBelowTyped =
    "该凭证类别已被其他工作站删除,列表已重新读入。\n输入已保留,再次确定将作为新的凭证类别增加。";

/// A type in a line: as the list shows it, its restriction, the accounts.
inline constexpr const char* restrictedType = "{}({} {})";
inline constexpr const char* unknownRestriction = "限制方式不明";
inline constexpr const char* accountSeparator = "、";

/// What the operation log says. A type takes the place of {}.
inline constexpr const char* loggedAddition = "增加凭证类别 {}";
inline constexpr const char* loggedChange = "修改凭证类别 {}";
inline constexpr const char* loggedDeletion = "删除凭证类别 {}";

}  // namespace chengheng::voucher_type_texts
