#include "directories/transfer/directory_import.h"

#include <gtest/gtest.h>

#include "data/tables/directories.h"
#include "directories/directory_service.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace {

using namespace chengheng;
using Lines = std::vector<std::string>;

/// Books with two of everything but unit and project classes, of which there is one.
class DirectoryImports : public testing::TestWithParam<EngineCase> {
  protected:
    using enum DirectoryKind;

    static Sheet sheetOf(const std::string& csv) {
        Sheet sheet;
        EXPECT_FALSE(readCsv(csv, sheet));
        return sheet;
    }
    Outcome import(DirectoryKind kind, const std::string& csv,
                   const ImportProgress& progress = {}) {
        DirectoryImport import(m_books.messages(), directoryOf(kind));
        const auto plan = import.plan(sheetOf(csv), "目录.csv");
        return plan ? import.apply(*plan, progress) : Outcome::failed;
    }
    /// "1 D1 销售部 0 0": id, code, name, group, kind of each record.
    Lines stored(DirectoryKind kind) {
        Lines lines;
        DirectoryService service(m_books.messages(), directoryOf(kind));
        const auto records = service.readAll();
        EXPECT_TRUE(records);
        for (const DirectoryRecord& record : *records)
            lines.push_back(std::to_string(record.id) + " " + directoryLine(record) + " " +
                            std::to_string(record.group) + " " +
                            std::to_string(static_cast<int>(record.unitKind)));
        return lines;
    }
    /// Everything that an import could change.
    Lines rows() {
        Lines rows = m_books.rows();
        for (const Directory& each : directories())
            for (const std::string& line : stored(each.kind)) rows.push_back(each.key + line);
        return rows;
    }
    std::string said() {
        EXPECT_FALSE(m_books.books().holdsLocks());
        const Lines texts = m_books.messages().texts();
        m_books.messages().forget();
        return texts.empty() ? "" : texts.back();
    }
    bool hasTable(const char* name) {
        bool isThere = false;
        EXPECT_TRUE(m_books.books().engine().hasTable(name, isThere).isDone());
        return isThere;
    }

    EntryBooks m_books{freshLocation(GetParam())};
};

TEST_P(DirectoryImports, AddAndModifyWithTheNextIdsInTheOrderOfTheSheet) {
    EXPECT_EQ(import(department, "编码,名称\nD4,采购部\nD3,研发部\nD1,市场部\n"), Outcome::done);
    EXPECT_EQ(stored(department),
              (Lines{"1 D1 市场部 0 0", "2 D2 生产部 0 0", "4 D3 研发部 0 0", "3 D4 采购部 0 0"}));
    EXPECT_EQ(import(person, "编码,名称,所属部门\nP3,王五,采购部\nP2,李四,D1\n"), Outcome::done);
    EXPECT_EQ(stored(person), (Lines{"1 P1 张三 1 0", "2 P2 李四 1 0", "3 P3 王五 3 0"}));
    EXPECT_EQ(import(unit, "编码,名称,单位分类,性质\nU3,丙公司,1,客户\nU1,甲公司,,供应商\n"),
              Outcome::done);
    EXPECT_EQ(stored(unit), (Lines{"1 U1 甲公司 1 2", "2 U2 乙公司 1 0", "3 U3 丙公司 1 1"}));
    EXPECT_EQ(import(unitClass, "编码,名称\n2,供应商\n1,客商\n"), Outcome::done);
    EXPECT_EQ(stored(unitClass), (Lines{"1 1 客商 0 0", "401 2 供应商 0 0"}));
    EXPECT_EQ(said(), "");
    DirectoryRecord next{.code = "D5", .name = "后勤部"};
    EXPECT_EQ(DirectoryService(m_books.messages(), directoryOf(department)).add(next),
              Outcome::done);
    EXPECT_EQ(next.id, 5) << "the counter goes on";
    EXPECT_EQ(m_books.books().faults(), Lines{});
}

