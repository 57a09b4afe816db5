#include "books/parameters/parameters_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "base/system/workstation.h"
#include "books/parameters/parameters_form.h"
#include "data/lookups/CGetData.h"
#include "data/lookups/cached_records.h"
#include "tests/support/parameters_books.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;

class Parameters : public testing::TestWithParam<EngineCase> {
  protected:
    ParameterFacts read() {
        ParameterFacts facts;
        EXPECT_EQ(m_service.read(facts), Outcome::done);
        return facts;
    }
    /// Makes a change of the parameters as they are stored.
    Outcome change(const std::function<void(BooksParameters&)>& typed) {
        const ParameterFacts facts = read();
        BooksParameters wanted = parametersOf(facts.stored);
        typed(wanted);
        return m_service.change({facts, wanted});
    }
    std::string refusal() {
        EXPECT_FALSE(m_books.holdsLocks());
        EXPECT_EQ(m_books.stored(), madeParameters());
        return m_books.messages.onlyNotice().text;
    }

    std::string m_location = freshLocation(GetParam());
    ParametersBooks m_books{m_location};
    ParametersService m_service{m_books.messages, &m_books.registry};
};

TEST_P(Parameters, AreReadWithAllThatAChangeDependsOn) {
    const ParameterFacts empty = read();
    EXPECT_EQ(empty.stored, madeParameters());
    EXPECT_EQ(empty.location, m_location);
    EXPECT_EQ(empty.listed, m_books.listed());
    EXPECT_TRUE(empty.currencyAccounts.empty());
    EXPECT_EQ(empty.currencies, 0);
    EXPECT_FALSE(empty.hasVouchers || empty.hasOpeningEntries || empty.hasFigures);
    EXPECT_TRUE(empty.others.empty());
    m_books.run(
        "INSERT Code (lId, sCode, sName, byExchId) VALUES(2, '100203', '欧元户', 2)\r\n"
        "INSERT Code (lId, sCode, sName, byExchId) VALUES(1, '100202', '美元户', 1)\r\n"
        "INSERT Code (lId, sCode, sName) VALUES(3, '1001', '现金')\r\n"
        "INSERT Code (lId, sCode, sName, byExchId) VALUES(0, '', '', 1)\r\n"
        "INSERT Cyrency (lId) VALUES(1)\r\nINSERT Cyrency (lId) VALUES(2)\r\n"
        "INSERT LoginInfoTbl (lId, lAccId, sUser, sStation, lProcess) "
        "VALUES(1, 1, '李明', 'PC2', 7)");
    const ParameterFacts full = read();
    EXPECT_EQ(full.currencyAccounts, (std::vector<std::string>{"100202 美元户", "100203 欧元户"}));
    EXPECT_EQ(full.currencies, 2);
    ASSERT_EQ(full.others.size(), 1U);
    EXPECT_EQ(full.others[0].name, "李明");
}

TEST_P(Parameters, CountWhoeverWorksWithThisProgramAsNobodyElse) {
    m_books.run(
        formatSql("INSERT LoginInfoTbl (lId, lAccId, sUser, sStation, lProcess) "
                  "VALUES(1, 1, '王芳', '%s', %d)",
                  stationName(), ownProcess()));
    EXPECT_TRUE(read().others.empty());
}

