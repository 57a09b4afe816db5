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

/// The account was changed at another workstation since it was shown.
std::string changedMeanwhile(std::string_view code);
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

// The columns of what holds an account.
inline constexpr const char* codeColumn = "科目编码";
inline constexpr const char* periodColumn = "期间";
inline constexpr const char* dateColumn = "日期";
inline constexpr const char* signColumn = "类别";
inline constexpr const char* numberColumn = "凭证号";
inline constexpr const char* digestColumn = "摘要";
inline constexpr const char* directionColumn = "方向";
inline constexpr const char* amountColumn = "金额";
inline constexpr const char* openingColumn = "期初余额";
inline constexpr const char* debitColumn = "借方发生额";
inline constexpr const char* creditColumn = "贷方发生额";
inline constexpr const char* frequentColumn = "常用凭证";
inline constexpr const char* transferColumn = "转帐名称";
inline constexpr const char* projectCodeColumn = "项目大类编码";
inline constexpr const char* projectColumn = "项目大类";

// The columns of a chart in a spreadsheet, beside codeColumn.
inline constexpr const char* chartTitle = "会计科目";
inline constexpr const char* levelColumn = "级次";
inline constexpr const char* nameColumn = "科目名称";
inline constexpr const char* classColumn = "科目类型";
inline constexpr const char* balanceColumn = "余额方向";
inline constexpr const char* pageColumn = "帐页格式";
inline constexpr const char* mnemonicColumn = "助记码";
inline constexpr const char* currencyColumn = "币种";
inline constexpr const char* quantityColumn = "数量核算";
inline constexpr const char* unitColumn = "计量单位";
inline constexpr const char* personColumn = "个人往来";
inline constexpr const char* partnerColumn = "单位往来";
inline constexpr const char* departmentColumn = "核算部门";
inline constexpr const char* projectsColumn = "核算项目";
inline constexpr const char* journalColumn = "日记帐";
inline constexpr const char* bankColumn = "银行帐";
inline constexpr const char* yes = "是";
inline constexpr const char* no = "否";

// What is said about an imported chart. {} is a value.
inline constexpr const char* headingsMissing = "没有标题行。标题行中应有“科目编码”和“科目名称”。";
inline constexpr const char* headingTwice = "标题“{}”重复。";
inline constexpr const char* classMissing = "没有科目类型。";
inline constexpr const char* classUnknown = "没有“{}”这个科目类型。";
inline constexpr const char* directionUnknown = "“{}”不是余额方向,应为借或贷。";
inline constexpr const char* directionKept = "余额方向与帐套中的不同。请在期初余额中调整方向。";
inline constexpr const char* currencyUnknown = "没有“{}”这个币种。";
inline constexpr const char* neitherYesNorNo = "“{}”应为是或否。";
inline constexpr const char* rowsRefused = "有 {} 行被拒绝,没有导入。\n请修改文件后重试。";
inline constexpr const char* planOutdated = "预览之后帐套中的资料已有改动,没有导入。\n请重新预览。";
inline constexpr const char* askAcceptance = "有 {} 行需要确认,全部接受并导入吗?";
inline constexpr const char* importCancelled = "导入已取消,科目没有改动。";
inline constexpr const char* fateAdded = "新增";
inline constexpr const char* fateChanged = "修改";
inline constexpr const char* fateUnchanged = "不变";
inline constexpr const char* fateRefused = "拒绝";

inline constexpr std::array ledgerPages{"金额式", "外币金额式", "数量金额式", "外币数量式"};

}  // namespace chengheng::account_texts