TEST_P(DirectoryImports, GiveNewProjectClassesTheirTablesAndItemsTheirIdsByClass) {
    EXPECT_EQ(import(projectClass, "编码,名称\nX1,产品\nX2,课题\n"), Outcome::done);
    EXPECT_TRUE(hasTable("ProjItemsX1"));
    EXPECT_TRUE(hasTable("ProjItemsX2"));
    EXPECT_EQ(import(projectItem,
                     "编码,名称,项目大类\na,甲,X2\nI3,三期,01\nb,乙,课题\na,甲,X1\nI1,首期,01\n"),
              Outcome::done);
    EXPECT_EQ(stored(projectItem), (Lines{"1 I1 首期 1 0", "2 I2 二期 1 0", "3 I3 三期 1 0",
                                          "1 a 甲 401 0", "1 a 甲 402 0", "2 b 乙 402 0"}));
    EXPECT_EQ(said(), "");
    EXPECT_EQ(m_books.books().faults(), Lines{});
}

TEST_P(DirectoryImports, ChangeNothingWhileTheyArePlanned) {
    const Lines before = rows();
    m_books.books().locks().forget();
    DirectoryImport import(m_books.messages(), directoryOf(department));
    EXPECT_TRUE(import.plan(sheetOf("编码,名称\nD3,研发部\n"), "目录.csv"));
    EXPECT_EQ(rows(), before);
    EXPECT_TRUE(m_books.books().locks().log().empty());
}

TEST_P(DirectoryImports, WithARefusedRowChangeNothing) {
    const Lines before = rows();
    EXPECT_EQ(import(department, "编码,名称\nD3,研发部\nD4,销售部\n"), Outcome::refused);
    EXPECT_EQ(said(), "有 1 行被拒绝,没有导入。\n请修改文件后重试。");
    EXPECT_EQ(import(department, "名称\n研发部\n"), Outcome::failed);
    EXPECT_EQ(said(), "没有读入文件“目录.csv”。\n第 1 行:没有标题行。标题行中应有“编码”。");
    EXPECT_EQ(rows(), before);
}

TEST_P(DirectoryImports, AskOnceForAllNamesThatWouldBeShared) {
    const char* csv = "编码,名称,单位分类\nU3,甲公司,1\nU4,乙公司,1\n";
    m_books.messages().willAnswer("有 2 行需要确认,全部接受并导入吗?", Answer::cancel);
    EXPECT_EQ(import(unit, csv), Outcome::refused);
    EXPECT_EQ(stored(unit).size(), 2u);
    m_books.messages().willAnswer("有 2 行需要确认,全部接受并导入吗?", Answer::ok);
    EXPECT_EQ(import(unit, csv), Outcome::done);
    EXPECT_EQ(stored(unit).size(), 4u);
    m_books.messages().forget();
    EXPECT_EQ(import(unit, csv), Outcome::done) << "nothing changes, so nothing is asked";
    EXPECT_EQ(said(), "");
}

TEST_P(DirectoryImports, AreGivenUpWhenTheBooksChangedSoThatThePlanIsAnother) {
    DirectoryImport import(m_books.messages(), directoryOf(person));
    const auto plan = import.plan(sheetOf("编码,名称,所属部门\nP3,王五,销售部\n"), "目录.csv");
    ASSERT_TRUE(plan);
    m_books.books().run("UPDATE Dept SET sDeptName = '市场部' WHERE lId = 1");
    const Lines before = rows();
    EXPECT_EQ(import.apply(*plan), Outcome::stale);
    EXPECT_EQ(said(), "预览之后帐套中的资料已有改动,没有导入。\n请重新预览。");
    EXPECT_EQ(rows(), before);
}

TEST_P(DirectoryImports, GoOnWhenTheBooksChangedAndThePlanIsTheSame) {
    DirectoryImport import(m_books.messages(), directoryOf(person));
    const auto plan = import.plan(sheetOf("编码,名称,所属部门\nP3,王五,销售部\n"), "目录.csv");
    ASSERT_TRUE(plan);
    m_books.books().run("UPDATE Person SET sPersonName = '赵六' WHERE lId = 1");
    EXPECT_EQ(import.apply(*plan), Outcome::done);
    EXPECT_EQ(stored(person), (Lines{"1 P1 赵六 1 0", "2 P2 李四 2 0", "3 P3 王五 1 0"}));
}