TEST_P(Parameters, SeeEachKindOfWorkThatKeepsTheStartMonth) {
    struct Work {
        const char* statement;
        const char* refusal;
    };
    std::vector<Work> works{
        {"INSERT RegMain (lId, byPeroid) VALUES(1, 1)", "已有凭证,不能再改启用月份。"},
        {"INSERT UnregMain (lId, byPeroid) VALUES(1, 1)", "已有凭证,不能再改启用月份。"},
        {"INSERT RegSub (lId, bBegin) VALUES(1, 1)", "已有辅助科目的期初明细"}};
    for (const char* column : {"mBegin", "mDebet", "mCredit", "dAmtBegin", "dAmtDebet",
                               "dAmtCredit", "mFgnBegin", "mFgnDebet", "mFgnCredit"})
        works.push_back({column, ""});
    for (const char* column : {"mBegin", "mDebt", "mCredit", "dBegin", "dDebt", "dCredit",
                               "mFBegin", "mFDebt", "mFCredit"})
        works.push_back({column, "AssAcc"});
    for (std::size_t at = 0; at < works.size(); ++at) {
        const Work& work = works[at];
        const bool isFigure = at >= 3;
        const char* const table = std::string_view(work.refusal) == "AssAcc" ? "AssAcc" : "AccSum";
        m_books.run(isFigure ? std::string("INSERT ") + table + " (lId, lCodeId, byPeroid, " +
                                   work.statement + ") VALUES(1, 1, 7, -0.25)"
                             : work.statement);
        EXPECT_EQ(change([](BooksParameters& wanted) { wanted.startMonth = 4; }), Outcome::refused)
            << work.statement;
        EXPECT_THAT(refusal(), HasSubstr(isFigure ? "已有期初余额" : work.refusal))
            << work.statement;
        m_books.messages.forget();
        m_books.run(
            "DELETE RegMain WHERE lId = 1\r\nDELETE UnregMain WHERE lId = 1\r\n"
            "DELETE RegSub WHERE lId = 1\r\nDELETE AccSum WHERE lId = 1\r\n"
            "DELETE AssAcc WHERE lId = 1");
    }
}

TEST_P(Parameters, LetTheStartMonthMoveWhereRowsCarryNothing) {
    m_books.run(
        "INSERT AccSum (lId, lCodeId, byPeroid) VALUES(1, 1, 1)\r\n"
        "INSERT AssAcc (lId, lCodeId, byPeroid) VALUES(1, 1, 1)\r\n"
        "INSERT RegMain (lId, byPeroid) VALUES(1, 0)\r\nINSERT RegSub (lId) VALUES(1)");
    EXPECT_EQ(change([](BooksParameters& wanted) { wanted.startMonth = 4; }), Outcome::done);
    EXPECT_EQ(m_books.stored().dtStart, (Date{2026, 4, 1}));
}

TEST_P(Parameters, AreWrittenAllTogetherAndPublished) {
    const BookLookups lookups("books");
    ASSERT_TRUE(lookups.status());
    ASSERT_EQ(change([](BooksParameters& wanted) {
                  wanted = {"O'Brien 100% ", "乙公司", false, "42223", 4};
              }),
              Outcome::done);
    const _zAccountMInfo changed{.lId = 1,
                                 .sName = "O'Brien 100%",
                                 .sCompany = "乙公司",
                                 .dtStart = {2026, 4, 1},
                                 .sCodeLen = "42223",
                                 .bFgn = 0,
                                 .lYear = 2026};
    EXPECT_EQ(m_books.stored(), changed);
    ASSERT_NE(CGetData::m_pzAccountMInfo, nullptr);
    EXPECT_EQ(*CGetData::m_pzAccountMInfo, changed);
    EXPECT_EQ(CGetData::GetStartDate(), (Date{2026, 4, 1}));
    EXPECT_STREQ(g_lpszNbZwSetName, "O'Brien 100%");
    ASSERT_EQ(m_books.listed().size(), 1U);
    EXPECT_EQ(m_books.listed()[0].name, "O'Brien 100%");
    EXPECT_EQ(m_books.listed()[0].company, "乙公司");
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(Parameters, AreWrittenIntoTheirOwnRowAlone) {
    m_books.run("INSERT INTO zAccountM VALUES( 2, '乙', '乙', '2026/1/1', '4222', 1, 2026 )");
    ASSERT_EQ(change([](BooksParameters& wanted) { wanted.company = "新公司"; }), Outcome::done);
    const auto rows = readRows<_zAccountMInfo>(m_books.database, "ORDER BY lId");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].sCompany, "新公司");
    EXPECT_EQ(rows[1].sCompany, "乙");
}

