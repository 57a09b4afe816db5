#include "auxiliary/screen/entry_form.h"

#include <gtest/gtest.h>

#include "auxiliary/entries/directory_names.h"
#include "data/lookups/cached_records.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

/// Takes the choice at a place and notes what it was offered.
struct Picking {
    int place = -1;  ///< -1: none is taken
    Texts offered = {};

    ChoicePicker picker() {
        return
            [this](Dimension,
                   const std::vector<DimensionChoice>& choices) -> std::optional<DimensionChoice> {
                for (const DimensionChoice& each : choices)
                    offered.push_back(each.code + " " + each.name);
                if (place < 0) return std::nullopt;
                return choices.at(static_cast<std::size_t>(place));
            };
    }
};

class EntryForms : public testing::TestWithParam<EngineCase> {
  protected:
    EntryForm adding(AuxiliaryKind kind) {
        EntryForm form(m_books.messages(), memberOf(kind), m_books.account(memberOf(kind)));
        form.input.money = "10";
        form.input.summary = "期初";
        return form;
    }
    std::string said() {
        const Texts texts = m_books.messages().texts();
        m_books.messages().forget();
        return texts.empty() ? "" : texts.back();
    }

    EntryBooks m_books{freshLocation(GetParam())};
    BookLookups m_lookups{"books"};
    Picking m_picking;
};

TEST_P(EntryForms, BeginWithTheLastDayBeforeTheBooksAndTheDirectionOfTheAccount) {
    EntryForm form = adding(AuxiliaryKind::department);
    EXPECT_STREQ(form.title(), "部门核算期初——添加记录");
    EXPECT_EQ(form.input.date, "2025-12-31");
    EXPECT_TRUE(form.input.isDebit);
}

TEST_P(EntryForms, TurnACodeIntoItsName) {
    EntryForm form = adding(AuxiliaryKind::unitAndProject);
    form.input.names = {.department = "", .person = "", .unit = "U2", .item = "I1"};
    form.settle(Dimension::unit, m_picking.picker());
    form.settle(Dimension::item, m_picking.picker());
    EXPECT_EQ(form.input.names.unit, "乙公司");
    EXPECT_EQ(form.input.names.item, "一期");
    const auto entry = form.accept(m_picking.picker());
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->content.of, (EntryDimensions{.unit = 2, .item = 1, .itemClass = "01"}));
    EXPECT_EQ(form.input.money, "10.00000");
    EXPECT_TRUE(m_picking.offered.empty());
}

TEST_P(EntryForms, LetOneOfEqualNamesBePicked) {
    m_books.books().run("UPDATE Enter SET sEnterName = '甲公司' WHERE lId = 2");
    EntryForm form = adding(AuxiliaryKind::unit);
    form.input.names.unit = "甲公司";
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "") << "who gives up picking knows it";
    EXPECT_EQ(form.focusField(), "lEnterId");
    EXPECT_EQ(m_picking.offered, (Texts{"U1 甲公司", "U2 甲公司"}));
    m_picking.place = 1;
    const auto entry = form.accept(m_picking.picker());
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->content.of.unit, 2);
}

TEST_P(EntryForms, TakeTheDepartmentFromThePerson) {
    EntryForm form = adding(AuxiliaryKind::person);
    form.input.names.person = "P2";
    form.settle(Dimension::person, m_picking.picker());
    EXPECT_EQ(form.input.names.person, "李四");
    EXPECT_EQ(form.input.names.department, "生产部");
    const auto entry = form.accept(m_picking.picker());
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->content.of, (EntryDimensions{.department = 2, .person = 2}));
}

TEST_P(EntryForms, LookForAPersonInTheTypedDepartment) {
    m_books.books().run("UPDATE Person SET sPersonName = '张三' WHERE lId = 2");
    EntryForm form = adding(AuxiliaryKind::person);
    form.input.names = {.department = "生产部", .person = "张三", .unit = "", .item = ""};
    const auto entry = form.accept(m_picking.picker());
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->content.of.person, 2);
    EXPECT_TRUE(m_picking.offered.empty());
}

TEST_P(EntryForms, TellAPersonOfAnotherDepartmentFromNobody) {
    EntryForm form = adding(AuxiliaryKind::person);
    form.input.names = {.department = "销售部", .person = "李四", .unit = "", .item = ""};
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "部门与个人不匹配");
    EXPECT_EQ(form.focusField(), "lPersonId");
    form.input.names.person = "王五";
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "非法的姓名");
    form.input.names.department = "财务部";
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "非法的部门");
}

