#include "opening/direction/direction_adjust.h"

#include <gtest/gtest.h>

#include <map>

#include "data/lookups/CGetData.h"
#include "data/lookups/cached_records.h"
#include "opening/auxiliary/auxiliary_directories.h"
#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

class Directions : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.addAccounts({"1001", "1002", "100201", "10020101", "100202"});
        m_books.change("100202", "byExchId = 1, bAmount = 1");
        ASSERT_EQ(m_books.work().refresh(), Outcome::done);
    }
    bool adjust(const std::string& code) {
        return m_books.work().adjustDirection(m_books.lineOf(code)) == Outcome::done;
    }
    /// "1001 借 1": code, direction in the sheet, direction in the chart, for each account.
    Texts directions() {
        Texts texts;
        for (const OpeningAccount& account : m_books.work().sheet().accounts())
            texts.push_back(account.code + (account.isDebit ? " 借 " : " 贷 ") +
                            std::to_string(m_books.books().account(account.code).bDirect));
        return texts;
    }
    RecordingMessages& messages() { return m_books.messages(); }

    const Texts m_before{"1001 借 1", "1002 借 1", "100201 借 1", "10020101 借 1", "100202 借 1"};
    const Texts m_after{"1001 借 1", "1002 贷 0", "100201 贷 0", "10020101 贷 0", "100202 贷 0"};
    OpeningTestBooks m_books{freshLocation(GetParam())};
};

TEST_P(Directions, TurnWithAllAccountsBelowAfterAsking) {
    messages().willAnswer("是否调整 科目1002(1002) 科目的余额方向?\n\t    借--->贷", Answer::yes);
    EXPECT_TRUE(adjust("1002"));
    EXPECT_EQ(directions(), m_after);
    const Question& question = messages().questions().front();
    EXPECT_EQ(question.caption, "调整余额方向");
    EXPECT_EQ(question.icon, MessageIcon::question);
    EXPECT_EQ(question.buttons, AnswerButtons::yesNo);
}

TEST_P(Directions, AreTheNewOnesInTheLookupsOfTheHost) {
    const BookLookups lookups("books");
    ASSERT_EQ(CGetData::GetCODEINFOByCode("1002")->bDirect, 1);
    messages().willAnswer(Answer::yes);
    EXPECT_TRUE(adjust("1002"));
    EXPECT_EQ(CGetData::GetCODEINFOByCode("1002")->bDirect, 0);
}

TEST_P(Directions, CountAsAReadingSoThatTheSheetIsShownAnew) {
    const auto readings = m_books.work().readings();
    messages().willAnswer(Answer::no);
    EXPECT_FALSE(adjust("1002"));
    EXPECT_EQ(m_books.work().readings(), readings);
    messages().willAnswer(Answer::yes);
    EXPECT_TRUE(adjust("1002"));
    EXPECT_EQ(m_books.work().readings(), readings + 1);
}

TEST_P(Directions, TurnBackFromCreditToDebit) {
    messages().willAnswer(Answer::yes);
    adjust("1002");
    messages().willAnswer("是否调整 科目1002(1002) 科目的余额方向?\n\t    贷--->借", Answer::yes);
    EXPECT_TRUE(adjust("1002"));
    EXPECT_EQ(directions(), m_before);
}

TEST_P(Directions, ShowOnExtraLinesToo) {
    messages().willAnswer(Answer::yes);
    adjust("1002");
    for (const Measure measure : measures)
        EXPECT_EQ(m_books.shown("100202", measure, OpeningField::direction), "贷");
}

TEST_P(Directions, StayOnNo) {
    messages().willAnswer(Answer::no);
    m_books.books().locks().forget();
    EXPECT_FALSE(adjust("1002"));
    EXPECT_EQ(directions(), m_before);
    EXPECT_TRUE(m_books.books().locks().log().empty());
}

TEST_P(Directions, AreRefusedBelowTheTopEvenWithoutABalance) {
    EXPECT_FALSE(adjust("100201"));
    const Notice notice = messages().onlyNotice();
    EXPECT_EQ(notice.text, "只能在总帐科目调整余额方向!");
    EXPECT_EQ(notice.icon, MessageIcon::information);
    EXPECT_EQ(notice.caption, "澄恒财务软件");
    EXPECT_EQ(directions(), m_before);
}

TEST_P(Directions, AreRefusedOnAnExtraLine) {
    m_books.change("1001", "byExchId = 1");
    m_books.work().refresh();
    EXPECT_NE(m_books.work().adjustDirection(m_books.lineOf("1001", Measure::foreign)),
              Outcome::done);
    EXPECT_EQ(messages().onlyNotice().text, "只能在总帐科目调整余额方向!");
}

TEST_P(Directions, AreRefusedWithAnOpeningBalance) {
    m_books.type("100202", "0.01");
    EXPECT_FALSE(adjust("1002"));
    const Notice notice = messages().onlyNotice();
    EXPECT_EQ(notice.text, "该科目已有期初数据,不能调整余额方向!");
    EXPECT_EQ(notice.icon, MessageIcon::information);
    EXPECT_EQ(directions(), m_before);
}

