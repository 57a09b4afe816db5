#include "books/checking/integrity_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "data/layout/layout.h"
#include "data/tables/schema.h"
#include "data/transfer/content_copy.h"
#include "tests/support/engine_cases.h"
#include "tests/support/small_books.h"

namespace chengheng {

void PrintTo(const IntegrityFault& fault, std::ostream* stream) {
    *stream << fault.check << ": " << fault.text;
}

}  // namespace chengheng

namespace {

using chengheng::checkIntegrity;
using chengheng::Engine;
using chengheng::EngineCase;
using chengheng::fillSmallBooks;
using chengheng::freshLocation;
using chengheng::IntegrityFault;
using chengheng::openForTest;
using chengheng::runScript;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<IntegrityFault> faultsIn(Engine& engine) {
    std::vector<IntegrityFault> faults;
    const auto status = checkIntegrity(engine, faults);
    EXPECT_TRUE(status.isDone()) << status.detail;
    return faults;
}

auto faultOf(const char* check, const char* text) {
    return testing::AllOf(testing::Field(&IntegrityFault::check, check),
                          testing::Field(&IntegrityFault::text, HasSubstr(text)));
}

/// One damage and the one fault it must give.
struct Damage {
    const char* name;
    const char* sql;
    const char* check;
    const char* text;
};

void PrintTo(const Damage& damage, std::ostream* stream) { *stream << damage.name; }

constexpr Damage damages[] = {
    {"ParametersGone", "DELETE FROM zAccountM", "parameters", "实有 0 行"},
    {"ParametersTwice", "INSERT INTO zAccountM (lId, sCodeLen) VALUES (2, '4222')", "parameters",
     "实有 2 行"},
    {"PatternOfSevenLevels", "UPDATE zAccountM SET sCodeLen = '4222222'", "parameters",
     "“4222222”"},
    {"CounterGone", "DELETE FROM ABIdTable WHERE sTable = 'Settle'", "idCounters", "“Settle”"},
    {"CounterTwice", "INSERT INTO ABIdTable (sTable, lLastId) VALUES ('Settle', 400)", "idCounters",
     "“Settle”有 2 行"},
    {"CounterBehind", "UPDATE ABIdTable SET lLastId = 35 WHERE sTable = 'AccSum'", "idCounters",
     "“AccSum”记到 35,而 AccSum 中已有编号 36"},
    {"PostedCounterBehindUnposted", "UPDATE ABIdTable SET lLastId = 1 WHERE sTable = 'RegMain'",
     "idCounters", "“RegMain”记到 1,而 UnregMain 中已有编号 2"},
    {"UnpostedCounterBehindLines", "UPDATE ABIdTable SET lLastId = 1 WHERE sTable = 'UnRegSub'",
     "idCounters", "“UnRegSub”记到 1,而 UnregSub 中已有编号 2"},
    {"HeaderIdInBothTables", "INSERT INTO UnregMain (lId) VALUES (1)", "sharedIds",
     "编号 1 在 RegMain 和 UnregMain"},
    {"LineIdInBothTables", "INSERT INTO RegSub (lId, lTieId, lCodeId) VALUES (2, 1, 1)",
     "sharedIds", "编号 2 在 RegSub 和 UnregSub"},
    {"CodeTwice",
     "INSERT INTO Code (lId, sCode, sType, byGrade, bEnd) VALUES (9, '1001', '资产', 1, 1)",
     "uniqueCodes", "1001 库存现金"},
    {"CodeOfWrongLength",
     "INSERT INTO Code (lId, sCode, sType, byGrade, bEnd) VALUES (9, '10030', '资产', 1, 1)",
     "codePattern", "科目级长 4222"},
    {"GradeTooHigh", "UPDATE Code SET byGrade = 3 WHERE lId = 3", "grades",
     "级次记为 3,按编码应为 2"},
    {"ParentMissing",
     "INSERT INTO Code (lId, sCode, sType, byGrade, bEnd) VALUES (9, '300101', '资产', 2, 1)",
     "parents", "没有上级科目 3001"},
    {"EndAccountWithChildren", "UPDATE Code SET bEnd = 1 WHERE lId = 3", "endAccounts",
     "100201 工商银行(编号 3):记为末级科目"},
    {"NoEndAccountWithoutChildren", "UPDATE Code SET bEnd = 0 WHERE lId = 1", "endAccounts",
     "未记为末级科目"},
    {"MnemonicTwice", "UPDATE Code SET sHelp = 'KCXJ' WHERE lId = 6", "uniqueMnemonics",
     "“KCXJ”与科目 1001 相同"},
    {"ItemTableGone", "DROP TABLE ProjItems01", "projectItems", "ProjItems01"},
    {"ItemOfSumsGone", "UPDATE RegSub SET bBegin = 0;UPDATE AssAcc SET sItemId = '01', lItemId = 8",
     "projectItems", "AssAcc 用到项目大类“01”的项目编号 8"},
    {"ItemOfLineGone", "UPDATE RegSub SET bBegin = 0, sItemId = '01', lItemId = 9", "projectItems",
     "RegSub 用到项目大类“01”的项目编号 9"},
    {"ItemWithoutClass", "UPDATE UnregSub SET lItemId = 1", "projectItems",
     "UnregSub 用到项目大类“”的项目编号 1"},
    {"OperatorWithoutRights", "DELETE FROM UserAuth", "operators", "张三:UserAuth 中应有 1 行"},
    {"OperatorWithRightsTwice", "INSERT INTO UserAuth (lId, lUserId) VALUES (2, 1)", "operators",
     "实有 2 行"},
    {"RightsWithoutOperator", "INSERT INTO UserAuth (lId, lUserId) VALUES (2, 7)", "operators",
     "操作员 7 不存在"},
    {"OperatorTwice",
     "INSERT INTO Users (lId, lUserId, sUserName, sPassword) "
     "VALUES (2, 2, '张三', '$argon2id$v=19$');"
     "INSERT INTO UserAuth (lId, lUserId) VALUES (2, 2)",
     "operators", "“张三”出现 2 次"},
    {"OperatorIdsApart", "UPDATE Users SET lUserId = 5; UPDATE UserAuth SET lUserId = 5",
     "operators", "lId 为 1,lUserId 为 5"},
    {"NoManager", "UPDATE Users SET bManager = 0", "operators", "没有主管"},
    {"PasswordInClear", "UPDATE Users SET sPassword = 'geheim'", "operators",
     "操作员 张三:口令为空或没有加密"},
    {"PasswordEmpty", "UPDATE Users SET sPassword = ''", "operators",
     "操作员 张三:口令为空或没有加密"},
    {"BlankInCode", "UPDATE Code SET sCode = '22 2' WHERE lId = 6", "codePattern",
     "科目 22 2 应付账款(编号 6):编码中有空格"},
    {"WideBlankInCode", "UPDATE Code SET sCode = '22　2' WHERE lId = 6", "codePattern",
     "编码中有空格"},
    {"ByteTooLarge", "UPDATE Sign SET byLimit = 300", "cells",
     "Sign 编号 1 的 byLimit:300 不在 0 到 255 之间"},
    {"ByteBelowNothing", "UPDATE Sign SET byLimit = -1", "cells",
     "Sign 编号 1 的 byLimit:-1 不在 0 到 255 之间"},
    {"UnitKindNobodyKnows", "UPDATE Enter SET byKind = 9", "cells",
     "Enter 编号 1 的 byKind:9 不在 0 到 2 之间"},
    {"MoneyThatIsNoNumber", "UPDATE FreqSub SET mMoney = 'NaN'", "cells",
     "FreqSub 编号 1 的 mMoney:"},
    {"ControlCharacter", "UPDATE _Digest SET sDigest = 'a\x07z'", "cells",
     "_Digest 编号 1 的 sDigest:“a?z”中有控制字符"},
    {"ItemWithAControlCharacter", "UPDATE ProjItems01 SET FIELD1 = '\x7F'", "cells",
     "ProjItems01 编号 1 的 FIELD1:“?”中有控制字符"},
    {"PeriodMissing", "DELETE FROM AccSum WHERE lCodeId = 1 AND byPeroid = 7", "periodSums",
     "1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12"},
    {"PeriodTwice", "INSERT INTO AccSum (lId, lCodeId, byPeroid) VALUES (99, 1, 3)", "periodSums",
     "2, 3, 3, 4"},
    {"PeriodReplaced", "UPDATE AccSum SET byPeroid = 13 WHERE lCodeId = 1 AND byPeroid = 12",
     "periodSums", "11, 13"},
    {"OpeningOfAPeriodDiffers",
     "DELETE FROM RegMain; DELETE FROM RegSub; DELETE FROM UnregMain; DELETE FROM UnregSub;"
     "UPDATE AccSum SET mBegin = mBegin + 1 WHERE lCodeId = 1 AND byPeroid = 7",
     "openings", "AccSum 编号 7(第 7 期)的 mBegin 为"},
    {"QuantityOfTheFirstPeriodDiffers",
     "DELETE FROM RegMain; DELETE FROM RegSub; DELETE FROM UnregMain; DELETE FROM UnregSub;"
     "UPDATE AccSum SET dAmtBegin = 2 WHERE lCodeId = 1 AND byPeroid = 1",
     "openings", "(第 1 期)的 dAmtBegin 为"},
    {"OpeningThatIsNoNumber",
     "DELETE FROM RegMain; DELETE FROM RegSub; DELETE FROM UnregMain; DELETE FROM UnregSub;"
     "UPDATE AccSum SET mBegin = 'NaN' WHERE lCodeId = 1 AND byPeroid = 7",
     "cells", "AccSum 编号 7 的 mBegin:"},
    {"CashMarkBelowNone", "UPDATE Code SET bCash = 1 WHERE lId = 3", "designation",
     "科目 100201 工商银行(编号 3):Code 的 bCash 已标记,而上级科目 1002 没有标记"},
    {"BankMarkBelowNone", "UPDATE Code SET bBank = 1 WHERE lId = 3", "designation", "bBank"},
    {"AuxiliaryMoneyDiffers", "UPDATE AssAcc SET mBegin = 100.11 WHERE byPeroid = 4",
     "auxiliarySums",
     "1122 应收账款(编号 5):第 4 期期初金额,科目总帐为 100.10,辅助总帐合计为 100.11"},
    {"AuxiliaryQuantityDiffers", "UPDATE AssAcc SET dCredit = 0.00002 WHERE byPeroid = 1",
     "auxiliarySums", "第 1 期贷方数量,科目总帐为 0.00000,辅助总帐合计为 0.00002"},
    {"AuxiliaryForeignDiffers", "UPDATE AccSum SET mFgnDebet = 1 WHERE lId = 24", "auxiliarySums",
     "第 12 期借方外币,科目总帐为 1.00,辅助总帐合计为 0.00"},
    {"EntryDiffers", "UPDATE RegSub SET mMoney = 100.11 WHERE bBegin <> 0", "openingEntries",
     "1122 应收账款(编号 5):单位(编号 1)的期初金额,期初明细合计为 100.11,辅助总帐为 100.10"},
    {"EntryOfOtherDirection", "UPDATE RegSub SET bDirect = 1 - bDirect WHERE bBegin <> 0",
     "openingEntries", "期初明细合计为 -100.10,辅助总帐为 100.10"},
    {"EntryWithQuantity", "UPDATE RegSub SET dAmt = 0.00001 WHERE bBegin <> 0", "openingEntries",
     "期初数量,期初明细合计为 0.00001,辅助总帐为 0.00000"},
    {"EntryWithForeignMoney", "UPDATE RegSub SET mFgn = 0.01 WHERE bBegin <> 0", "openingEntries",
     "期初外币,期初明细合计为 0.01,辅助总帐为 0.00"},
    {"FixedRateMissing", "DELETE FROM ExchgFix WHERE byPeroid = 5", "fixedRates",
     "2026 年固定汇率缺 1 行,最早缺 2026-05-01"},
    {"FixedRateTwice",
     "INSERT INTO ExchgFix (lId, byExchId, dtDate, byPeroid) VALUES (20, 1, '2026-01-01', 1)",
     "fixedRates", "日期 2026-01-01"},
    {"FixedRateInsideAMonth",
     "INSERT INTO ExchgFix (lId, byExchId, dtDate, byPeroid) VALUES (20, 1, '2026-01-02', 1)",
     "fixedRates", "日期 2026-01-02"},
    {"FixedRatesGone", "DELETE FROM ExchgFix", "fixedRates", "外币 USD 没有固定汇率"},
    {"FloatingRatesMissing", "DELETE FROM ExchgFlt WHERE byPeroid = 2", "floatingRates",
     "2026 年浮动汇率缺 28 行,最早缺 2026-02-01"},
    {"FloatingRateOfWrongMonth",
     "INSERT INTO ExchgFlt (lId, byExchId, dtDate, byPeroid) VALUES (399, 1, '2026-03-05', 4)",
     "floatingRates", "月份 4"},
    {"FloatingRatesGone", "DELETE FROM ExchgFlt", "floatingRates", "外币 USD 没有浮动汇率"},
};

class IntegrityDamage : public testing::TestWithParam<Damage> {};

TEST_P(IntegrityDamage, GivesItsFaultAndNoOther) {
    const auto engine = openForTest(":memory:");
    fillSmallBooks(*engine);
    plant(*engine, GetParam().sql);
    EXPECT_THAT(faultsIn(*engine), ElementsAre(faultOf(GetParam().check, GetParam().text)));
}

INSTANTIATE_TEST_SUITE_P(Each, IntegrityDamage, testing::ValuesIn(damages),
                         [](const auto& damage) { return damage.param.name; });

TEST(IntegrityOfPasswords, ShowsNoneThatIsInClear) {
    const auto engine = openForTest(":memory:");
    fillSmallBooks(*engine);
    runScript(*engine, "UPDATE Users SET sPassword = 'geheim\x07'");
    const auto faults = faultsIn(*engine);
    EXPECT_THAT(faults, ElementsAre(faultOf("cells", "Users 编号 1 的 sPassword:口令的内容不正确"),
                                    faultOf("operators", "口令为空或没有加密")));
    for (const IntegrityFault& fault : faults)
        EXPECT_EQ(fault.text.find("geheim"), std::string::npos);
}

/// What a server does not take into its columns in the first place.
constexpr Damage damagesOfFiles[] = {
    {"MoneyOfLetters", "UPDATE FreqSub SET mMoney = '12x'", "cells",
     "FreqSub 编号 1 的 mMoney:“12x”不是数字"},
    {"MoneyOfBytes", "UPDATE FreqSub SET mMoney = x'3132'", "cells", "“12”不是数字"},
    {"InfiniteMoney", "UPDATE FreqSub SET mMoney = 9e999", "cells",
     "FreqSub 编号 1 的 mMoney:不是有限的数"},
    {"InfiniteMoneyBelowNothing", "UPDATE FreqSub SET mMoney = -9e999", "cells", "不是有限的数"},
    {"RateBeyondSinglePrecision", "UPDATE Cyrency SET fMaxError = 1e300", "cells",
     "Cyrency 编号 1 的 fMaxError:不是有限的数"},
    {"FractionOfAByte", "UPDATE Sign SET byLimit = 1.5", "cells",
     "Sign 编号 1 的 byLimit:“1.5”不是整数"},
    {"NumberOfLetters", "UPDATE RegMain SET lNumber = 'drei'", "cells",
     "RegMain 编号 1 的 lNumber:“drei”不是整数"},
    {"NumberBeyondItsColumn", "UPDATE RegMain SET lNumber = 2147483648", "cells",
     "2147483648 不在 -2147483648 到 2147483647 之间"},
    {"FlagBeyondItsColumn", "UPDATE RegSub SET bBegin = 32768", "cells",
     "32768 不在 -32768 到 32767 之间"},
    {"TextThatIsNoUtf8", "UPDATE _Digest SET sDigest = CAST(x'41FF' AS TEXT)", "cells",
     "_Digest 编号 1 的 sDigest:不是有效的 UTF-8 文字"},
    {"TextWithANul", "UPDATE _Digest SET sDigest = CAST(x'410042' AS TEXT)", "cells",
     "_Digest 编号 1 的 sDigest:“A?B”中有控制字符"},
    {"ImpossibleDate", "UPDATE UnregMain SET dtDate = '2026-02-30'", "cells",
     "UnregMain 编号 2 的 dtDate:“2026-02-30”不是日期"},
};

INSTANTIATE_TEST_SUITE_P(OfAFile, IntegrityDamage, testing::ValuesIn(damagesOfFiles),
                         [](const auto& damage) { return damage.param.name; });

/// Columns that must name a row of another table.
constexpr const char* referringColumns[] = {
    "Code.sType",         "Code.byExchId",     "AccSum.lCodeId",       "AssAcc.lCodeId",
    "AssAcc.lDeptId",     "AssAcc.lPersonId",  "AssAcc.lEnterId",      "AssAcc.sItemId",
    "Sign.sCode1",        "Sign.sCode2",       "ExchgFix.byExchId",    "ExchgFlt.byExchId",
    "Person.lDeptId",     "Enter.lClassId",    "ProjCodes.lCodeId",    "ProjCodes.sItemId",
    "RegMain.sSign",      "RegSub.lTieId",     "RegSub.lCodeId",       "RegSub.lDeptId",
    "RegSub.lPersonId",   "RegSub.lEnterId",   "RegSub.sItemId",       "RegSub.sStlId",
    "UnregMain.sSign",    "UnregSub.lTieId",   "UnregSub.lCodeId",     "UnregSub.lDeptId",
    "UnregSub.lPersonId", "UnregSub.lEnterId", "UnregSub.sItemId",     "UnregSub.sStlId",
    "AutoMain.sSign",     "AutoSub.lTieId",    "AutoSub.lCodeId",      "FreqSub.lCodeId",
    "_Digest.lCodeId",    "RecpBank.lCodeId",  "RecpBank.sNoteMethod", "RecpEnter.lCodeId",
    "RecpEnter.lEnterId", "ZWPrintSub.lTieId",
};

/// The value that names nothing, for a column of either kind.
std::string strayValue(const std::string& table, const std::string& column) {
    const auto& columns = chengheng::findTable(table)->columns;
    const auto found =
        std::ranges::find(columns, column, [](const auto& each) { return each.name; });
    return found->type == chengheng::ColumnType::text ? "nix" : "199";
}

class Integrity : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_location = freshLocation(GetParam());
        m_engine = openForTest(m_location);
        fillSmallBooks(*m_engine);
    }

    std::string m_location;
    std::unique_ptr<Engine> m_engine;
};

