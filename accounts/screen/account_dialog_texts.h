#pragma once

/// What the dialogs on accounts are called and show. {} is a value.
namespace chengheng::account_dialog_texts {

inline constexpr const char* addTitle = "会计科目_增加";
inline constexpr const char* addConfirm = "确定";
inline constexpr const char* addCancel = "取消";
inline constexpr const char* modifyTitle = "会计科目_修改";
inline constexpr const char* modifyConfirm = "修改";
inline constexpr const char* modifyCancel = "返回";

inline constexpr const char* browseCurrency = "选择币种";
inline constexpr const char* persons = "个人目录";
inline constexpr const char* departments = "部门目录";
inline constexpr const char* projects = "项目大类";
inline constexpr const char* units = "单位目录";

inline constexpr const char* usedTitle = "科目使用情况";
inline constexpr const char* usedHeading = "科目 {} 及其下级科目的使用情况:";
inline constexpr const char* usedNowhere = "科目 {} 及其下级科目没有在任何地方使用。";
inline constexpr const char* usedPlaces = "使用之处";
inline constexpr const char* usedPlace = "{} ({})";
inline constexpr const char* usedMore = "共 {} 条,只列出前 {} 条。";
inline constexpr const char* usedRows = "明细";
inline constexpr const char* close = "关闭";

inline constexpr const char* designateTitle = "指定科目";
inline constexpr const char* designateCash = "现金总帐科目";
inline constexpr const char* designateBank = "银行总帐科目";
inline constexpr const char* designateNote = "显示说明";

inline constexpr const char* rangeTitle = "打印范围";
inline constexpr const char* rangeFirstCode = "起始科目(&F):";
inline constexpr const char* rangeLastCode = "终止科目(&T):";
inline constexpr const char* rangeFirstLevel = "起始级次(&L):";
inline constexpr const char* rangeLastLevel = "终止级次(&E):";
inline constexpr const char* rangeOpen = "不限";
inline constexpr const char* rangeReversed = "终止级次不能小于起始级次!";

}  // namespace chengheng::account_dialog_texts