TEST_P(DirectoryImports, TellHowFarTheyAreAndCanBeGivenUp) {
    std::string csv = "编码,名称\nD1,市场部\n";
    for (int number = 0; number < 1500; ++number)
        csv += "N" + std::to_string(number) + ",部门" + std::to_string(number) + "\n";
    const Lines before = rows();
    std::vector<std::size_t> told;
    const auto noteUntil = [&](std::size_t last) {
        told.clear();
        return [&told, last](std::size_t done, std::size_t total) {
            EXPECT_EQ(total, 1501u);
            told.push_back(done);
            return done < last;
        };
    };
    EXPECT_EQ(import(department, csv, noteUntil(1000)), Outcome::refused);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1000}));
    EXPECT_EQ(said(), "导入已取消,部门没有改动。");
    EXPECT_EQ(import(department, csv, noteUntil(1501)), Outcome::refused);
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(import(department, csv, noteUntil(9999)), Outcome::done);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1000, 1500, 1501}));
    EXPECT_EQ(stored(department).size(), 1502u);
    EXPECT_EQ(m_books.books().faults(), Lines{});
}

TEST_P(DirectoryImports, TellThatNoIdsAreLeftForTheNewRecords) {
    const Lines before = rows();
    const char* csv = "编码,名称\nD3,研发部\nD4,采购部\n";
    m_books.books().run("UPDATE ABIdTable SET lLastId = 2147483646 WHERE sTable = 'Dept'");
    EXPECT_EQ(import(department, csv), Outcome::failed);
    EXPECT_NE(said().find("的记录编号已经用完,数据没有改动。"), std::string::npos);
    m_books.books().run("UPDATE ProjItems01 SET lId = 2147483646 WHERE lId = 2");
    EXPECT_EQ(import(projectItem, "编码,名称,项目大类\na,甲,01\nb,乙,01\n"), Outcome::failed);
    EXPECT_NE(said().find("的记录编号已经用完,数据没有改动。"), std::string::npos);
    m_books.books().run(
        "UPDATE ProjItems01 SET lId = 2 WHERE lId = 2147483646\r\n"
        "UPDATE ABIdTable SET lLastId = 2 WHERE sTable = 'Dept'");
    EXPECT_EQ(rows(), before);
    m_books.books().run("UPDATE ABIdTable SET lLastId = 2147483645 WHERE sTable = 'Dept'");
    EXPECT_EQ(import(department, csv), Outcome::done);
    EXPECT_EQ(stored(department).back(), "2147483647 D4 采购部 0 0");
}

TEST_P(DirectoryImports, ChangeNothingWhicheverCallFails) {
    const std::pair<DirectoryKind, const char*> cases[] = {
        {person, "编码,名称,所属部门\nP3,王五,D1\nP1,赵六,D2\n"},
        {projectClass, "编码,名称\nX1,产品\nX2,课题\n01,工程\n"},
        {projectItem, "编码,名称,项目大类\nI3,三期,01\nI1,首期,01\n"}};
    for (const auto& [kind, csv] : cases) {
        const Lines before = rows();
        int failures = 0;
        for (int call = 1;; ++call) {
            ASSERT_LT(call, 200);
            m_books.messages().forget();
            m_books.books().engine().failCall(call);
            const Outcome outcome = import(kind, csv);
            m_books.books().engine().failCall(0);
            EXPECT_FALSE(m_books.books().holdsLocks()) << call;
            EXPECT_FALSE(m_books.books().engine().inTransaction()) << call;
            if (outcome == Outcome::done) break;
            ++failures;
            EXPECT_EQ(outcome, Outcome::failed) << call;
            EXPECT_EQ(m_books.messages().notices().size(), 1u) << call;
            ASSERT_EQ(rows(), before) << call;
            if (kind == projectClass) {
                ASSERT_FALSE(hasTable("ProjItemsX1")) << call;
            }
        }
        EXPECT_GT(failures, 5);
        EXPECT_NE(rows(), before);
    }
    EXPECT_EQ(m_books.books().faults(), Lines{});
}