TEST_P(Integrity, SoundBooksHaveNoFaults) { EXPECT_THAT(faultsIn(*m_engine), IsEmpty()); }

TEST_P(Integrity, CheckLeavesNoTransactionOpen) {
    faultsIn(*m_engine);
    EXPECT_FALSE(m_engine->inTransaction());
}

TEST_P(Integrity, EveryReferenceToNothingIsNamed) {
    int id = 500;
    for (const std::string name : referringColumns) {
        const std::string table = name.substr(0, name.find('.'));
        const std::string column = name.substr(name.find('.') + 1);
        runScript(*m_engine, "INSERT INTO " + table + " (lId, " + column + ") VALUES (" +
                                 std::to_string(++id) + ", '" + strayValue(table, column) + "')");
    }
    const auto faults = faultsIn(*m_engine);
    for (const std::string name : referringColumns) {
        const std::string text =
            name + " 有 1 行的值为“" +
            strayValue(name.substr(0, name.find('.')), name.substr(name.find('.') + 1)) + "”";
        EXPECT_THAT(faults, testing::Contains(faultOf("references", text.c_str())));
    }
}

TEST_P(Integrity, EveryDamageOfTheCatalogueIsFoundHereToo) {
    const auto sound = openForTest(":memory:");
    fillSmallBooks(*sound);
    for (const Damage& damage : damages) {
        plant(*m_engine, damage.sql);
        EXPECT_THAT(faultsIn(*m_engine), ElementsAre(faultOf(damage.check, damage.text)))
            << damage.name;
        ASSERT_TRUE(m_engine->begin().isDone());
        ASSERT_TRUE(replaceContent(*sound, *m_engine).isDone()) << damage.name;
        ASSERT_TRUE(m_engine->commit().isDone());
    }
}

