#include "directories/directory_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace {

using namespace chengheng;
using Records = std::vector<DirectoryRecord>;
using Texts = std::vector<std::string>;

/// Books with two of everything but unit and project classes, of which there is one.
class DirectoryServices : public testing::TestWithParam<EngineCase> {
  protected:
    using enum DirectoryKind;

    DirectoryService service(DirectoryKind kind) { return {m_books.messages(), directoryOf(kind)}; }
    Records stored(DirectoryKind kind) { return service(kind).readAll().value(); }
    DirectoryRecord stored(DirectoryKind kind, int id) {
        for (const DirectoryRecord& record : stored(kind))
            if (record.id == id) return record;
        ADD_FAILURE() << "no record " << id;
        return {};
    }
    Texts lines(DirectoryKind kind) {
        Texts lines;
        for (const DirectoryRecord& record : stored(kind))
            lines.push_back(std::to_string(record.id) + " " + directoryLine(record));
        return lines;
    }
    Outcome add(DirectoryKind kind, const char* code, const char* name, int group = 1) {
        m_added = {.group = directoryOf(kind).groups ? group : 0, .code = code, .name = name};
        return service(kind).add(m_added);
    }
    Outcome remove(DirectoryKind kind, int id) {
        const DirectoryRecord record = stored(kind, id);
        m_books.messages().willAnswer(Answer::yes);
        return service(kind).remove(&record);
    }
    bool hasTable(const char* name) {
        bool isThere = false;
        EXPECT_TRUE(m_books.books().engine().hasTable(name, isThere).isDone());
        return isThere;
    }
    /// The last thing said, with everything that must hold after a change.
    std::string said() {
        EXPECT_FALSE(m_books.books().holdsLocks());
        const Texts texts = m_books.messages().texts();
        m_books.messages().forget();
        return texts.empty() ? "" : texts.back();
    }

    EntryBooks m_books{freshLocation(GetParam())};
    DirectoryRecord m_added;
};

TEST_P(DirectoryServices, AreReadInTheOrderOfTheirCodes) {
    m_books.books().run("UPDATE Enter SET sEnterCode = 'U0' WHERE lId = 2");
    EXPECT_EQ(lines(department), (Texts{"1 D1 销售部", "2 D2 生产部"}));
    EXPECT_EQ(lines(person), (Texts{"1 P1 张三", "2 P2 李四"}));
    EXPECT_EQ(lines(unitClass), Texts{"1 1 客户"});
    EXPECT_EQ(lines(unit), (Texts{"2 U0 乙公司", "1 U1 甲公司"}));
    EXPECT_EQ(lines(projectItem), (Texts{"1 I1 一期", "2 I2 二期"}));
    EXPECT_EQ(stored(person, 2).group, 2);
    EXPECT_EQ(stored(unit, 1).group, 1);
    EXPECT_EQ(stored(projectItem, 1).group, stored(projectClass).front().id);
}

TEST_P(DirectoryServices, AreUnknownAndNotEmptyWhenTheyCannotBeRead) {
    for (const Directory& each : directories()) {
        m_books.books().engine().failCall(2, Failure::full);
        EXPECT_EQ(service(each.kind).readAll(), std::nullopt) << each.key;
        m_books.books().engine().failCall(0);
        EXPECT_NE(said(), "") << each.key;
    }
}

TEST_P(DirectoryServices, TakeANewRecordWithTheNextId) {
    for (const Directory& each : directories()) {
        ASSERT_EQ(add(each.kind, " 09 ", "新的　"), Outcome::done) << each.key << said();
        EXPECT_EQ(m_added, stored(each.kind, m_added.id)) << each.key;
        EXPECT_EQ(m_added.code, "09");
        EXPECT_EQ(m_added.name, "新的");
        EXPECT_EQ(said(), "");
    }
    EXPECT_EQ(m_books.books().faults(), Texts{});
}