TEST_P(Parameters, PublishNothingWhereNoBooksAreOpenInTheLookups) {
    ASSERT_EQ(CGetData::m_pzAccountMInfo, nullptr);
    ASSERT_EQ(change([](BooksParameters& wanted) { wanted.company = "新公司"; }), Outcome::done);
    EXPECT_EQ(CGetData::m_pzAccountMInfo, nullptr);
}

TEST_P(Parameters, AreCheckedAgainOnTheBooksAsTheyAreByThen) {
    const ParameterFacts facts = read();
    BooksParameters wanted = parametersOf(facts.stored);
    wanted.hasForeignCurrency = false;
    m_books.run("INSERT Code (lId, sCode, sName, byExchId) VALUES(1, '1002', '美元户', 1)");
    EXPECT_EQ(m_service.change({facts, wanted}), Outcome::refused);
    EXPECT_EQ(refusal(),
              "有科目核算外币,不能取消外币核算:1002 美元户\n"
              "请先在会计科目中取消这些科目的外币核算。");
}

TEST_P(Parameters, ThatAnotherWorkstationChangedAreToldAndLeftAlone) {
    const ParameterFacts facts = read();
    BooksParameters wanted = parametersOf(facts.stored);
    wanted.company = "丙公司";
    m_books.run("UPDATE zAccountM SET sCompany = '乙公司' WHERE lId = 1");
    EXPECT_EQ(m_service.change({facts, wanted}), Outcome::stale);
    EXPECT_EQ(m_books.messages.onlyNotice().text,
              "帐套参数已被其他工作站修改,本次操作没有进行。\n\n现在的内容:\n"
              "    帐套名称:甲帐套\n    单位名称:乙公司\n    外币核算:是\n    科目级长:4222\n"
              "    启用月份:1月\n\n输入的内容:\n"
              "    帐套名称:甲帐套\n    单位名称:丙公司\n    外币核算:是\n    科目级长:4222\n"
              "    启用月份:1月\n\n输入已保留,核对后可以再次确定。");
    EXPECT_EQ(m_books.stored().sCompany, "乙公司");
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Parameters, ThatAreNotThereAreTold) {
    m_books.run("DELETE zAccountM WHERE lId > 0");
    ParameterFacts facts;
    EXPECT_EQ(m_service.read(facts), Outcome::refused);
    EXPECT_EQ(m_books.messages.onlyNotice().text,
              "帐套中没有帐套参数,不能修改。\n请用 chbooks check 查明,再用最近的备份恢复。");
}

TEST_P(Parameters, AreChangedThoughTheListCannotFollowWhichIsTold) {
    const ParameterFacts facts = read();
    BooksParameters wanted = parametersOf(facts.stored);
    wanted.company = "乙公司";
    std::ofstream(m_books.registry.path()) << "{";
    EXPECT_EQ(m_service.change({facts, wanted}), Outcome::done);
    EXPECT_EQ(m_books.stored().sCompany, "乙公司");
    EXPECT_THAT(
        m_books.messages.onlyNotice().text,
        testing::StartsWith("帐套参数已修改,但本机的帐套列表没有更新,仍显示原来的名称。\n"));
    EXPECT_THAT(m_books.messages.onlyNotice().text, HasSubstr(m_books.registry.path()));
}

TEST_P(Parameters, AreChangedWithoutAnyList) {
    ParametersService service(m_books.messages, nullptr);
    ParameterFacts facts;
    ASSERT_EQ(service.read(facts), Outcome::done);
    BooksParameters wanted = parametersOf(facts.stored);
    wanted.name = "乙帐套";
    EXPECT_EQ(service.change({facts, wanted}), Outcome::done);
    EXPECT_EQ(m_books.stored().sName, "乙帐套");
    EXPECT_EQ(m_books.listed()[0].name, "甲帐套");
}

class ParametersFormAtWork : public Parameters {
  protected:
    void SetUp() override { ASSERT_TRUE(m_form.open()); }

    ParametersForm m_form{m_books.messages, &m_books.registry};
};