CHENGHENG_ON_ALL_ENGINES(DirectoryImports);

/// Books from which directories are exported, and empty ones into which they are imported.
class DirectoryExports : public testing::TestWithParam<EngineCase> {
  protected:
    /// Code, name, kind of unit and code of the group of each record.
    static Lines lines(RecordingMessages& messages, const Directory& directory) {
        DirectoryService service(messages, directory);
        const auto records = service.readAll();
        const auto groups = service.readGroups();
        EXPECT_TRUE(records && groups);
        Lines lines;
        for (const DirectoryRecord& record : *records) {
            lines.push_back(directoryLine(record) + " " +
                            std::to_string(static_cast<int>(record.unitKind)));
            for (const DirectoryRecord& group : *groups)
                if (group.id == record.group) lines.back() += " " + group.code;
        }
        return lines;
    }
    std::string file(const Directory& directory, const char* end) const {
        return m_folder + directory.key + end;
    }
    static void import(RecordingMessages& messages, const Directory& directory,
                       const std::string& path, RowFate fate) {
        DirectoryImport import(messages, directory);
        const auto plan = import.plan(path);
        ASSERT_TRUE(plan) << path;
        EXPECT_EQ(plan->count(fate), plan->rows.size()) << path;
        EXPECT_FALSE(plan->rows.empty()) << path;
        if (plan->rowsWithQuestions() > 0) messages.willAnswer(Answer::ok);
        EXPECT_EQ(import.apply(*plan), Outcome::done) << path;
    }

    std::string m_folder = freshFolder() + "/";
};

TEST_P(DirectoryExports, ReadBackIntoEmptyBooksAsTheSameRecordsAndThenChangeNothing) {
    std::vector<Lines> exported;
    {
        EntryBooks books(freshLocation(GetParam()));
        books.books().run(
            "INSERT INTO Enter VALUES (3, 1, '007', '甲公司', 2)\r\n"
            "INSERT INTO Enter VALUES (4, 1, '+1', '=A1,\"引号\"', 1)\r\n"
            "INSERT INTO Person VALUES (3, 2, 'P3', '张三')");
        for (const Directory& each : directories()) {
            for (const char* end : {".csv", ".xlsx"})
                EXPECT_EQ(
                    exportDirectory(books.messages(), each, file(each, end), Overwrite::refuse),
                    Outcome::done);
            exported.push_back(lines(books.messages(), each));
        }
    }
    for (const char* end : {".csv", ".xlsx"}) {
        AccountBooks books(freshLocation(GetParam()));
        books.run("DELETE FROM ProjClass");
        EXPECT_TRUE(books.engine().script("DROP TABLE ProjItems01").isDone());
        std::size_t place = 0;
        for (const Directory& each : directories()) {
            import(books.messages(), each, file(each, end), RowFate::added);
            const Lines added = lines(books.messages(), each);
            EXPECT_EQ(added, exported[place++]) << each.key;
            import(books.messages(), each, file(each, end), RowFate::unchanged);
            EXPECT_EQ(lines(books.messages(), each), added) << each.key;
        }
        EXPECT_EQ(books.faults(), Lines{});
    }
}

TEST_P(DirectoryExports, AreToldWhenTheyCannotBeWritten) {
    EntryBooks books(freshLocation(GetParam()));
    const Directory& units = directoryOf(DirectoryKind::unit);
    EXPECT_EQ(exportDirectory(books.messages(), units, m_folder + "units.txt", Overwrite::refuse),
              Outcome::refused);
    EXPECT_EQ(
        exportDirectory(books.messages(), units, m_folder + "none/units.csv", Overwrite::refuse),
        Outcome::failed);
    books.books().engine().failCall(1);
    EXPECT_EQ(exportDirectory(books.messages(), units, m_folder + "units.csv", Overwrite::refuse),
              Outcome::failed);
    EXPECT_EQ(books.messages().notices().size(), 3u);
}

CHENGHENG_ON_ALL_ENGINES(DirectoryExports);

}  // namespace