TEST_P(DirectoryServices, KeepWhatAUnitIs) {
    for (const UnitKind kind : {UnitKind::customer, UnitKind::supplier, UnitKind::both}) {
        DirectoryRecord wanted = stored(unit, 1);
        const DirectoryRecord loaded = wanted;
        wanted.unitKind = kind;
        EXPECT_EQ(service(unit).modify(loaded, wanted), Outcome::done);
        EXPECT_EQ(stored(unit, 1).unitKind, kind);
    }
    m_books.books().run("UPDATE Enter SET byKind = 9 WHERE lId = 1");
    EXPECT_EQ(stored(unit, 1).unitKind, UnitKind::both);
}

TEST_P(DirectoryServices, RefuseACodeOrNameThatIsThereAndStoreNothing) {
    EXPECT_EQ(add(department, "D1", "新的"), Outcome::refused);
    EXPECT_EQ(said(), "部门编码重复:已有“D1 销售部”");
    EXPECT_EQ(add(department, "D3", "销售部"), Outcome::refused);
    EXPECT_EQ(said(), "部门名称重复:已有“D1 销售部”");
    EXPECT_EQ(add(projectItem, "I2", "三期"), Outcome::refused);
    EXPECT_EQ(said(), "项目编码重复:已有“I2 二期”");
    EXPECT_EQ(add(projectItem, "I3", "二期"), Outcome::refused);
    EXPECT_EQ(said(), "项目名称重复:已有“I2 二期”");
    EXPECT_EQ(add(person, "P3", "王五", 7), Outcome::refused);
    EXPECT_EQ(said(), "所选的所属部门已被删除,请重新选择");
    EXPECT_EQ(lines(department).size(), 2u);
    EXPECT_EQ(lines(projectItem).size(), 2u);
    EXPECT_EQ(lines(person).size(), 2u);
}

TEST_P(DirectoryServices, AskBeforeTwoUnitsBearOneName) {
    const char* asked = "已有同名的单位“U1 甲公司”。\n\n仍要使用这个名称吗?";
    m_books.messages().willAnswer(asked, Answer::no);
    EXPECT_EQ(add(unit, "U3", "甲公司"), Outcome::refused);
    EXPECT_EQ(m_books.messages().questions().back().preset, std::nullopt);
    EXPECT_EQ(lines(unit).size(), 2u);
    m_books.messages().willAnswer(asked, Answer::yes);
    EXPECT_EQ(add(unit, "U3", "甲公司"), Outcome::done);
    EXPECT_EQ(lines(unit).size(), 3u);
}

TEST_P(DirectoryServices, AskOnceAboutASharedName) {
    m_books.messages().willAnswer(Answer::yes);
    ASSERT_EQ(add(unit, "U3", "甲公司"), Outcome::done);
    const std::size_t asked = m_books.messages().questions().size();
    DirectoryRecord wanted = m_added;
    wanted.code = "U4";
    wanted.unitKind = UnitKind::supplier;
    EXPECT_EQ(service(unit).modify(m_added, wanted), Outcome::done);
    EXPECT_EQ(m_books.messages().questions().size(), asked);
    EXPECT_EQ(stored(unit, wanted.id), wanted);
    const DirectoryRecord second = stored(unit, 2);
    wanted = second;
    wanted.name = "甲公司";
    m_books.messages().willAnswer(Answer::no);
    EXPECT_EQ(service(unit).modify(second, wanted), Outcome::refused);
}

TEST_P(DirectoryServices, AskBeforePersonsOfTwoDepartmentsBearOneName) {
    EXPECT_EQ(add(person, "P3", "张三", 1), Outcome::refused);
    EXPECT_EQ(said(), "个人名称重复:已有“P1 张三”");
    m_books.messages().willAnswer("已有同名的个人“P1 张三”。\n\n仍要使用这个名称吗?", Answer::yes);
    EXPECT_EQ(add(person, "P3", "张三", 2), Outcome::done);
}