TEST_P(Integrity, ViewsThatAreNotOursAreNamed) {
    runScript(*m_engine, "CREATE VIEW looks AS SELECT lId FROM Code");
    EXPECT_THAT(faultsIn(*m_engine),
                ElementsAre(faultOf("objects", "视图“looks”不是本程序建立的")));
}

TEST_P(Integrity, TriggersThatAreNotOursAreNamed) {
    runScript(*m_engine, GetParam().name == "postgres"
                             ? "CREATE RULE grabs AS ON UPDATE TO Dept DO ALSO DELETE FROM Settle"
                             : "CREATE TRIGGER grabs AFTER UPDATE ON Dept "
                               "BEGIN DELETE FROM Settle; END");
    EXPECT_THAT(faultsIn(*m_engine),
                ElementsAre(faultOf("objects", "触发器“grabs”不是本程序建立的")));
}

TEST_P(Integrity, IndexThatIsMissingIsNamed) {
    const auto names = chengheng::indexNames(*chengheng::findTable("AccSum"));
    ASSERT_FALSE(names.empty());
    runScript(*m_engine, "DROP INDEX " + names.front());
    const std::string text = "AccSum 缺少索引 " + names.front();
    EXPECT_THAT(faultsIn(*m_engine), ElementsAre(faultOf("objects", text.c_str())));
}