TEST_P(EntryForms, SetAWrongDateBackToTheLastDay) {
    EntryForm form = adding(AuxiliaryKind::department);
    form.input.names.department = "销售部";
    form.input.date = "2026-01-05";
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "日期输入无效");
    EXPECT_EQ(form.input.date, "2025-12-31");
    EXPECT_EQ(form.focusField(), "dtDate");
    EXPECT_TRUE(form.accept(m_picking.picker()));
}

TEST_P(EntryForms, TellRefusalsByTheInformationBoxOfTheHouse) {
    EntryForm form = adding(AuxiliaryKind::department);
    EXPECT_FALSE(form.accept(m_picking.picker()));
    const Notice notice = m_books.messages().onlyNotice();
    EXPECT_EQ(notice.text, "部门不能为空");
    EXPECT_EQ(notice.caption, "澄恒财务软件");
    EXPECT_EQ(notice.icon, MessageIcon::information);
}

TEST_P(EntryForms, ThatModifyNothingSkipTheChecks) {
    AuxiliaryEntry entry = EntryBooks::entry(memberOf(AuxiliaryKind::department), 1, 10);
    entry.content.date = {2020, 1, 1};
    entry.content.summary = "";
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::department);
    EntryForm form(m_books.messages(), member, m_books.account(member), &entry);
    EXPECT_STREQ(form.title(), "部门核算期初——修改记录");
    EXPECT_EQ(form.accept(m_picking.picker()), entry);
    form.input.money = "11";
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "日期输入无效");
}

TEST_P(EntryForms, AskBeforeTypedInputIsGivenUp) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        EntryForm form(m_books.messages(), member, m_books.account(member));
        EXPECT_TRUE(form.mayGiveUp(true));
        EXPECT_TRUE(form.mayGiveUp(false));
        form.input.summary = "新";
        m_books.messages().willAnswer("放弃当前的输入吗?", Answer::no);
        EXPECT_FALSE(form.mayGiveUp(false)) << member.caption;
        if (member.kind == AuxiliaryKind::project)
            m_books.messages().willAnswer("放弃当前的输入吗?", Answer::yes);
        EXPECT_TRUE(form.mayGiveUp(true)) << member.caption;
    }
}

TEST_P(EntryForms, OfferTheItemsOfTheAccountsClasses) {
    m_books.books().run(
        "INSERT INTO ProjClass (lId, sClsCode, sClsName) VALUES (2, '02', '空')\r\n"
        "INSERT INTO ProjCodes (lId, lCodeId, sItemId) VALUES (1, 0, '02')");
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::project);
    m_books.books().run(
        formatSql("UPDATE ProjCodes SET lCodeId = %d, sItemId = '01'", m_books.account(member).id));
    EntryForm form = adding(AuxiliaryKind::project);
    Texts names;
    const auto items = form.choices(Dimension::item).value();
    for (const DimensionChoice& each : items) names.push_back(each.name);
    EXPECT_EQ(names, (Texts{"一期", "二期"}));
    EXPECT_EQ(said(), "");
}

TEST_P(EntryForms, PassOverAClassWhoseCodeIsNoName) {
    m_books.books().run(
        "INSERT INTO ProjClass (lId, sClsCode, sClsName) VALUES (2, '01 WHERE lId = 1', '恶')");
    EntryForm form = adding(AuxiliaryKind::project);
    EXPECT_EQ(form.choices(Dimension::item).value().size(), 2u);
    form.input.names.item = "二期";
    const auto entry = form.accept(m_picking.picker());
    ASSERT_TRUE(entry);
    EntryService service = m_books.service(form.member());
    AuxiliaryEntry added = *entry;
    ASSERT_EQ(service.add(form.account(), added), Outcome::done);
    EXPECT_EQ(m_books.stored(form.member()), std::vector{added});
    added.content.of.itemClass = "01 WHERE lId = 1";
    EXPECT_EQ(service.add(form.account(), added), Outcome::refused);
    EXPECT_EQ(said(), "该项目名称不存在");
}

TEST_P(EntryForms, OfferThePersonsOfTheTypedDepartment) {
    EntryForm form = adding(AuxiliaryKind::person);
    EXPECT_EQ(form.choices(Dimension::person).value().size(), 2u);
    form.input.names.department = "生产部";
    form.settle(Dimension::department, m_picking.picker());
    const auto persons = form.choices(Dimension::person).value();
    ASSERT_EQ(persons.size(), 1u);
    EXPECT_EQ(persons[0].name, "李四");
}