TEST_P(DirectoryServices, HoldBackItemsOfOtherClassesFromNobody) {
    ASSERT_EQ(add(projectClass, "02", "研发"), Outcome::done);
    const int group = m_added.id;
    EXPECT_EQ(add(projectItem, "I1", "一期", group), Outcome::done);
    EXPECT_EQ(m_added.id, 1);
    EXPECT_EQ(lines(projectItem), (Texts{"1 I1 一期", "2 I2 二期", "1 I1 一期"}));
}

TEST_P(DirectoryServices, MakeAndDropTheTableOfAProjectClassWithIt) {
    ASSERT_EQ(add(projectClass, "b7", "研发"), Outcome::done);
    const int id = m_added.id;
    EXPECT_TRUE(hasTable("ProjItemsb7"));
    EXPECT_EQ(m_books.books().faults(), Texts{});
    EXPECT_EQ(add(projectClass, "B7", "另一个"), Outcome::refused);
    EXPECT_EQ(said(), "项目大类编码重复:已有“b7 研发”");
    EXPECT_EQ(remove(projectClass, id), Outcome::done) << said();
    EXPECT_FALSE(hasTable("ProjItemsb7"));
    EXPECT_EQ(m_books.books().faults(), Texts{});
    EXPECT_EQ(add(projectClass, "B7", "另一个"), Outcome::done);
}

TEST_P(DirectoryServices, GiveAProjectClassOfAnotherCodeAnotherTableWhileItIsEmpty) {
    ASSERT_EQ(add(projectClass, "b7", "研发"), Outcome::done);
    const DirectoryRecord loaded = m_added;
    DirectoryRecord wanted = loaded;
    wanted.code = "b8";
    ASSERT_EQ(service(projectClass).modify(loaded, wanted), Outcome::done) << said();
    EXPECT_EQ(add(projectItem, "1", "甲", wanted.id), Outcome::done);
    EXPECT_EQ(m_books.books().faults(), Texts{});
    DirectoryRecord again = wanted;
    again.code = "b9";
    EXPECT_EQ(service(projectClass).modify(wanted, again), Outcome::refused);
    EXPECT_EQ(said(), "该项目大类已在[项目目录]中使用,编码不能修改!");
    again.code = "b8";
    again.name = "研究";
    EXPECT_EQ(service(projectClass).modify(wanted, again), Outcome::done);
}

TEST_P(DirectoryServices, RenameWhatIsUsed) {
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unitAndProject);
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 10);
    ASSERT_EQ(m_books.service(member).add(m_books.account(member), entry), Outcome::done);
    for (const DirectoryKind kind : {DirectoryKind::unit, projectItem}) {
        const DirectoryRecord loaded = stored(kind, 1);
        DirectoryRecord wanted = loaded;
        wanted.code = "X9";
        wanted.name = "改名";
        EXPECT_EQ(service(kind).modify(loaded, wanted), Outcome::done) << said();
    }
    EXPECT_EQ(m_books.stored(member).front().names.unit, "改名");
    EXPECT_EQ(m_books.stored(member).front().names.item, "改名");
    EXPECT_EQ(m_books.books().faults(), Texts{});
}

TEST_P(DirectoryServices, KeepAnItemInItsClass) {
    ASSERT_EQ(add(projectClass, "02", "研发"), Outcome::done);
    const DirectoryRecord loaded = stored(projectItem, 1);
    DirectoryRecord wanted = loaded;
    wanted.group = m_added.id;
    EXPECT_EQ(service(projectItem).modify(loaded, wanted), Outcome::refused);
    EXPECT_EQ(said(), "项目不能改到另一个项目大类");
}