TEST_P(Integrity, BooksThatBeginInsideAYearOpenItsFirstPeriodWithOtherFigures) {
    for (const char* table : {"RegMain", "RegSub", "UnregMain", "UnregSub"})
        runScript(*m_engine, std::string("DELETE FROM ") + table);
    runScript(*m_engine,
              "UPDATE AccSum SET mBegin = mBegin + 7 WHERE lCodeId = 1 AND byPeroid = 1");
    EXPECT_THAT(faultsIn(*m_engine), ElementsAre(faultOf("openings", "(第 1 期)的 mBegin 为")));
    runScript(*m_engine, "UPDATE zAccountM SET dtStart = '2026-03-01'");
    EXPECT_THAT(faultsIn(*m_engine), IsEmpty());
    runScript(*m_engine,
              "UPDATE AccSum SET mBegin = mBegin + 7 WHERE lCodeId = 1 AND byPeroid = 2");
    EXPECT_THAT(faultsIn(*m_engine), ElementsAre(faultOf("openings", "(第 2 期)的 mBegin 为")));
}

TEST_P(Integrity, ParentsUnlikeWhatIsBelowThemAreNotedAndNoFault) {
    std::string rows;
    int id = 100;
    for (int period = 1; period <= 12; ++period)
        for (const char* account : {"2", "3", "4"})
            rows += "INSERT INTO AccSum (lId, lCodeId, byPeroid, mBegin, mDebet) VALUES (" +
                    std::to_string(++id) + ", " + account + ", " + std::to_string(period) +
                    ", 0.30, 7);";
    runScript(*m_engine, rows + "UPDATE ABIdTable SET lLastId = 200 WHERE sTable = 'AccSum'");
    const auto notes = [&] {
        std::vector<IntegrityFault> faults;
        std::vector<IntegrityFault> found;
        EXPECT_TRUE(checkIntegrity(*m_engine, faults, &found).isDone());
        EXPECT_THAT(faults, IsEmpty());
        return found;
    };
    EXPECT_THAT(notes(), IsEmpty());
    runScript(*m_engine, "UPDATE AccSum SET mDebet = 7.01 WHERE lCodeId = 3 AND byPeroid = 5");
    EXPECT_THAT(notes(), ElementsAre(faultOf("parentSums",
                                             "科目 100201 工商银行(编号 3):第 5 期借方金额为 "
                                             "7.01,下级科目合计为 7.00")));
    runScript(*m_engine, "UPDATE AccSum SET mBegin = 5 WHERE lCodeId = 2 AND byPeroid > 10");
    EXPECT_THAT(notes(), ElementsAre(faultOf("parentSums", "100201"),
                                     faultOf("parentSums",
                                             "科目 1002 银行存款(编号 2):第 11 期期初金额为 "
                                             "5.00,下级科目合计为 0.30,这样的金额共 2 个")));
    runScript(*m_engine, "DELETE FROM AccSum WHERE lCodeId IN (2, 3)");
    EXPECT_THAT(notes(), IsEmpty());
}