TEST_P(Directions, LookAtTheSumOfTheSelectedAccountAlone) {
    m_books.type("10020101", "100");
    m_books.type("100202", "-100");
    messages().willAnswer(Answer::yes);
    EXPECT_TRUE(adjust("1002"));
    EXPECT_EQ(directions(), m_after);
    EXPECT_EQ(m_books.shown("100202"), "-100.00");
}

TEST_P(Directions, AreTurnedUnderTheLocksInTheirOrder) {
    messages().willAnswer(Answer::yes);
    m_books.books().locks().forget();
    adjust("1002");
    EXPECT_EQ(m_books.books().locks().log(),
              (Texts{"lock AssSum AccSum Cyrency UnRegMain UnRegSug 1", "lock Code 2",
                     "unlock AssSum AccSum Cyrency UnRegMain UnRegSug 1", "unlock Code 2"}));
}

TEST_P(Directions, StayWhenABalanceCameWhileTheOperatorWasAsked) {
    messages().willAnswer(Answer::yes);
    messages().whileShown([this](const std::string& text) {
        if (text.starts_with("是否调整")) m_books.addRows("100202", 12, 5);
    });
    EXPECT_FALSE(adjust("1002"));
    ASSERT_EQ(messages().notices().size(), 1u);
    EXPECT_EQ(messages().notices().back().text, "该科目已有期初数据,不能调整余额方向!");
    EXPECT_EQ(directions(), m_before);
    EXPECT_EQ(m_books.shown("1002"), "5.00");
}

TEST_P(Directions, StayWhenAVoucherCameWhileTheOperatorWasAsked) {
    messages().willAnswer(Answer::yes);
    messages().whileShown([this](const std::string& text) {
        if (text.starts_with("是否调整")) m_books.addVoucher();
    });
    EXPECT_FALSE(adjust("1002"));
    ASSERT_EQ(messages().notices().size(), 1u);
    EXPECT_EQ(messages().notices().back().text,
              "帐套中已有凭证,期初余额只能浏览,本次操作没有保存。");
    EXPECT_EQ(directions(), m_before);
    EXPECT_TRUE(m_books.work().isBrowsing());
}

TEST_P(Directions, StayWhenTheAccountIsNoLongerWhatTheOperatorSaw) {
    for (const char* change : {"sCode = '1009'", "bDirect = 0", "lId = 900"}) {
        OpeningTestBooks books(freshLocation(GetParam()));
        books.addAccounts({"1001", "1002"});
        ASSERT_EQ(books.work().refresh(), Outcome::done);
        books.change("1001", change);
        books.messages().willAnswer(Answer::yes);
        EXPECT_NE(books.work().adjustDirection(0), Outcome::done) << change;
        ASSERT_EQ(books.messages().notices().size(), 1u) << change;
        EXPECT_EQ(books.messages().notices().back().text,
                  "科目已被其他工作站修改,本次操作没有保存,表格已重新读入。");
        EXPECT_EQ(books.books().account("1002").bDirect, 1);
    }
}

TEST_P(Directions, TurnAccountsThatCameMeanwhileToo) {
    m_books.addAccounts({"100203"});
    messages().willAnswer(Answer::yes);
    EXPECT_TRUE(adjust("1002"));
    EXPECT_EQ(m_books.books().account("100203").bDirect, 0);
    EXPECT_EQ(m_books.shown("100203", Measure::money, OpeningField::direction), "贷");
}

TEST_P(Directions, PassOverAnAccountThatGoesWhileTheyTurn) {
    bool isMet = true;
    int call = 1;
    for (; isMet && call < 100; ++call) {
        OpeningTestBooks books(freshLocation(GetParam()));
        books.addAccounts({"1002", "100201", "100202"});
        ASSERT_EQ(books.work().refresh(), Outcome::done);
        books.messages().willAnswer(Answer::yes);
        isMet = false;
        books.books().engine().beforeCall(call, [&] {
            isMet = true;
            books.books().run("DELETE FROM Code WHERE sCode = '100202'");
        });
        EXPECT_EQ(books.work().adjustDirection(0), Outcome::done) << call;
        books.books().engine().beforeCall(0, {});
        EXPECT_TRUE(books.messages().notices().empty()) << call;
        EXPECT_EQ(books.books().account("100201").bDirect, 0) << call;
    }
    EXPECT_GT(call, 8);
}

