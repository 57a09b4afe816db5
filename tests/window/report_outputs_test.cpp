#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <sstream>

#include "base/values/numbers.h"
#include "screen/report/pdf_texts.h"
#include "screen/report/pdf_writing.h"
#include "screen/report/report_export.h"
#include "screen/report/report_printing.h"
#include "sheets/files/sheet_files.h"
#include "sheets/sheet_failure.h"
#include "tests/support/recording_messages.h"
#include "tests/support/run_program.h"
#include "tests/support/sample_report.h"
#include "tests/support/small_disk.h"
#include "tests/window/next_modal.h"

namespace {

using namespace chengheng;
using testing::Contains;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;

/// A list with what lists hold: codes with zeros in front, names with radicals among their
/// characters, marks, amounts.
Report richReport() {
    Report report = sampleReport({10, 30, 16, 20});
    report.columns[2].alignment = Alignment::center;
    report.columns[3].alignment = Alignment::right;
    report.addRow({"01", "现金(方式一)", {}, "1,234.50"});
    report.addRow({"02", "转帐支票", "√", "-0.05"});
    report.addRow({"0301", "长期门市见页", "√", {}});
    report.addRow({"99", "O'Brien & <Co>", {}, "98,765,432,109.00"});
    return report;
}

void withDocument(const Report& report, const std::function<void(ReportDocument&)>& work) {
    withReport(report, [&](CReport& engine) {
        ReportDocument document(engine);
        document.pages().layOut();
        work(document);
    });
}

std::string readPdf(const std::string& path) {
    return runProgram({"/usr/bin/env", "pdftotext", "-layout", "-enc", "UTF-8", path, "-"}).out;
}

/// The words of a text, whatever stands between them, up to the end of the first page.
std::vector<std::string> words(const std::string& text) {
    std::vector<std::string> found(1);
    for (const char letter : text) {
        const bool isBetween = letter == ' ' || letter == '\n' || letter == '\t' || letter == '\f';
        if (!isBetween)
            found.back() += letter;
        else if (!found.back().empty())
            found.emplace_back();
    }
    if (found.back().empty()) found.pop_back();
    return found;
}

/// Everything between the column headings and the footer, as words.
std::vector<std::string> cellWords(const std::string& text) {
    auto all = words(text);
    const auto first = std::ranges::find(all, "栏4");
    const auto last = std::ranges::find(all, "帐套:示例帐套");
    EXPECT_NE(first, all.end()) << text;
    EXPECT_NE(last, all.end()) << text;
    return {first + 1, last};
}

std::vector<std::string> cellWords(const Report& report) {
    std::string text;
    for (const ReportCell& cell : report.cells) text += cell.value_or("") + " ";
    return words(text);
}

bool everyPageGoesOn(std::size_t, std::size_t) { return true; }

/// Fills in the print dialog so that it prints into a file.
void chooseFile(QWidget& box, const std::string& path) {
    auto* dialog = qobject_cast<QPrintDialog*>(&box);
    ASSERT_TRUE(dialog);
    auto* file = dialog->findChild<QLineEdit*>("filename");
    ASSERT_TRUE(file);
    file->setText(QString::fromStdString(path));
    QMetaObject::invokeMethod(dialog, "accept");
}

/// Prints through the print dialog, into a file.
void printTo(const std::string& path, ReportDocument& document) {
    RecordingMessages messages;
    const NextModal choosing([&](QWidget& box) { chooseFile(box, path); });
    EXPECT_TRUE(printDocument(document, nullptr, messages));
    EXPECT_THAT(messages.texts(), ElementsAre());
}

/// The cells of a spreadsheet file as the report shows them, headings left aside.
std::vector<std::string> sheetWords(const std::string& path) {
    Sheet sheet;
    EXPECT_FALSE(readSheet(path, sheet)) << path;
    std::string text;
    for (std::size_t row = 1; row < sheet.rows.size(); ++row)
        for (std::size_t column = 0; column < sheet.columnCount(); ++column) {
            std::string cell = cellText(sheet.at(row, column));
            if (column == 3 && !cell.empty())
                cell = ftoaWithSap(QString::fromStdString(cell).toDouble(), 2);
            text += cell + " ";
        }
    return words(text);
}

TEST(ReportOutputs, AgreeOnTheCells) {
    const Report report = richReport();
    const auto wanted = cellWords(report);
    const std::string folder = freshFolder();
    withDocument(report, [&](ReportDocument& document) {
        EXPECT_EQ(cellWords(document.readText(0).toStdString()), wanted) << "preview";
        ASSERT_TRUE(writePdf(document, folder + "/a.pdf", Overwrite::replace, everyPageGoesOn));
        EXPECT_EQ(cellWords(readPdf(folder + "/a.pdf")), wanted) << "PDF";
        printTo(folder + "/printed.pdf", document);
        EXPECT_EQ(cellWords(readPdf(folder + "/printed.pdf")), wanted) << "print";
        for (const auto& [kind, name] :
             {std::pair{ExportKind::xlsx, "/a.xlsx"}, std::pair{ExportKind::csv, "/a.csv"}}) {
            ASSERT_EQ(exportDocument(document, kind, folder + name, nullptr).outcome,
                      Outcome::done);
            EXPECT_EQ(sheetWords(folder + name), wanted) << name;
        }
    });
}

TEST(ReportOutputs, KeepCodesAsTextsAndMakeAmountsNumbersInASpreadsheet) {
    const std::string path = freshFolder() + "/a.xlsx";
    withDocument(richReport(), [&](ReportDocument& document) {
        ASSERT_EQ(exportDocument(document, ExportKind::xlsx, path, nullptr).outcome, Outcome::done);
    });
    Sheet sheet;
    ASSERT_FALSE(readSheet(path, sheet));
    EXPECT_EQ(sheet.at(0, 0), Cell::of(std::string("栏1")));
    EXPECT_EQ(sheet.at(1, 0), Cell::of(std::string("01")));
    EXPECT_TRUE(sheet.at(1, 3).isNumber());
    EXPECT_DOUBLE_EQ(sheet.at(1, 3).number, 1234.5);
    EXPECT_TRUE(sheet.at(1, 2).isAbsent());
}

/// A text of characters as they stand beside one another in codes, names and amounts.
std::string mixedText(std::mt19937& random) {
    const std::vector<std::string> parts{
        "A",  "b",  "Z",  "USD", "ABC", "fi",   "ffl",  "Tel", "AV", "0",  "7",  "001", "123",
        "10", ".",  ",",  "-",   "(",   ")",    "/",    "#",   "&",  "%",  "'",  "\"",  ":",
        "_",  "<",  "+",  "现",  "金",  "公司", "银行", "方",  "见", "门", "一", "二",  "长",
        "。", "、", "，", "（",  "）",  "“",    "”",    "《",  "》", "·",  "—",  "…",   "Ａ",
        "１", "．", "￥", "％",  "①",   "ⅲ",    "㎡",   "℃",   "×",  "²",  "é",  "Ω",   "я"};
    std::string text;
    for (auto count = 1 + random() % 8; count > 0; --count) text += parts[random() % parts.size()];
    return text;
}

TEST(PdfFile, GivesTheTextOfEveryCellBackWhateverStandsBesideOneAnother) {
    Report report = sampleReport({60, 60});
    std::mt19937 random(20'261'122);
    std::vector<std::string> wanted;
    for (const char* text : {"A001", "USD100", "ABC123公司", "1月A", "第3号B2", "ＡＢ１２A1"})
        wanted.emplace_back(text);
    while (wanted.size() < 1000) wanted.push_back(mixedText(random));
    for (std::size_t at = 0; at < wanted.size(); at += 2)
        report.addRow({wanted[at], wanted[at + 1]});
    report.columns[1].alignment = Alignment::right;
    const std::string path = freshFolder() + "/a.pdf";
    withDocument(report, [&](ReportDocument& document) {
        ASSERT_TRUE(writePdf(document, path, Overwrite::replace, everyPageGoesOn));
    });
    const std::string text =
        runProgram({"/usr/bin/env", "pdftotext", "-layout", "-enc", "UTF-8", path, "-"}).out;
    const auto found = words(text);
    std::string all;
    for (const std::string& word : found) all += word;
    std::size_t from = 0;
    for (std::size_t at = 0; at < wanted.size(); ++at) {
        const std::size_t place = all.find(wanted[at], from);
        ASSERT_NE(place, std::string::npos) << wanted[at] << " in " << all.substr(from, 200);
        from = place + wanted[at].size();
    }
}

TEST(PdfFile, EmbedsTheFontsItUses) {
    const std::string path = freshFolder() + "/a.pdf";
    withDocument(richReport(), [&](ReportDocument& document) {
        ASSERT_TRUE(writePdf(document, path, Overwrite::replace, everyPageGoesOn));
    });
    std::istringstream fonts(runProgram({"/usr/bin/env", "pdffonts", path}).out);
    int count = 0;
    for (std::string line; std::getline(fonts, line);) {
        if (line.starts_with("name") || line.starts_with("---")) continue;
        ++count;
        const auto columns = words(line);
        ASSERT_GE(columns.size(), 5U);
        EXPECT_EQ(columns[columns.size() - 5], "yes") << line;  // embedded
        EXPECT_EQ(columns[columns.size() - 3], "yes") << line;  // with a text map
    }
    EXPECT_GE(count, 2);
}

TEST(PdfFile, HoldsThePagesAndTheirPaper) {
    Report report = sampleReport({10});
    addNumberedRows(report, 100);
    report.page = {.paper = 11, .isPortrait = false};
    const std::string path = freshFolder() + "/a.pdf";
    withDocument(report, [&](ReportDocument& document) {
        ASSERT_TRUE(writePdf(document, path, Overwrite::replace, everyPageGoesOn));
        const std::string facts = runProgram({"/usr/bin/env", "pdfinfo", path}).out;
        EXPECT_THAT(facts,
                    ContainsRegex("Pages: +" + std::to_string(document.pages().pageCount())));
        EXPECT_THAT(facts, ContainsRegex("Page size: +59[0-9.]+ x 4[12][0-9.]+ pts"));
        EXPECT_THAT(facts, HasSubstr("结算方式一览表"));
    });
}

TEST(PdfFile, ThatIsGivenUpLeavesTheOldOneAsItWas) {
    Report report = sampleReport({10});
    addNumberedRows(report, 200);
    const std::string folder = freshFolder();
    const std::string path = folder + "/a.pdf";
    std::ofstream(path) << "old";
    withDocument(report, [&](ReportDocument& document) {
        const auto afterTwo = [](std::size_t done, std::size_t) { return done < 2; };
        EXPECT_EQ(writePdf(document, path, Overwrite::replace, afterTwo).failure,
                  Failure::cancelled);
    });
    std::ifstream file(path);
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(file), {}}), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST(PdfFile, WhoseFolderIsMissingSaysSo) {
    withDocument(sampleReport({10}), [&](ReportDocument& document) {
        const std::string path = freshFolder() + "/none/a.pdf";
        const Status status = writePdf(document, path, Overwrite::replace, everyPageGoesOn);
        EXPECT_THAT(whileWriting(status, path).text(), HasSubstr("所在的文件夹不存在"));
    });
}