TEST_P(Integrity, GapsInTheRatesOfACurrencyAreNotedAndNoFault) {
    runScript(*m_engine,
              "UPDATE ExchgFix SET dRate = 7; UPDATE ExchgFix SET dRate = 0 WHERE byPeroid = 3;"
              "UPDATE ExchgFlt SET dRate = 0;"
              "UPDATE ExchgFlt SET dRate = 7 WHERE dtDate = '2026-01-02'");
    std::vector<IntegrityFault> faults;
    std::vector<IntegrityFault> notes;
    EXPECT_TRUE(checkIntegrity(*m_engine, faults, &notes).isDone());
    EXPECT_THAT(faults, IsEmpty());
    EXPECT_THAT(notes, ElementsAre(faultOf("rateGaps", "固定汇率 2026 年缺 1 个月:2026.03"),
                                   faultOf("rateGaps", "浮动汇率 2026 年缺 1 天:2026.01.01")));
}

TEST_P(Integrity, RestrictionAccountMustBeOfTheTopLevel) {
    runScript(*m_engine, "UPDATE Sign SET sCode2 = '100201'");
    EXPECT_THAT(faultsIn(*m_engine), ElementsAre(faultOf("references", "“100201”")));
}

TEST_P(Integrity, AccountsOfNoIdAreNoAccounts) {
    runScript(*m_engine, "INSERT INTO Code (lId, sCode, sType) VALUES (0, 'x', '资产')");
    EXPECT_THAT(faultsIn(*m_engine), IsEmpty());
}

