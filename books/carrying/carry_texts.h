#pragma once

/// What is said of the carry-forward of last year's balances. {} is a value.
namespace chengheng::carry_texts {

inline constexpr const char* notEmpty = "结转上年余额不成功";
inline constexpr const char* noLastYear = "上年帐套不存在";
inline constexpr const char* differingCharts = "上年科目信息和本年科目信息不一致,不能结转期初余额!";

inline constexpr const char* givenUp = "已取消,没有改动。";
inline constexpr const char* nothingToCarry = "上年和本年都没有可以结转的科目,没有改动。";
inline constexpr const char* browsing = "帐套已有凭证或只能浏览,不能结转上年余额,没有改动。";
/// The first obstacles, and how many there are.
inline constexpr const char* obstacles = "不能结转上年余额,没有改动:\n{}";
inline constexpr const char* moreObstacles = "……共 {} 处";
/// Accounts, debits, credits.
inline constexpr const char* carried = "已结转 {} 个科目,借方合计 {},贷方合计 {}。";
/// Where it was to follow the making of this year's books.
inline constexpr const char* notCarried = "没有结转上年余额,原因:{}";
inline constexpr const char* newYearNotOpened = "新年度帐套没有打开。";

inline constexpr const char* added = "{} {}:上年没有此科目。";
inline constexpr const char* removed = "{} {}:本年没有此科目。";
/// Code and name of last year, code of this year.
inline constexpr const char* recoded = "{} {}:本年的编码是 {}。";
inline constexpr const char* otherIdentity = "{} {}:上年和本年的内部编号不同。";
/// Code, name, direction of last year and of this.
inline constexpr const char* turned = "{} {}:余额方向上年为{},本年为{}。";
inline constexpr const char* noEnd = "{} {}:上年为末级科目并有余额,本年已有下级科目。";
inline constexpr const char* otherCurrency = "{} {}:有外币余额,本年的币种与上年不同。";
inline constexpr const char* otherDimensions = "{} {}:有余额,本年的辅助核算与上年不同。";
inline constexpr const char* doubled = "{} {}:上年第 12 期的余额记录重复。";
inline constexpr const char* cutShort = "{} {}:上年有余额记录,但缺少第 12 期的。";
inline constexpr const char* tooLarge = "{} {}:余额过大,无法记到分。";
inline constexpr const char* memberMissing = "{} {}:有余额的{}在本年目录中没有,或已是另一个。";
/// Of accounts that a repeat passes over.
inline constexpr const char* wasNoEnd = "{} {}:上年有下级科目,本年为末级科目。";
inline constexpr const char* notAuxiliary = "{} {}:不是辅助核算科目,明细不结转。";
inline constexpr const char* hasEntries = "{} {}:本年已有期初明细,请在辅助期初中修改。";
inline constexpr const char* debit = "借";
inline constexpr const char* credit = "贷";

/// The classes whose balance goes into the result of the year; the last is both others in one.
inline constexpr const char* classesOfTheResult[] = {"收入", "支出", "损益"};

inline constexpr const char* money = "金额";
inline constexpr const char* foreign = "外币";
inline constexpr const char* quantity = "数量";
inline constexpr const char* noMember = "无明细对象";
/// Code, name, detail, what is counted, last year's closing, this year's opening, their distance.
inline constexpr const char* difference = "{} {}{}:上年期末{} {},本年期初 {},相差 {}";
/// An account that would be carried: code, name, direction, closing, this year's opening.
inline constexpr const char* plannedAccount = "{} {}:{} 期末 {},本年期初 {}";
inline constexpr const char* plannedTotal = "将结转 {} 个科目,借方合计 {},贷方合计 {}。";
inline constexpr const char* alreadyFilled = "本年已有期初余额,不能再次结转。";

// When it is repeated.
inline constexpr const char* notCarriedYet = "本年还没有期初余额,请使用“结转上年余额”。";
inline constexpr const char* repeatBrowsing = "帐套已有凭证或只能浏览,不能补转上年差额,没有改动。";
inline constexpr const char* notTakenBack = "帐套已有凭证,不能撤销补转,没有改动。";
/// Figures, accounts.
inline constexpr const char* repeated = "已补转 {} 处差额,共 {} 个科目。";
inline constexpr const char* repeatable = "可以补转 {} 处差额,共 {} 个科目。";
inline constexpr const char* leftOut = "另有 {} 处差额不能补转,保持不变。";
inline constexpr const char* nothingToRepeat = "没有可以补转的差额,没有改动。";
inline constexpr const char* changedMeanwhile =
    "本年期初余额已被其他工作站修改,没有补转,请重新查看差额。";

inline constexpr const char* proven = "本年期初余额与上年期末余额一致。";
inline constexpr const char* differing = "本年期初余额与上年期末余额有 {} 处不同。";

// What is shown in a table.
inline constexpr const char* previewTitle = "结转上年余额预览";
inline constexpr const char* proofTitle = "上年期末与本年期初核对表";
inline constexpr const char* repeatTitle = "补转上年差额";
inline constexpr const char* codeHeading = "科目编码";
inline constexpr const char* nameHeading = "科目名称";
inline constexpr const char* directionHeading = "借/贷";
inline constexpr const char* closingHeading = "上年期末余额";
inline constexpr const char* foreignHeading = "上年期末外币";
inline constexpr const char* quantityHeading = "上年期末数量";
inline constexpr const char* openingHeading = "本年期初余额";
inline constexpr const char* detailHeading = "明细";
inline constexpr const char* measureHeading = "项目";
inline constexpr const char* apartHeading = "相差";
inline constexpr const char* remarkHeading = "说明";
inline constexpr const char* separator = ";";
inline constexpr const char* debitTotal = "借方合计";
inline constexpr const char* creditTotal = "贷方合计";
inline constexpr const char* plannedDetails = "其中辅助明细 {} 条。";
inline constexpr const char* obstacleCount = "有 {} 处不能结转,原因见说明,排除后才能结转。";
inline constexpr const char* readyToCarry = "可以结转:请使用“结转上年余额”。";

/// What the operation log says: how many accounts.
inline constexpr const char* logged = "结转上年余额 {} 个科目";

}  // namespace chengheng::carry_texts
