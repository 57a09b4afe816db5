#pragma once

#include <array>
#include <string>
#include <string_view>

#include "accounts/chart/account_use.h"

/// What the operator is told about accounts.
namespace chengheng::account_texts {

inline constexpr const char* codeMissing = "必须输入科目编码";
inline constexpr const char* codeHasBlank = "科目编码不能包含空格!";
inline constexpr const char* codeNotUnique = "科目编码不唯一";
inline constexpr const char* parentMissing = "必须先定义上级科目编码";
inline constexpr const char* codeMalformed = "不符合科目编码规则";
inline constexpr const char* codeDepartsFromCategory = "科目编码首位和分类编号不符,接受此编码吗?";

inline constexpr const char* nameMissing = "必须输入科目名称";
inline constexpr const char* mnemonicTaken = "助记码必须唯一";
inline constexpr const char* currencyMissing = "请选择币种.";
inline constexpr const char* unitMissing = "请输入计量单位.";
inline constexpr const char* currencyGone = "该货币类型已经被修改或删除!";

/// A kind of accounting whose change is asked about.
enum class Accounting { foreign, auxiliary, quantity };

std::string parentUsed(std::string_view code, UsePlace place);
std::string used(std::string_view code, UsePlace place);
std::string hasChildren(std::string_view code);
std::string changeOfUsed(std::string_view code, UsePlace place, Accounting kind);

/// The account was changed at another workstation since it was shown; the lines say what.
std::string changedMeanwhile(std::string_view code, std::string_view lines);
/// It was deleted there.
std::string deletedMeanwhile(std::string_view code);

std::string askDeletion(std::string_view code, std::string_view name);
inline constexpr const char* notAnEndAccount = "不能删除非末级科目!";
inline constexpr const char* isBankAccount = "该科目已指定为银行科目,不能删除";
inline constexpr const char* isCashAccount = "该科目已指定为现金科目,不能删除";
std::string usedWithBelow(UsePlace place);

inline constexpr const char* designatedTwice = "银行、现金科目不能重复";
std::string askDesignation(std::string_view cashCode, std::string_view bankCode);

/// What an account's auxiliary letters begin with, and what they are called; the first that
/// fits counts.
struct AuxiliaryName {
    std::string_view beginning;
    std::string_view name;
};
inline constexpr std::array auxiliaryNames{
    AuxiliaryName{"A", "个人往来"},  AuxiliaryName{"BC", "部门往来"},
    AuxiliaryName{"BD", "项目往来"}, AuxiliaryName{"CD", "部门项目"},
    AuxiliaryName{"B", "单位往来"},  AuxiliaryName{"C", "部门核算"},
    AuxiliaryName{"D", "项目核算"},
};

inline constexpr const char* debit = "借";
inline constexpr const char* credit = "贷";

inline constexpr const char* codeColumn = "科目编码";
inline constexpr const char* nameColumn = "科目名称";

// Fields of an account that another workstation has changed.
inline constexpr const char* classTitle = "科目类别";
inline constexpr const char* pageTitle = "帐页格式";
inline constexpr const char* mnemonicTitle = "助记码";
inline constexpr const char* unitTitle = "计量单位";
inline constexpr const char* currencyTitle = "外币核算";
inline constexpr const char* quantityTitle = "数量核算";
inline constexpr const char* booksTitle = "辅助核算";
inline constexpr const char* directionTitle = "余额方向";
inline constexpr const char* storedNow = "{}:现在是“{}”";
inline constexpr const char* storedAndTyped = "{}:现在是“{}”,您输入的是“{}”";
inline constexpr const char* changedThere = "{}:已改变";

/// What the operation log says. An account takes the place of {}.
inline constexpr const char* loggedAddition = "增加科目 {}";
inline constexpr const char* loggedChange = "修改科目 {}";
inline constexpr const char* loggedDeletion = "删除科目 {}";
inline constexpr const char* loggedDesignation = "指定现金科目 {},银行科目 {}";
/// Code and name.
inline constexpr const char* codeAndName = "{} {}";

inline constexpr std::array ledgerPages{"金额式", "外币金额式", "数量金额式", "外币数量式"};

}  // namespace chengheng::account_texts