TEST_P(Integrity, AuxiliarySumsMayDifferByRounding) {
    runScript(*m_engine, "UPDATE AssAcc SET mBegin = 100.10000001, dBegin = 0.000001");
    EXPECT_THAT(faultsIn(*m_engine), IsEmpty());
}

TEST_P(Integrity, AuxiliarySumsOfSeveralUnitsAreAddedUp) {
    runScript(*m_engine,
              "INSERT INTO Enter (lId, lClassId) VALUES (2, 1);"
              "UPDATE RegSub SET bBegin = 0;"
              "UPDATE AssAcc SET mBegin = 60.05");
    for (int period = 1; period <= 12; ++period)
        runScript(*m_engine,
                  "INSERT INTO AssAcc (lId, byPeroid, lCodeId, lEnterId, mBegin) VALUES (" +
                      std::to_string(100 + period) + ", " + std::to_string(period) +
                      ", 5, 2, 40.05)");
    EXPECT_THAT(faultsIn(*m_engine), IsEmpty());
}

TEST_P(Integrity, AccountWithoutAnySumsIsRight) {
    runScript(*m_engine, "DELETE FROM AccSum WHERE lCodeId = 6");
    EXPECT_THAT(faultsIn(*m_engine), IsEmpty());
}

CHENGHENG_ON_ALL_ENGINES(Integrity);