TEST_P(DirectoryServices, MakeTheTableThatAClassLacksWithItsFirstItem) {
    m_books.books().run(
        "INSERT INTO ProjClass (lId, sClsCode, sClsName) VALUES (7, '07', '研发')\r\n"
        "INSERT INTO ProjClass (lId, sClsCode, sClsName) VALUES (8, '0 8', '科研')");
    EXPECT_EQ(lines(projectItem), (Texts{"1 I1 一期", "2 I2 二期"}));
    EXPECT_EQ(add(projectItem, "X1", "甲品", 8), Outcome::failed);
    EXPECT_THAT(said(), testing::HasSubstr("不合规定的数据"));
    EXPECT_EQ(add(projectItem, "X1", "甲品", 7), Outcome::done) << said();
    EXPECT_TRUE(hasTable("ProjItems07"));
    EXPECT_EQ(lines(projectItem), (Texts{"1 I1 一期", "2 I2 二期", "1 X1 甲品"}));
    EXPECT_EQ(m_books.books().faults().size(), 1u);
}

/// A place that uses the first record of a directory, and how it is told.
struct Use {
    DirectoryKind kind;
    const char* batch;
    const char* places;
};

const Use uses[] = {
    {DirectoryKind::department, "UPDATE Person SET lDeptId = 1 WHERE lId = 1", "[个人往来目录]"},
    {DirectoryKind::department, "INSERT INTO RegSub (lId, lDeptId, bBegin) VALUES (1, 1, 1)",
     "[个人往来目录]、[期初余额]"},
    {DirectoryKind::person, "INSERT INTO RegSub (lId, lPersonId, bBegin) VALUES (1, 1, 0)",
     "[已记帐凭证]"},
    {DirectoryKind::person, "INSERT INTO UnregSub (lId, lPersonId, bBegin) VALUES (1, 1, 0)",
     "[未记帐凭证]"},
    {DirectoryKind::person,
     "INSERT INTO AssAcc (lId, byPeroid, lPersonId, mFCredit) VALUES (1, 1, 1, 0.01)",
     "[辅助余额]"},
    {DirectoryKind::unitClass, "UPDATE Enter SET lClassId = 1 WHERE lId = 1", "[单位往来目录]"},
    {DirectoryKind::unit, "INSERT INTO RecpEnter (lId, lEnterId) VALUES (1, 1)", "[单位往来勾对]"},
    {DirectoryKind::unit, "INSERT INTO RegSub (lId, lEnterId, bBegin) VALUES (1, 1, 1)",
     "[期初余额]"},
    {DirectoryKind::unit,
     "INSERT INTO AssAcc (lId, byPeroid, lEnterId, mBegin) VALUES (1, 1, 1, -5)", "[辅助余额]"},
    {DirectoryKind::projectClass, "UPDATE Code SET bEnd = 1 WHERE lId = 1",
     "[项目目录]、[项目档案]"},
    {DirectoryKind::projectItem,
     "INSERT INTO RegSub (lId, lItemId, sItemId, bBegin) VALUES (1, 1, '01', 0)\r\n"
     "INSERT INTO UnregSub (lId, lItemId, sItemId) VALUES (1, 1, '01')",
     "[已记帐凭证]、[未记帐凭证]"},
};

TEST_P(DirectoryServices, DeleteNothingThatIsUsedAndSayWhere) {
    m_books.books().run("DELETE ProjCodes WHERE lId > 0");
    m_books.books().run("INSERT INTO ProjCodes (lId, lCodeId, sItemId) VALUES (1, 1, '01')");
    for (const Use& use : uses) {
        m_books.books().run(use.batch);
        const Texts before = lines(use.kind);
        EXPECT_EQ(remove(use.kind, stored(use.kind, 1).id), Outcome::refused) << use.batch;
        EXPECT_EQ(said(), std::string("该") + directoryOf(use.kind).noun + "已在" + use.places +
                              "中使用,不能删除!");
        EXPECT_EQ(lines(use.kind), before);
        for (const char* table : {"RegSub", "UnregSub", "AssAcc", "RecpEnter"})
            m_books.books().run(std::string("DELETE ") + table + " WHERE lId > 0");
    }
}

TEST_P(DirectoryServices, DoNotTakeTheItemOfAnotherClassForTheirs) {
    m_books.books().run(
        "INSERT INTO RegSub (lId, lItemId, sItemId, bBegin) VALUES (1, 1, '02', 0)");
    EXPECT_EQ(remove(projectItem, 1), Outcome::done) << said();
    EXPECT_EQ(lines(projectItem), Texts{"2 I2 二期"});
}