TEST_P(ParametersFormAtWork, AsksWithWhatIsTouchedAndWritesOnYesAlone) {
    m_form.input.company = "乙公司";
    const std::string question =
        "将修改帐套参数:\n\n单位名称:“甲公司”改为“乙公司”\n    以后打印的页面用新的单位名称。\n"
        "\n是否修改?";
    m_books.messages.willAnswer(question, Answer::no);
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.questions()[0].preset, std::nullopt);
    EXPECT_EQ(m_books.stored(), madeParameters());
    EXPECT_EQ(m_form.input.company, "乙公司");
    m_books.messages.willAnswer(question, Answer::yes);
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored().sCompany, "乙公司");
}

TEST_P(ParametersFormAtWork, HoldsNoLocksWhileItAsks) {
    m_books.messages.whileShown([this](const std::string&) { EXPECT_FALSE(m_books.holdsLocks()); });
    m_form.input.company = "乙公司";
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_TRUE(m_form.save());
}

TEST_P(ParametersFormAtWork, AsksNothingWhereNothingChanges) {
    m_form.input.name += " ";
    EXPECT_TRUE(m_form.save());
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(ParametersFormAtWork, TellsARefusalInsteadOfAsking) {
    m_form.input.levelPattern = "422";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.onlyNotice().focusField, "levelPattern");
}

TEST_P(ParametersFormAtWork, KeepsWhatWasTypedOverWhatAnotherWorkstationStored) {
    m_form.input.company = "丙公司";
    m_books.messages.willAnswer(Answer::yes);
    m_books.messages.whileShown([this](const std::string& text) {
        if (text.starts_with("将修改"))
            m_books.run(
                "UPDATE zAccountM SET sCompany = '乙公司', sCodeLen = '42222' "
                "WHERE lId = 1");
    });
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_form.input, (BooksParameters{"甲帐套", "丙公司", true, "42222", 1}));
    m_books.messages.whileShown([](const std::string&) {});
    m_books.messages.willAnswer(
        "将修改帐套参数:\n\n单位名称:“乙公司”改为“丙公司”\n    以后打印的页面用新的单位名称。\n"
        "\n是否修改?",
        Answer::yes);
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored().sCompany, "丙公司");
    EXPECT_EQ(m_books.stored().sCodeLen, "42222");
}

TEST_P(ParametersFormAtWork, AsksBeforeInputIsGivenUp) {
    EXPECT_TRUE(m_form.mayLeave());
    m_form.input.startMonth = 2;
    m_books.messages.willAnswer("当前输入尚未保存,是否放弃?", Answer::no);
    EXPECT_FALSE(m_form.mayLeave());
}

TEST_P(ParametersFormAtWork, SaysBelowTheFieldsWhatCanBeChanged) {
    EXPECT_EQ(m_form.foreignHint(), "没有科目核算外币,可以取消");
    EXPECT_EQ(m_form.patternHint(),
              "各级编码示例:1001 / 100101 / 10010101 / 1001010101\n只能在末尾增加级次,最多6级");
    EXPECT_EQ(m_form.startHint(), "没有余额和凭证时可以改;会计年度 2026 不能改");
    m_form.input.levelPattern = "4x";
    EXPECT_EQ(m_form.patternHint(), "1到6位数字,每位1到9,表示该级编码的位数");
    m_books.run(
        "INSERT Code (lId, sCode, sName, byExchId) VALUES(1, '1002', '美元户', 1)\r\n"
        "INSERT RegMain (lId, byPeroid) VALUES(1, 1)");
    ASSERT_TRUE(m_form.open());
    EXPECT_EQ(m_form.foreignHint(), "核算外币的科目:1002 美元户;有这样的科目时不能取消");
    EXPECT_EQ(m_form.startHint(), "已有凭证,不能再改启用月份。");
    m_books.run("UPDATE zAccountM SET bFgn = 0 WHERE lId = 1");
    ASSERT_TRUE(m_form.open());
    EXPECT_EQ(m_form.foreignHint(), "选中后可以使用汇率管理,并让科目核算外币");
}

CHENGHENG_ON_ALL_ENGINES(Parameters);
CHENGHENG_ON_ALL_ENGINES(ParametersFormAtWork);

}  // namespace
