#include "sheets/files/sheet_files.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <fstream>

#include "tests/support/comma_locale.h"
#include "tests/support/engine_cases.h"
#include "tests/support/small_disk.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

using WriteSheet = std::optional<SheetFailure> (*)(const Sheet&, const std::string&, Overwrite);

Sheet written(WriteSheet write, const Sheet& sheet) {
    const std::string path = freshFolder() + "/表.file";
    const std::optional<SheetFailure> failure = write(sheet, path, Overwrite::replace);
    EXPECT_FALSE(failure) << failure->text();
    Sheet read;
    const std::optional<SheetFailure> unread = readSheet(path, read);
    EXPECT_FALSE(unread) << unread->text();
    return read;
}

/// Texts that have been spoilt on some way through a file.
std::vector<SheetRow> hardTexts() {
    std::string controls;
    for (char control = 1; control < ' '; ++control) controls += control;
    std::vector<SheetRow> rows;
    for (const std::string& text : std::vector<std::string>{"0101",
                                                            "00",
                                                            "1e5",
                                                            "=1+1",
                                                            "+86",
                                                            "-1",
                                                            "@a",
                                                            "'a",
                                                            "a,b",
                                                            "a;b",
                                                            "a\tb",
                                                            "a\"b",
                                                            "\"a\"",
                                                            "\"",
                                                            "a\r\nb",
                                                            "a\nb",
                                                            "a\rb",
                                                            " a ",
                                                            "\ta\t",
                                                            "\na\n",
                                                            "　全角　",
                                                            "𠮷😀",
                                                            "_x0041_",
                                                            "_x005F_x0041_",
                                                            "<a>&amp;</a>",
                                                            "]]>",
                                                            controls,
                                                            "a\xEF\xBF\xBF",
                                                            "\xEF\xBB\xBFmark",
                                                            "é",
                                                            "TRUE",
                                                            "2026-01-05",
                                                            std::string(32'767, 'x')})
        rows.push_back({Cell::of(text), Cell::of("|")});
    return rows;
}

TEST(SheetFiles, EveryTextComesBackFromACsvFile) {
    Sheet sheet;
    sheet.rows = hardTexts();
    sheet.rows.push_back({Cell::of(std::string(1U << 20U, '"'))});
    EXPECT_EQ(written(&writeCsv, sheet).rows, sheet.rows);
}

TEST(SheetFiles, EveryTextComesBackFromAnXlsxFile) {
    Sheet sheet;
    sheet.rows = hardTexts();
    EXPECT_EQ(written(&writeXlsx, sheet).rows, sheet.rows);
}

TEST(SheetFiles, NumbersGapsAndTheNameComeBackFromAnXlsxFile) {
    Sheet sheet;
    sheet.name = "期初余额";
    sheet.hasHeader = true;
    sheet.columns = {{.width = 12, .decimals = {}}, {.width = 0, .decimals = 2}};
    sheet.rows = {{Cell::of("编码"), Cell::of("余额")},
                  {},
                  {Cell::of(1001.0), Cell::of(-1234567.89)},
                  {Cell(), Cell::of(0.1)},
                  {Cell::of(1e15), Cell::of(0.0)}};
    const Sheet read = written(&writeXlsx, sheet);
    EXPECT_EQ(read.rows, sheet.rows);
    EXPECT_EQ(read.name, "期初余额");
}

TEST(SheetFiles, NumbersComeBackFromACsvFileAsTheirDigits) {
    Sheet sheet;
    sheet.columns = {{.width = 0, .decimals = 2}};
    sheet.rows = {{Cell::of(-1234567.5), Cell::of(1001.0)}};
    EXPECT_EQ(written(&writeCsv, sheet).rows,
              (std::vector<SheetRow>{{Cell::of("-1234567.50"), Cell::of("1001")}}));
}

TEST(SheetFiles, NamesThatSpreadsheetsRefuseAreMadeFit) {
    const std::vector<std::pair<std::string, std::string>> names{
        {"", "Sheet1"},
        {"a/b[c]:d*e?f\\g'h", "a_b_c__d_e_f_g_h"},
        {std::string(40, 'x'), std::string(31, 'x')},
        {std::string(31, 'y'), std::string(31, 'y')},
        {"𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷", "𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷"},
        {"a b\tc\x01", "a b_c_"},
        {"\xFF", "Sheet1"}};
    for (const auto& [name, fit] : names) {
        Sheet sheet;
        sheet.name = name;
        sheet.rows = {{Cell::of("a")}};
        EXPECT_EQ(written(&writeXlsx, sheet).name, fit);
    }
}

TEST(SheetFiles, TheNameTellsWhichKindIsWritten) {
    for (const char* name : {"a.csv", "A.CSV", ".csv", "a.xlsx", "a.Xlsx", ".xlsx", "-"})
        EXPECT_TRUE(isSheetName(name)) << name;
    for (const char* name : {"", "a", "csv", "a.txt", "a.csv.bak", "xlsx"})
        EXPECT_FALSE(isSheetName(name)) << name;
    Sheet sheet;
    sheet.rows = {{Cell::of("a")}};
    const std::string folder = freshFolder();
    for (const auto& [name, begin] : {std::pair("/a.csv", "\xEF\xBB\xBF"), {"/a.XLSX", "PK"}}) {
        ASSERT_FALSE(writeSheet(sheet, folder + name, Overwrite::refuse));
        std::string content;
        std::ifstream(folder + name) >> content;
        EXPECT_TRUE(content.starts_with(begin)) << name;
        const auto failure = writeSheet(sheet, folder + name, Overwrite::refuse);
        ASSERT_TRUE(failure) << name;
        EXPECT_EQ(failure->reason, "文件已经存在。请换一个文件名,或加 --force 替换它。");
    }
}

TEST(SheetFiles, SheetWithoutRowsIsAFile) {
    EXPECT_TRUE(written(&writeCsv, {}).rows.empty());
    EXPECT_TRUE(written(&writeXlsx, {}).rows.empty());
}

TEST(SheetFiles, KindIsToldByTheContentNotTheName) {
    const std::string path = freshFolder() + "/a.csv";
    Sheet sheet;
    sheet.rows = {{Cell::of("a")}};
    ASSERT_FALSE(writeXlsx(sheet, path, Overwrite::replace));
    Sheet read;
    ASSERT_FALSE(readSheet(path, read));
    EXPECT_EQ(read.rows, sheet.rows);
}

TEST(SheetFiles, FileThatCannotBeReadIsNamedWithItsFault) {
    const std::string folder = freshFolder();
    std::ofstream(folder + "/old.xls") << "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 rest";
    std::ofstream(folder + "/open.csv") << "a,b\n\"c";
    const std::vector<std::pair<std::string, std::string>> failures{
        {"/none.csv", "找不到该文件。请检查路径是否正确。"},
        {"/old.xls",
         "文件是旧格式(.xls)的工作簿,或者设有打开口令。\n"
         "请在表格程序中另存为不带口令的 .xlsx 后重试。"},
        {"/open.csv", "第 2 行 A 列:单元格以引号开头,但没有结束的引号。"}};
    for (const auto& [name, reason] : failures) {
        Sheet sheet;
        sheet.rows.resize(3);
        const std::optional<SheetFailure> failure = readSheet(folder + name, sheet);
        ASSERT_TRUE(failure) << name;
        EXPECT_TRUE(sheet.rows.empty());
        EXPECT_EQ(failure->text(), "没有读入文件“" + folder + name + "”。\n" + reason);
    }
}

// One character in five may be broken: its rest is no further fault.
TEST(SheetFiles, ABrokenCharacterWithARestIsOneFault) {
    const std::string path = freshFolder() + "/broken.csv";
    std::ofstream(path) << "a,\xE4\xB8\xAD\xE4\xB9x\n";
    Sheet sheet;
    const auto failure = readSheet(path, sheet);
    EXPECT_TRUE(failure) << "was read as another encoding";
}

TEST(SheetFiles, FileTooLongToBeReadIsRefused) {
    const std::string path = freshFolder() + "/long.csv";
    std::ofstream(path) << "a";
    files::resize_file(path, (64U << 20U) + 1);
    Sheet sheet;
    const std::optional<SheetFailure> failure = readSheet(path, sheet);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, "文件超过 64 MB,太大了。请拆分后重试。");
}

/// What is left of a file and its folder after writing on a disk with too little room.
void expectOldFileKept(WriteSheet write, rlim_t room) {
    const std::string folder = freshFolder();
    std::ofstream(folder + "/a") << "old";
    Sheet sheet;
    for (int row = 0; row < 5000; ++row)
        sheet.rows.push_back({Cell::of("科目 " + std::to_string(row)), Cell::of(row * 0.5)});
    std::optional<SheetFailure> failure;
    {
        const SmallDisk disk(room);
        failure = write(sheet, folder + "/a", Overwrite::replace);
    }
    ASSERT_TRUE(failure) << room;
    EXPECT_NE(failure->text().find(folder + "/a”,原有的文件保持不变。"), std::string::npos);
    EXPECT_NE(failure->text().find("磁盘"), std::string::npos) << failure->text();
    std::string content;
    std::ifstream(folder + "/a") >> content;
    EXPECT_EQ(content, "old");
    EXPECT_EQ(std::distance(files::directory_iterator(folder), {}), 1);
}

TEST(SheetFiles, FullDiskLeavesTheOldFileAndIsTold) {
    for (const rlim_t room : {0U, 10U, 1000U, 20'000U}) {
        expectOldFileKept(&writeCsv, room);
        expectOldFileKept(&writeXlsx, room);
    }
}

TEST(SheetFiles, RoomForTheFileButNotForMakingItIsToldToo) {
    // The cells take 700 KB before they are packed into 60 KB.
    for (const rlim_t room : {100'000U, 200'000U, 400'000U}) expectOldFileKept(&writeXlsx, room);
}

TEST(SheetFiles, NumbersAreWrittenTheSameInEveryLocale) {
    Sheet sheet;
    sheet.columns = {{.width = 10.5, .decimals = 2}};
    sheet.rows = {{Cell::of(1234.5), Cell::of(0.25)}};
    const CommaLocale comma;
    EXPECT_EQ(written(&writeXlsx, sheet).rows, sheet.rows);
    EXPECT_EQ(written(&writeCsv, sheet).rows,
              (std::vector<SheetRow>{{Cell::of("1234.50"), Cell::of("0.25")}}));
    EXPECT_STREQ(std::localeconv()->decimal_point, ",") << "the locale was not put back";
}

}  // namespace
}  // namespace chengheng