TEST_P(DirectoryServices, TakeEmptiedBalancesAlong) {
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 10);
    ASSERT_EQ(m_books.service(member).add(m_books.account(member), entry), Outcome::done);
    ASSERT_EQ(m_books.service(member).remove(m_books.account(member), entry), Outcome::done);
    m_books.books().run(
        "INSERT INTO AssAcc (lId, byPeroid, lCodeId, lEnterId) VALUES (900, 1, 1, 1)\r\n"
        "INSERT INTO AssAcc (lId, byPeroid, lCodeId, lEnterId) VALUES (901, 1, 1, 2)");
    EXPECT_EQ(remove(unit, 1), Outcome::done) << said();
    EXPECT_EQ(lines(unit), Texts{"2 U2 乙公司"});
    EXPECT_THAT(m_books.rows(), testing::Not(testing::Contains(testing::HasSubstr("AssAcc|900"))));
    EXPECT_THAT(m_books.rows(), testing::Contains(testing::HasSubstr("AssAcc|901")));
}

TEST_P(DirectoryServices, AskBeforeTheyDelete) {
    const DirectoryRecord record = stored(unit, 1);
    m_books.messages().willAnswer("是否删除当前单位?\n\n编码:U1\n名称:甲公司", Answer::no);
    EXPECT_EQ(service(unit).remove(&record), Outcome::refused);
    EXPECT_EQ(lines(unit).size(), 2u);
    EXPECT_EQ(service(unit).remove(nullptr), Outcome::refused);
    EXPECT_EQ(said(), "请选择要删除的单位");
}

TEST_P(DirectoryServices, LeaveAloneWhatAnotherWorkstationChangedOrDeleted) {
    const DirectoryRecord loaded = stored(person, 1);
    DirectoryRecord wanted = loaded;
    wanted.name = "张山";
    m_books.books().run("UPDATE Person SET sPersonName = '张珊' WHERE lId = 1");
    EXPECT_EQ(service(person).modify(loaded, wanted), Outcome::stale);
    EXPECT_EQ(said(),
              "该个人已被其他工作站修改,本次操作没有进行。\n\n现在的内容:P1 张珊(销售部)\n"
              "输入的内容:P1 张山(销售部)\n\n输入已保留,核对后可以再次确定。");
    m_books.messages().willAnswer(Answer::yes);
    EXPECT_EQ(service(person).remove(&loaded), Outcome::stale);
    EXPECT_EQ(said(), "该个人已被其他工作站修改,本次操作没有进行,列表已重新读入。");
    EXPECT_EQ(lines(person), (Texts{"1 P1 张珊", "2 P2 李四"}));
    m_books.books().run("DELETE Person WHERE lId = 1");
    EXPECT_EQ(service(person).modify(loaded, wanted), Outcome::stale);
    EXPECT_EQ(said(),
              "该个人已被其他工作站删除,列表已重新读入。\n输入已保留,再次确定将作为新的个人增加。");
    m_books.messages().willAnswer(Answer::yes);
    EXPECT_EQ(service(person).remove(&loaded), Outcome::stale);
    EXPECT_EQ(m_books.messages().texts().size(), 1u);
}

TEST_P(DirectoryServices, TellThatNoIdIsLeft) {
    m_books.books().run("UPDATE ABIdTable SET lLastId = 2147483647 WHERE sTable = 'Dept'");
    EXPECT_EQ(add(department, "D9", "新的"), Outcome::failed);
    EXPECT_NE(said(), "");
    m_books.books().run("UPDATE ProjItems01 SET lId = 2147483647 WHERE lId = 2");
    EXPECT_EQ(add(projectItem, "I9", "新的"), Outcome::failed);
    EXPECT_NE(said(), "");
    EXPECT_EQ(lines(projectItem).size(), 2u);
}

CHENGHENG_ON_ALL_ENGINES(DirectoryServices);

}  // namespace