TEST_P(EntryForms, TellAFailureAndAcceptNothing) {
    EntryForm form = adding(AuxiliaryKind::department);
    form.input.names.department = "销售部";
    m_books.books().engine().failCall(1);
    EXPECT_FALSE(form.accept(m_picking.picker()));
    m_books.books().engine().failCall(0);
    EXPECT_EQ(m_books.messages().texts().size(), 1u);
    EXPECT_NE(said(), "该部门不存在");
}

TEST_P(EntryForms, GiveUpPickingAmongPersonsWithoutAWord) {
    m_books.books().run("UPDATE Person SET sPersonName = '张三' WHERE lId = 2");
    EntryForm form = adding(AuxiliaryKind::person);
    form.input.names.person = "张三";
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "");
    EXPECT_EQ(form.focusField(), "lPersonId");
    EXPECT_EQ(form.input.names.department, "");
}

TEST_P(EntryForms, TakeNoFailedReadForAMismatchOrAnUnknownName) {
    int failures = 0;
    for (int call = 1; call < 40; ++call) {
        EntryForm form = adding(AuxiliaryKind::person);
        form.input.names.person = "张三";
        m_books.books().engine().failCall(call);
        const auto entry = form.accept(m_picking.picker());
        m_books.books().engine().failCall(0);
        if (entry) break;
        ++failures;
        const std::string text = m_books.messages().onlyNotice().text;
        EXPECT_NE(text, "部门与个人不匹配") << call;
        EXPECT_NE(text, "非法的姓名") << call;
        EXPECT_NE(text, "") << call;
        EXPECT_EQ(form.focusField(), "lPersonId") << call;
        m_books.messages().forget();
    }
    EXPECT_GE(failures, 2) << "the person and the department";
}

TEST_P(EntryForms, SayThatADepartmentIsNotThatOfAPersonWhoseOwnIsGone) {
    m_books.books().run("DELETE FROM Dept WHERE lId = 2");
    EntryForm form = adding(AuxiliaryKind::person);
    form.input.names.person = "李四";
    EXPECT_FALSE(form.accept(m_picking.picker()));
    EXPECT_EQ(said(), "部门与个人不匹配");
}

TEST_P(EntryForms, OfferNoListThatCouldNotBeRead) {
    EntryForm form = adding(AuxiliaryKind::project);
    int failures = 0;
    for (int call = 1; call < 40; ++call) {
        m_books.books().engine().failCall(call);
        const auto choices = form.choices(Dimension::item);
        m_books.books().engine().failCall(0);
        if (choices) break;
        ++failures;
        EXPECT_EQ(m_books.messages().texts().size(), 1u) << call;
        m_books.messages().forget();
    }
    EXPECT_GE(failures, 3);
    m_books.books().run("DELETE FROM ProjItems01 WHERE lId > 0");
    EXPECT_TRUE(form.choices(Dimension::item).value().empty());
    EXPECT_EQ(said(), "");
}

TEST_P(EntryForms, TakeAClassWithoutATableForOneWithoutItems) {
    m_books.books().run("DELETE ProjCodes WHERE lId > 0");
    m_books.books().run("INSERT INTO ProjClass (lId, sClsCode, sClsName) VALUES (7, '07', '研发')");
    EntryForm form = adding(AuxiliaryKind::project);
    const auto choices = form.choices(Dimension::item);
    ASSERT_TRUE(choices.has_value()) << said();
    EXPECT_EQ(choices->size(), 2u);
    DirectoryNames names;
    EXPECT_TRUE(names.read(m_books.database(), form.member()));
    EXPECT_EQ(names.namesOf({.item = 2, .itemClass = "01"}).item, "二期");
    EXPECT_EQ(names.namesOf({.item = 2, .itemClass = "07"}).item, "");
}

TEST_P(EntryForms, ShowTheClassOfItemsOfSeveral) {
    EntryForm form = adding(AuxiliaryKind::project);
    auto choices = form.choices(Dimension::item).value();
    EXPECT_EQ(codesToPickFrom(choices), (Texts{"I1", "I2"}));
    choices[1].itemClass = "02";
    EXPECT_EQ(codesToPickFrom(choices), (Texts{"01 I1", "02 I2"}));
    EXPECT_TRUE(codesToPickFrom({}).empty());
}

CHENGHENG_ON_ALL_ENGINES(EntryForms);

}  // namespace