TEST(IntegrityCheck, BooksWithoutAFirstDayAreLookedAtAllTheSame) {
    const auto engine = openForTest(":memory:");
    fillSmallBooks(*engine);
    runScript(*engine,
              "UPDATE zAccountM SET dtStart = ''; UPDATE Code SET byGrade = 3 WHERE lId = 3");
    EXPECT_THAT(faultsIn(*engine), ElementsAre(faultOf("grades", "级次记为 3")));
}

TEST(IntegrityCheck, NamesOfTheChecksAreDistinct) {
    std::vector<std::string> names;
    for (const auto& check : chengheng::integrityChecks()) names.emplace_back(check.name);
    const auto count = names.size();
    std::ranges::sort(names);
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::unique(names).begin() - names.begin()), count);
}

TEST(IntegrityCheck, CorruptFileGivesItsFaultsAndNoMore) {
    const std::string path = chengheng::freshFolder() + "/Nbzw.db";
    {
        const auto engine = openForTest(path);
        fillSmallBooks(*engine);
    }
    {
        std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(-20 * 4096, std::ios::end);
        file << std::string(4 * 4096, 'x');
    }
    const auto engine = openForTest(path, chengheng::OpenMode::existing);
    const auto faults = faultsIn(*engine);
    ASSERT_FALSE(faults.empty());
    for (const auto& fault : faults) EXPECT_EQ(fault.check, "engine");
}

}  // namespace
