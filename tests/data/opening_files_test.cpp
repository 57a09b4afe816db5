#include <fstream>

#include "opening/sheet/opening_texts.h"
#include "tests/data/opening_case.h"

namespace chengheng {
namespace {

/// Figures that come from files and go there, and what is said of a typed text.
class OpeningFiles : public OpeningCase {
  protected:
    std::string file(const std::string& content) const {
        const std::string path = m_folder + "/in.csv";
        std::ofstream(path) << content;
        return path;
    }
    void expectWarning(const std::string& text) {
        const Notice told = messages().onlyNotice();
        EXPECT_EQ(told.text, text);
        EXPECT_EQ(told.icon, MessageIcon::warning) << text;
        EXPECT_TRUE(told.beep) << text;
        messages().forget();
    }
    std::string remarkOn(const std::string& code, std::string_view text) {
        EXPECT_TRUE(m_books.type(code, text)) << text;
        return work().remark();
    }

    std::string m_folder = freshFolder();
};

TEST_P(OpeningFiles, AreReadBackUnchanged) {
    m_books.type("1001", "5");
    for (const char* name : {"/out.csv", "/out.xlsx"}) {
        ASSERT_EQ(work().exportTo(m_folder + name), Outcome::done);
        const auto plan = work().planImport(m_folder + name);
        ASSERT_TRUE(plan);
        EXPECT_GT(plan->count(CellFate::unchanged), 0U);
        EXPECT_EQ(plan->count(CellFate::changed) + plan->count(CellFate::refused), 0U);
    }
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(OpeningFiles, AreAppliedAsOneStep) {
    m_books.type("1001", "5");
    const auto plan = work().planImport(file("科目编码,期初余额\n1001,7\n100202,8\n1002,9\n"));
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->count(CellFate::changed), 2U);
    EXPECT_EQ(plan->count(CellFate::ignored), 1U);
    EXPECT_EQ(m_books.shown("1001"), "5.00");
    EXPECT_EQ(work().apply(*plan), Outcome::done);
    EXPECT_EQ(m_books.shown("1001") + m_books.shown("1002"), "7.008.00");
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.shown("1001") + m_books.shown("1002"), "5.000.00");
}

TEST_P(OpeningFiles, WithARefusedCellAreNotApplied) {
    const auto plan = work().planImport(file("科目编码,期初余额\n1001,7\n9999,8\n"));
    ASSERT_TRUE(plan);
    EXPECT_EQ(work().apply(*plan), Outcome::refused);
    EXPECT_EQ(m_books.rows(), Texts{});
    Sheet block;
    block.rows = {{Cell::of("x")}};
    const auto opening = placeOf(OpeningField::opening, work().sheet().layout());
    EXPECT_EQ(work().apply(work().planPaste(m_books.lineOf("1001"), opening, block)),
              Outcome::refused);
    block.rows = {{Cell::of("3")}};
    EXPECT_EQ(work().apply(work().planPaste(m_books.lineOf("1001"), opening, block)),
              Outcome::done);
    EXPECT_EQ(m_books.shown("1001"), "3.00");
}

TEST_P(OpeningFiles, ThatCannotBeReadOrWrittenAreToldWithTheReason) {
    EXPECT_EQ(work().exportTo(m_folder + "/a.txt"), Outcome::refused);
    expectWarning("文件名“" + m_folder + "/a.txt”应以 .csv 或 .xlsx 结尾。");
    EXPECT_EQ(work().exportTo(m_folder + "/none/a.csv"), Outcome::failed);
    expectWarning("没有写入文件“" + m_folder +
                  "/none/a.csv”,原有的文件保持不变。\n"
                  "所在的文件夹不存在。请先建立文件夹,或换一个路径。");
    EXPECT_FALSE(work().planImport(m_folder + "/none.csv"));
    expectWarning("没有读入文件“" + m_folder + "/none.csv”。\n找不到该文件。请检查路径是否正确。");
    EXPECT_FALSE(work().planImport(file("1001,5\n")));
    expectWarning("没有读入文件“" + m_folder + "/in.csv”。\n" + opening_texts::noHeadings);
}

TEST_P(OpeningFiles, OrTypedTextsThatAreNoNumbersAreRemarkedOn) {
    EXPECT_EQ(remarkOn("1001", "abc"), "“abc”不是数字。按 0 计算,金额没有改变。");
    EXPECT_EQ(remarkOn("1001", "5"), "");
    EXPECT_EQ(remarkOn("1001", "1,5"),
              "“1,5”不是数字:小数点应为“.”,不能用“,”。已按 0 录入,按 Ctrl+Z 恢复原来的金额。");
    EXPECT_EQ(remarkOn("1001", " "), "");
    EXPECT_EQ(remarkOn("1001", std::string(30, 'x')),
              "“" + std::string(30, 'x') + "”不是数字。按 0 计算,金额没有改变。");
    EXPECT_EQ(remarkOn("1001", std::string(31, 'x')),
              "“" + std::string(30, 'x') + "…”不是数字。按 0 计算,金额没有改变。");
    work().beginEdit();
    EXPECT_EQ(work().remark(), "");
    m_books.type("1001", "x");
    EXPECT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(work().remark(), "");
}

TEST_P(OpeningFiles, StayAsTheyAreWithoutAnythingToDo) {
    EXPECT_EQ(work().undo(), Outcome::refused);
    EXPECT_EQ(work().redo(), Outcome::refused);
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(work().auxiliaryToOpen(m_books.lineOf("1001"), 0), AuxiliaryKind::none);
    const auto readings = work().readings();
    m_books.type("1001", "5");
    EXPECT_EQ(work().readings(), readings);
    EXPECT_EQ(work().refresh(), Outcome::done);
    EXPECT_GT(work().readings(), readings);
    m_books.addVoucher();
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(work().adjustDirection(m_books.lineOf("2001")), Outcome::refused);
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(OpeningFiles, WithTooLargeAnAmountAreRefusedWithABeep) {
    EXPECT_FALSE(m_books.type("1001", "10000000000000"));
    EXPECT_TRUE(messages().onlyNotice().beep);
    EXPECT_FALSE(m_books.type("1001", "-10000000000000"));
    EXPECT_TRUE(m_books.type("1001", "-9999999999999.99"));
}

CHENGHENG_ON_ALL_ENGINES(OpeningFiles);

}  // namespace
}  // namespace chengheng
