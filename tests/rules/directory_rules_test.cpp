#include "directories/directory_rules.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <set>

#include "report/output/print_templates.h"
#include "session/rights_list.h"

namespace {

using namespace chengheng;
using Lines = std::vector<std::string>;

/// What others there are, and how often somebody asked.
struct Others {
    std::vector<DirectoryRecord> records;
    bool isGroupThere = true;

    std::string refusal(DirectoryKind kind, const DirectoryRecord& wanted) const {
        const auto with = [this](std::string DirectoryRecord::*text) {
            return [this, text](const std::string& sought) {
                std::vector<DirectoryRecord> found = records;
                std::erase_if(found,
                              [&](const DirectoryRecord& each) { return each.*text != sought; });
                return found;
            };
        };
        const DirectoryFacts facts{
            .directory = directoryOf(kind),
            .wanted = wanted,
            .isGroupThere = [this] { return isGroupThere; },
            .bearersOfCode = with(&DirectoryRecord::code),
            .bearersOfName = with(&DirectoryRecord::name),
            .bearersOfClassCode = [this](const std::string&) { return records; }};
        const auto found = firstRefusal(directoryChecks(), facts);
        return found ? found->notice.focusField + "|" + found->notice.text : "";
    }
};

DirectoryRecord record(const char* code, const char* name, int group = 1) {
    return {.id = 0, .group = group, .code = code, .name = name};
}

TEST(Directories, AreTheFunctionsOfTheRightsList) {
    Lines titles;
    for (const Directory& each : directories()) {
        titles.push_back(std::string(each.key) + " " + std::to_string(each.right) + " " +
                         each.title);
        // The classes of units have no function of their own.
        if (each.kind != DirectoryKind::unitClass) {
            EXPECT_STREQ(each.title, functionName(each.right));
        }
    }
    EXPECT_EQ(titles, (Lines{"departments 8 部门目录", "persons 1 个人往来目录",
                             "unit-classes 75 单位往来分类", "units 75 单位往来目录",
                             "project-classes 14 项目大类定义", "projects 13 项目定义及目录"}));
}

TEST(Directories, AreFoundByTheirKindAndTheirKey) {
    for (const Directory& each : directories()) {
        EXPECT_EQ(&directoryOf(each.kind), &each);
        EXPECT_EQ(findDirectory(each.key), &each);
    }
    EXPECT_EQ(findDirectory("Units"), nullptr);
    EXPECT_EQ(findDirectory(""), nullptr);
}

TEST(Directories, StandBehindWhatTheyAreGroupedBy) {
    std::set<DirectoryKind> seen;
    for (const Directory& each : directories()) {
        if (each.groups) {
            EXPECT_TRUE(seen.contains(*each.groups)) << each.key;
        }
        seen.insert(each.kind);
    }
}

TEST(Directories, EachHaveAPrintTemplateOfTheirOwn) {
    std::set<int> numbers;
    for (const Directory& each : directories()) {
        numbers.insert(each.printTemplate);
        EXPECT_EQ(std::ranges::count(printTemplates(), each.printTemplate, &PrintTemplate::number),
                  1)
            << each.key;
    }
    EXPECT_EQ(numbers.size(), directories().size());
}

TEST(DirectoryChecks, StandInTheirOrder) {
    Lines names;
    for (const auto& check : directoryChecks()) names.emplace_back(check.name);
    EXPECT_EQ(
        names,
        (Lines{"a code", "no blank in the code", "a code that can be shown",
               "a code of no more characters than fit", "a class code that can name a table",
               "a name", "a name that can be shown", "a name of no more characters than fit",
               "a group", "a group that is there", "nobody else's code", "nobody else's name"}));
}

TEST(DirectoryChecks, AskForACodeThatCanBeReadAtOnce) {
    const Others nobody;
    using enum DirectoryKind;
    EXPECT_EQ(nobody.refusal(department, record("", "", 0)), "sCode|部门编码不能为空");
    EXPECT_EQ(nobody.refusal(unit, record("A 1", "甲", 1)), "sCode|单位编码不能包含空格");
    EXPECT_EQ(nobody.refusal(unit, record("A　1", "甲", 1)), "sCode|单位编码不能包含空格");
    EXPECT_EQ(nobody.refusal(person, record("A\x01", "甲")), "sCode|个人编码含有不能显示的字符");
    EXPECT_EQ(nobody.refusal(unitClass, record("123456789012345678901", "甲")),
              "sCode|单位分类编码最多 20 个字");
    EXPECT_EQ(nobody.refusal(unitClass, record("一二三四五六七八九十一二三四五六七八九十", "甲")),
              "");
}

TEST(DirectoryChecks, TakeOnlyLettersAndDigitsForTheCodeOfAProjectClass) {
    const Others nobody;
    const char* refused = "sCode|项目大类编码只能由字母和数字组成";
    EXPECT_EQ(nobody.refusal(DirectoryKind::projectClass, record("工程", "工程")), refused);
    EXPECT_EQ(nobody.refusal(DirectoryKind::projectClass, record("1;DROP", "工程")), refused);
    EXPECT_EQ(nobody.refusal(DirectoryKind::projectClass, record("a1", "工程")), "");
    EXPECT_EQ(nobody.refusal(DirectoryKind::projectItem, record("工程", "工程")), "");
}

TEST(DirectoryChecks, AskForANameThatFits) {
    const Others nobody;
    using enum DirectoryKind;
    EXPECT_EQ(nobody.refusal(projectItem, record("1", "")), "sName|项目名称不能为空");
    EXPECT_EQ(nobody.refusal(projectItem, record("1", "一\n期")),
              "sName|项目名称含有不能显示的字符");
    const std::string sixty(60, 'x');
    EXPECT_EQ(nobody.refusal(projectItem, record("1", sixty.c_str())), "");
    EXPECT_EQ(nobody.refusal(projectItem, record("1", (sixty + "x").c_str())),
              "sName|项目名称最多 60 个字");
}

TEST(DirectoryChecks, AskForAGroupThatIsThere) {
    Others nobody;
    using enum DirectoryKind;
    EXPECT_EQ(nobody.refusal(person, record("1", "甲", 0)), "lGroup|请选择所属部门");
    EXPECT_EQ(nobody.refusal(unit, record("1", "甲", 0)), "lGroup|请选择单位分类");
    EXPECT_EQ(nobody.refusal(projectItem, record("1", "甲", 0)), "lGroup|请选择项目大类");
    nobody.isGroupThere = false;
    EXPECT_EQ(nobody.refusal(person, record("1", "甲", 7)),
              "lGroup|所选的所属部门已被删除,请重新选择");
    EXPECT_EQ(nobody.refusal(department, record("1", "甲", 0)), "");
}

TEST(DirectoryChecks, RefuseACodeThatAnotherHasAndNotOnesOwn) {
    Others others{{{.id = 5, .group = 2, .code = "01", .name = "销售部"}}};
    DirectoryRecord wanted = record("01", "生产部");
    for (const Directory& each : directories())
        EXPECT_EQ(others.refusal(each.kind, wanted),
                  std::string("sCode|") + each.noun + "编码重复:已有“01 销售部”");
    wanted.id = 5;
    for (const Directory& each : directories()) EXPECT_EQ(others.refusal(each.kind, wanted), "");
}

TEST(DirectoryChecks, HoldTheCodesOfProjectClassesApartInAnyCaseOfLetters) {
    const Others others{{{.id = 5, .code = "a1", .name = "工程"}}};
    EXPECT_EQ(others.refusal(DirectoryKind::projectClass, record("A1", "研发")),
              "sCode|项目大类编码重复:已有“a1 工程”");
    EXPECT_EQ(others.refusal(DirectoryKind::department, record("A1", "研发")), "");
}

TEST(DirectoryChecks, RefuseANameThatAnotherHasButThatOfAUnitAndOfAPersonElsewhere) {
    const Others others{{{.id = 5, .group = 2, .code = "01", .name = "张伟"}}};
    using enum DirectoryKind;
    const DirectoryRecord wanted = record("02", "张伟", 1);
    for (const DirectoryKind kind : {department, unitClass, projectClass, projectItem}) {
        const std::string noun = directoryOf(kind).noun;
        if (kind != projectClass) {
            EXPECT_EQ(others.refusal(kind, wanted), "sName|" + noun + "名称重复:已有“01 张伟”");
        }
    }
    EXPECT_EQ(others.refusal(unit, wanted), "");
    EXPECT_EQ(others.refusal(person, wanted), "");
    EXPECT_EQ(others.refusal(person, record("02", "张伟", 2)), "sName|个人名称重复:已有“01 张伟”");
}

TEST(DirectoryRecords, AreTidiedOfBlanksAroundTheirLines) {
    const DirectoryRecord wanted = tidied(record(" 01　", "\t甲 乙 "));
    EXPECT_EQ(wanted.code, "01");
    EXPECT_EQ(wanted.name, "甲 乙");
}

}  // namespace