TEST(PdfFile, ThatHasNoRoomOnTheDiskSaysSoAndLeavesTheOldOne) {
    Report report = sampleReport({10, 10});
    addNumberedRows(report, 300);
    const std::string folder = freshFolder();
    const std::string path = folder + "/a.pdf";
    std::ofstream(path) << "old";
    withDocument(report, [&](ReportDocument& document) {
        for (const rlim_t room : {0U, 10U, 1000U, 5000U, 20'000U}) {
            Status status;
            {
                const SmallDisk disk(room);
                status = writePdf(document, path, Overwrite::replace, everyPageGoesOn);
            }
            ASSERT_FALSE(status);
            const std::string words = whileWriting(status, path).text();
            EXPECT_THAT(words, HasSubstr("磁盘")) << room;
            EXPECT_THAT(words, HasSubstr(path + "”,原有的文件保持不变。")) << room;
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
        }
        EXPECT_TRUE(writePdf(document, path, Overwrite::replace, everyPageGoesOn));
        EXPECT_GT(std::filesystem::file_size(path), 20'000U);
    });
}

TEST(PdfTexts, BecomeReadableInBothFormsOfARange) {
    const ReadableCodes codes{{0x2F45, 0x65B9}, {0x9, 0x20}};
    EXPECT_EQ(withReadableCodes("<2F45> x\n2 beginbfrange\n<0000> <0000> <2F45>\n"
                                "<0001> <0003> [<7ED3> <2F45> <0009> ]\nendbfrange\n<2F45>\n",
                                codes),
              "<2F45> x\n2 beginbfrange\n<0000> <0000> [<65B9> ]\n"
              "<0001> <0003> [<7ED3> <65B9> <0020> ]\nendbfrange\n<2F45>\n");
    EXPECT_EQ(withReadableCodes("1 beginbfrange\n<0001> <0003> <2F44>\n", codes),
              "1 beginbfrange\n<0001> <0003> [<2F44> <65B9> <2F46> ]\n");
}

TEST(PdfTexts, LeaveALineAloneThatIsNoRange) {
    for (const char* line : {"<0001>", "<0001> <0002> [<7ED3> ]", "<01> <02> <03>",
                             "<0002> <0001> <7ED3>", "<000G> <0001> <7ED3>", "<0001", ""}) {
        const std::string map = std::string("1 beginbfrange\n") + line + "\n";
        EXPECT_EQ(withReadableCodes(map, {}), map);
    }
}

TEST(PdfTexts, SayWhatIsNoPdfFile) {
    for (std::string bytes : {"no file of that kind", ""})
        EXPECT_EQ(makeTextsReadable(bytes, {}).failure, Failure::damaged);
}

TEST(PrintedPages, ThatAreCancelledOnTheWaySaySoAndLeaveNoFile) {
    Report report = sampleReport({10, 30});
    addNumberedRows(report, 20'000);
    const std::string folder = freshFolder();
    withDocument(report, [&](ReportDocument& document) {
        RecordingMessages messages;
        std::optional<NextModal> progress;
        const NextModal choosing([&](QWidget& box) {
            chooseFile(box, folder + "/printed.pdf");
            progress.emplace([](QWidget& shown) {
                EXPECT_TRUE(qobject_cast<QProgressDialog*>(&shown));
                QTest::mouseClick(shown.findChild<QPushButton*>(), Qt::LeftButton);
            });
        });
        EXPECT_FALSE(printDocument(document, nullptr, messages));
        EXPECT_TRUE(progress && progress->hasCome());
        EXPECT_EQ(messages.onlyNotice().text, "打印已取消。已经送出的页面可能仍会打印。");
    });
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

std::string pageSizes(const std::string& path) {
    return runProgram({"/usr/bin/env", "pdfinfo", "-f", "1", "-l", "99", path}).out;
}

TEST(PrintedPages, TakePaperDirectionAndMarginsOfThePrintersProperties) {
    Report report = sampleReport({10, 30});
    addNumberedRows(report, 60);
    const std::string path = freshFolder() + "/printed.pdf";
    withDocument(report, [&](ReportDocument& document) {
        const auto pagesBefore = document.pages().pageCount();
        RecordingMessages messages;
        const NextModal choosing([&](QWidget& box) {
            auto* dialog = qobject_cast<QPrintDialog*>(&box);
            ASSERT_TRUE(dialog);
            // It opens with what the layout file says.
            const QPageLayout opened = dialog->printer()->pageLayout();
            EXPECT_EQ(opened.pageSize().id(), QPageSize::A4);
            EXPECT_NEAR(opened.margins(QPageLayout::Millimeter).left(),
                        document.report().layout().marginLeft, 0.5);
            QPageLayout chosen(QPageSize(QPageSize::A5), QPageLayout::Landscape,
                               QMarginsF(31, 22, 33, 24), QPageLayout::Millimeter);
            chosen.setMode(QPageLayout::FullPageMode);
            dialog->printer()->setPageLayout(chosen);
            chooseFile(box, path);
        });
        EXPECT_TRUE(printDocument(document, nullptr, messages));
        EXPECT_THAT(messages.texts(), ElementsAre());
        EXPECT_GT(document.pages().pageCount(), pagesBefore);
        const ReportLayout& layout = document.report().layout();
        EXPECT_FALSE(layout.isPortrait);
        EXPECT_NEAR(layout.marginLeft, 31, 0.5);
        EXPECT_NEAR(layout.marginTop, 22, 0.5);
        EXPECT_NEAR(layout.marginRight, 33, 0.5);
        EXPECT_NEAR(layout.marginBottom, 24, 0.5);
        for (const DrawnRule& rule : document.pages().draw(0).rules) EXPECT_GE(rule.fromX, 30.5);
        EXPECT_THAT(pageSizes(path), HasSubstr("595 x 420 pts"));
        EXPECT_THAT(pageSizes(path),
                    ContainsRegex("Pages: +" + std::to_string(document.pages().pageCount())));
    });
    const auto found = words(readPdf(path));
    for (const std::string& word : cellWords(report)) EXPECT_THAT(found, Contains(word));
}

TEST(PrintedPages, StayAsTheLayoutSaysWhenThePropertiesAreLeft) {
    Report report = sampleReport({10, 30});
    addNumberedRows(report, 60);
    withDocument(report, [&](ReportDocument& document) {
        const ReportLayout before = document.report().layout();
        printTo(freshFolder() + "/printed.pdf", document);
        EXPECT_EQ(document.report().layout(), before);
    });
}

TEST(PrintedPages, OnPaperWithoutRoomForTheTableSaySoAndPrintNothing) {
    const std::string folder = freshFolder();
    withDocument(richReport(), [&](ReportDocument& document) {
        const ReportLayout before = document.report().layout();
        RecordingMessages messages;
        const NextModal choosing([&](QWidget& box) {
            auto* dialog = qobject_cast<QPrintDialog*>(&box);
            ASSERT_TRUE(dialog);
            QPageLayout chosen(QPageSize(QPageSize::A7), QPageLayout::Portrait,
                               QMarginsF(30, 30, 30, 30), QPageLayout::Millimeter);
            chosen.setMode(QPageLayout::FullPageMode);
            dialog->printer()->setPageLayout(chosen);
            chooseFile(box, folder + "/printed.pdf");
        });
        EXPECT_FALSE(printDocument(document, nullptr, messages));
        EXPECT_EQ(messages.onlyNotice().text,
                  "所选的纸张除去页边距、页眉、标题和页脚后,没有地方放表格。\n没有打印。");
        EXPECT_TRUE(messages.onlyNotice().beep);
        EXPECT_EQ(document.report().layout(), before);
    });
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST(PrintedPages, ThatCannotBeWrittenSayWhyWithABeep) {
    const std::string folder = freshFolder();
    withDocument(richReport(), [&](ReportDocument& document) {
        RecordingMessages messages;
        const NextModal choosing([&](QWidget& box) {
            chooseFile(box, folder + "/printed.pdf");
            std::filesystem::remove_all(folder);
        });
        EXPECT_FALSE(printDocument(document, nullptr, messages));
        EXPECT_THAT(messages.onlyNotice().text, HasSubstr("所在的文件夹不存在"));
        EXPECT_EQ(messages.onlyNotice().icon, MessageIcon::warning);
        EXPECT_TRUE(messages.onlyNotice().beep);
    });
}

TEST(ReadPages, KeepARowOnALineWhateverItsTextsHold) {
    Report report = sampleReport({10, 30});
    report.columns[0].heading = "方\n向";
    report.addRow({"第一行\n第二行", "甲\t乙 100% \"丙\""});
    withDocument(report, [](ReportDocument& document) {
        EXPECT_THAT(document.readText(0).toStdString(),
                    HasSubstr("\n方 向\t栏2\n第一行 第二行\t甲 乙 100% \"丙\"\n"));
    });
}

TEST(PrintedPages, FollowRangeOrderAndCopiesOfThePrinter) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    EXPECT_THAT(wantedPages(printer, 3), ElementsAre(0, 1, 2));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 9);
    EXPECT_THAT(wantedPages(printer, 3), ElementsAre(1, 2));
    printer.setFromTo(5, 9);
    EXPECT_THAT(wantedPages(printer, 3), ElementsAre());
    printer.setPrintRange(QPrinter::CurrentPage);
    EXPECT_THAT(wantedPages(printer, 3, 1), ElementsAre(1));
    printer.setPrintRange(QPrinter::AllPages);
    printer.setCopyCount(2);
    ASSERT_FALSE(printer.supportsMultipleCopies());
    printer.setCollateCopies(true);
    EXPECT_THAT(wantedPages(printer, 2), ElementsAre(0, 1, 0, 1));
    printer.setCollateCopies(false);
    EXPECT_THAT(wantedPages(printer, 2), ElementsAre(0, 0, 1, 1));
    printer.setPageOrder(QPrinter::LastPageFirst);
    EXPECT_THAT(wantedPages(printer, 2), ElementsAre(1, 1, 0, 0));
}

}  // namespace
