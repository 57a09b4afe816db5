#pragma once

/// What the wizard of preset voucher types shows and says. Blanks at the front of captions
/// belong to them.
namespace chengheng::preset_texts {

inline constexpr const char* title = "凭证类别预置";

inline constexpr const char* classifyingGroup = "是否分类";
inline constexpr const char* classifyingQuestion = "凭证是否分类:";
inline constexpr const char* classified = "分类";
inline constexpr const char* unclassified = "不分类 (记帐凭证)";

inline constexpr const char* waysOfClassifying = "分类方式:";
inline constexpr const char* receiptsAndPayments = " 收款凭证 付款凭证 转帐凭证";
inline constexpr const char* cashAndBank = " 现金凭证 银行凭证 转帐凭证";
inline constexpr const char* fiveKinds =
    " 现金收款凭证 银行收款凭证   现金付款凭证 银行付款凭证   转帐凭证";
inline constexpr const char* custom = "自定义";

inline constexpr const char* back = "上一步(&B)";
inline constexpr const char* next = "下一步(&N)";
inline constexpr const char* finish = "完成(&F)";
inline constexpr const char* cancel = "取消";

inline constexpr const char* alreadySet = "凭证类别已经被设置!";

/// A preset type as it is called.
struct TypeName {
    const char* number;
    const char* name;
};
inline constexpr TypeName anyVoucher{"记", "记帐凭证"};
inline constexpr TypeName receipt{"收", "收款凭证"};
inline constexpr TypeName payment{"付", "付款凭证"};
inline constexpr TypeName transfer{"转", "转帐凭证"};
inline constexpr TypeName cash{"现", "现金凭证"};
inline constexpr TypeName bank{"银", "银行凭证"};
inline constexpr TypeName cashReceipt{"01", "现金收款凭证"};
inline constexpr TypeName cashPayment{"02", "现金付款凭证"};
inline constexpr TypeName bankReceipt{"03", "银行收款凭证"};
inline constexpr TypeName bankPayment{"04", "银行付款凭证"};
inline constexpr TypeName fifthTransfer{"05", "转帐凭证"};

/// What will be written: number, name and restriction of a type.
inline constexpr const char* previewRow = "{} {}  {}";
inline constexpr const char* unrestricted = "不限制";
inline constexpr const char* nothingWritten = "不建立凭证类别,请在“凭证类别”窗口中自行增加。";
inline constexpr const char* accountsMissing =
    "没有指定{},涉及的类别不加限制。可以先在“会计科目”中指定科目。";
inline constexpr const char* cashAccount = "现金科目";
inline constexpr const char* bankAccount = "银行科目";
inline constexpr const char* cashAndBankAccounts = "现金科目和银行科目";

/// What the operation log says, before the types.
inline constexpr const char* logged = "预置凭证类别";

}  // namespace chengheng::preset_texts
