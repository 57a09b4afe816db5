#include "accounts/screen/account_directories.h"

#include <gtest/gtest.h>

#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"

using namespace chengheng;

namespace {

struct Expected {
    AccountDirectory directory;
    const char* title;
    std::vector<std::string> entries;
};

const std::vector<Expected> expectations{
    {AccountDirectory::persons, "个人目录", {"P1 张三"}},
    {AccountDirectory::departments, "部门目录", {"D1 财务部", "D2 销售部"}},
    {AccountDirectory::projects, "项目大类", {"01 工程"}},
    {AccountDirectory::units, "单位目录", {"U1 大华"}}};

class AccountDirectories : public testing::TestWithParam<EngineCase> {
  protected:
    AccountBooks m_books{freshLocation(GetParam())};
};

}  // namespace

TEST_P(AccountDirectories, ListEverythingThatIsInThem) {
    m_books.run(
        "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (1, 'D1', '财务部')\r\n"
        "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (2, 'D2', '销售部')\r\n"
        "INSERT INTO Person (lId, lDeptId, sPersonCode, sPersonName) VALUES (1, 1, 'P1', "
        "'张三')\r\n"
        "INSERT INTO Enter (lId, sEnterCode, sEnterName) VALUES (1, 'U1', '大华')");
    for (const auto& [directory, title, expected] : expectations) {
        EXPECT_STREQ(titleOf(directory), title);
        std::vector<DirectoryEntry> entries;
        EXPECT_TRUE(readDirectory(directory, entries)) << title;
        std::vector<std::string> texts;
        for (const DirectoryEntry& entry : entries) texts.push_back(entry.code + " " + entry.name);
        EXPECT_EQ(texts, expected) << title;
    }
}

TEST_P(AccountDirectories, AreUnknownWhenTheyCannotBeRead) {
    for (const auto& [directory, title, expected] : expectations) {
        m_books.engine().failCall(1, Failure::full);
        std::vector<DirectoryEntry> entries;
        EXPECT_EQ(readDirectory(directory, entries).failure, Failure::full) << title;
        m_books.engine().failCall(0);
    }
}

CHENGHENG_ON_ALL_ENGINES(AccountDirectories);