TEST_P(Directions, TurnWithoutAWordWhenEveryAccountGoesBeforeTheLookupsAreReadAnew) {
    const auto turn = [](const std::function<void(OpeningTestBooks&)>& before) {
        OpeningTestBooks books(freshLocation(GetParam()));
        books.addAccounts({"1002", "100201"});
        EXPECT_EQ(books.work().refresh(), Outcome::done);
        books.messages().willAnswer(Answer::yes);
        books.books().engine().failCall(0);
        before(books);
        EXPECT_EQ(books.work().adjustDirection(0), Outcome::done);
        EXPECT_TRUE(books.messages().notices().empty());
        books.books().engine().beforeCall(0, {});
        const int calls = books.books().engine().calls();
        return std::pair(calls, books.books().hasAccount("1002"));
    };
    const auto [lastCall, isThere] = turn([](OpeningTestBooks&) {});
    EXPECT_TRUE(isThere);
    const auto emptied = turn([&, call = lastCall](OpeningTestBooks& books) {
        books.books().engine().beforeCall(
            call - 1, [&books] { books.books().run("DELETE FROM Code WHERE lId > 0"); });
    });
    EXPECT_FALSE(emptied.second);
}

TEST_P(Directions, PassOverAnAccountThatIsGone) {
    m_books.books().run("DELETE FROM Code WHERE sCode = '10020101'");
    messages().willAnswer(Answer::yes);
    EXPECT_TRUE(adjust("1002"));
    EXPECT_EQ(m_books.books().account("100201").bDirect, 0);
    EXPECT_TRUE(messages().notices().empty());
}

TEST_P(Directions, AreNotTurnedWhileBrowsing) {
    m_books.addVoucher();
    m_books.work().refresh();
    EXPECT_FALSE(adjust("1002"));
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(Directions, TurnWholeOrNotAtAllWhenTheDatabaseFails) {
    bool isDone = false;
    int failures = 0;
    for (int call = 1; !isDone && call < 100; ++call) {
        messages().forget();
        messages().willAnswer(Answer::yes);
        m_books.books().engine().failCall(call);
        isDone = adjust("1002");
        const bool hasFailed = m_books.books().engine().hasFailed();
        m_books.books().engine().failCall(0);
        ASSERT_EQ(directions(), isDone ? m_after : m_before) << "call " << call;
        EXPECT_EQ(messages().notices().size(), hasFailed ? 1u : 0u) << "call " << call;
        EXPECT_FALSE(m_books.books().engine().inTransaction());
        EXPECT_FALSE(m_books.books().holdsLocks());
        if (!isDone) ++failures;
    }
    EXPECT_TRUE(isDone);
    EXPECT_GT(failures, 8);
}

CHENGHENG_ON_ALL_ENGINES(Directions);

/// A kind, and the directories that it misses in the order of asking.
struct Need {
    const char* letters;
    Texts messages;
};

class Directories : public testing::TestWithParam<EngineCase> {
  protected:
    /// Fills what a message asks for.
    void define(const std::string& message) {
        static const std::map<std::string, std::string> rows{
            {"请先定义个人目录", "INSERT INTO Person (lId, lDeptId) VALUES (1, 1)"},
            {"请先定义部门目录", "INSERT INTO Dept (lId, sDeptName) VALUES (1, '财务部')"},
            {"请先定义项目大类", "INSERT INTO ProjClass (lId, sClsCode) VALUES (1, '01')"},
            {"请先定义单位目录", "INSERT INTO Enter (lId, sEnterName) VALUES (1, '大华')"}};
        m_books.books().run(rows.at(message));
    }

    OpeningTestBooks m_books{freshLocation(GetParam())};
};

TEST_P(Directories, AreAskedForInOrderBeforeAnAuxiliaryWindow) {
    const Need needs[] = {{"A", {"请先定义个人目录", "请先定义部门目录"}},
                          {"C", {"请先定义部门目录"}},
                          {"D", {"请先定义项目大类"}},
                          {"CD", {"请先定义项目大类", "请先定义部门目录"}},
                          {"BC", {"请先定义部门目录", "请先定义单位目录"}},
                          {"B", {"请先定义单位目录"}},
                          {"BD", {"请先定义单位目录", "请先定义项目大类"}}};
    m_books.addAccounts({"1122"});
    for (const Need& need : needs) {
        m_books.books().run(
            "DELETE FROM Person\r\nDELETE FROM Dept\r\nDELETE FROM ProjClass\r\n"
            "DELETE FROM Enter");
        m_books.change("1122", formatSql("sAssBook = '%s'", std::string_view(need.letters)));
        ASSERT_EQ(m_books.work().refresh(), Outcome::done);
        const std::size_t column = placeOf(OpeningField::opening, OpeningLayout::simple);
        for (const std::string& message : need.messages) {
            m_books.messages().forget();
            EXPECT_EQ(m_books.work().auxiliaryToOpen(0, column), AuxiliaryKind::none);
            const Notice notice = m_books.messages().onlyNotice();
            EXPECT_EQ(notice.text, message) << need.letters;
            EXPECT_EQ(notice.icon, MessageIcon::information);
            EXPECT_EQ(notice.caption, "澄恒财务软件");
            define(message);
        }
        m_books.messages().forget();
        EXPECT_EQ(m_books.work().auxiliaryToOpen(0, column), auxiliaryKindOf(need.letters));
        EXPECT_TRUE(m_books.messages().texts().empty());
    }
}

CHENGHENG_ON_ALL_ENGINES(Directories);

}  // namespace
