#include "report/layout/layout_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "report/layout/page_facts.h"
#include "session/GetPrintFile.h"
#include "tests/support/engine_cases.h"
#include "tests/support/environment.h"

namespace chengheng {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

ReportLayout readGood(const std::string& text) {
    ReportLayout layout;
    const auto fault = parseLayout(text, layout);
    if (fault) ADD_FAILURE() << fault->line << ": " << fault->reason;
    return layout;
}

/// "line: reason" of a faulty text, which must leave the layout alone.
std::string faultOf(const std::string& text) {
    ReportLayout layout;
    layout.rowHeight = 42;
    const ReportLayout before = layout;
    const auto fault = parseLayout(text, layout);
    EXPECT_EQ(layout, before);
    return fault ? std::to_string(fault->line) + ": " + fault->reason : "none";
}

std::string fileWith(const std::string& text) {
    std::string path = freshFolder() + "/Own.rpn";
    std::ofstream(path) << text;
    return path;
}

TEST(LayoutFile, KeepsEveryDefaultThatItDoesNotSet) {
    const ReportLayout layout = readGood("rpn 1\n");
    const LayoutLine empty{.left = "", .middle = "", .right = "", .height = 6, .rule = 0};
    LayoutLine heading = empty;
    heading.height = 5.5;
    EXPECT_EQ(layout.paperWidth, 210);
    EXPECT_EQ(layout.paperHeight, 297);
    EXPECT_TRUE(layout.isPortrait);
    EXPECT_EQ(layout.marginTop, 15);
    EXPECT_EQ(layout.marginRight, 15);
    EXPECT_EQ(layout.marginBottom, 15);
    EXPECT_EQ(layout.marginLeft, 15);
    EXPECT_EQ(layout.leastScale, 0.7);
    EXPECT_EQ(layout.mostStretch, 2);
    EXPECT_EQ(layout.repeatedColumns, 1);
    EXPECT_EQ(layout.font(FontRole::title), (LayoutFont{FontFamily::hei, 16, true}));
    EXPECT_EQ(layout.font(FontRole::heading), (LayoutFont{FontFamily::song, 9, false}));
    EXPECT_EQ(layout.font(FontRole::column), (LayoutFont{FontFamily::hei, 9, false}));
    EXPECT_EQ(layout.font(FontRole::cell), (LayoutFont{FontFamily::song, 9, false}));
    EXPECT_EQ(layout.font(FontRole::figure), (LayoutFont{FontFamily::hei, 9, false}));
    EXPECT_EQ(layout.font(FontRole::edge), (LayoutFont{FontFamily::song, 8, false}));
    EXPECT_EQ(layout.header, empty);
    EXPECT_EQ(layout.titleText, "{title}");
    EXPECT_EQ(layout.titleHeight, 12);
    EXPECT_EQ(layout.heading, heading);
    EXPECT_EQ(layout.columnHeight, 8);
    EXPECT_EQ(layout.rowHeight, 6.5);
    EXPECT_EQ(layout.padding, 1.2);
    EXPECT_EQ(layout.frameRule, 0.35);
    EXPECT_EQ(layout.columnRule, 0.12);
    EXPECT_EQ(layout.rowRule, 0.12);
    EXPECT_EQ(layout.overflow, Overflow::ellipsis);
    EXPECT_EQ(layout.mostLines, 3);
    EXPECT_EQ(layout.footer, empty);
}

struct OneSetting {
    const char* section;
    const char* line;
    void (*change)(ReportLayout& layout);
};

/// The settings that SetsEachPartOfThePage leaves out: fonts, and parts of the lines.
constexpr OneSetting furtherSettings[] = {
    {"fonts", "heading = hei 7",
     [](auto& it) {
         it.fonts[1] = {FontFamily::hei, 7, false};
     }},
    {"fonts", "column = song 7",
     [](auto& it) {
         it.fonts[2] = {FontFamily::song, 7, false};
     }},
    {"fonts", "figure = song 7",
     [](auto& it) {
         it.fonts[4] = {FontFamily::song, 7, false};
     }},
    {"fonts", "edge = hei 7",
     [](auto& it) {
         it.fonts[5] = {FontFamily::hei, 7, false};
     }},
    {"header", "middle = 甲", [](auto& it) { it.header.middle = "甲"; }},
    {"header", "right = 甲", [](auto& it) { it.header.right = "甲"; }},
    {"heading", "left = 甲", [](auto& it) { it.heading.left = "甲"; }},
    {"heading", "right = 甲", [](auto& it) { it.heading.right = "甲"; }},
    {"heading", "height = 7", [](auto& it) { it.heading.height = 7; }},
    {"heading", "rule = 0.5", [](auto& it) { it.heading.rule = 0.5; }},
    {"footer", "left = 甲", [](auto& it) { it.footer.left = "甲"; }},
    {"footer", "middle = 甲", [](auto& it) { it.footer.middle = "甲"; }},
    {"footer", "height = 7", [](auto& it) { it.footer.height = 7; }},
    {"footer", "rule = 0.5", [](auto& it) { it.footer.rule = 0.5; }},
};

TEST(LayoutFile, SetsOneOfManyLikePartsAndNoOther) {
    for (const OneSetting& setting : furtherSettings) {
        ReportLayout expected;
        setting.change(expected);
        const auto text = std::string("rpn 1\n[") + setting.section + "]\n" + setting.line;
        EXPECT_EQ(readGood(text), expected) << text;
    }
}

TEST(LayoutFile, SetsEachPartOfThePage) {
    const ReportLayout layout = readGood(
        "# page\r\nrpn 1\r\n[page]\npaper = A5\nupright=no\nmargins = 1 2.5  3 4\nshrink = 50\n"
        "stretch=100\nrepeat = 2\n[fonts]\ntitle = song 20\ncell = hei 8.5 bold\n"
        "[header]\nleft = 甲 = 乙 # 丙\nheight=5\nrule = 0.3\n[title]\ntext = {company}{title}\n"
        "height=9\n[heading]\nmiddle = {date}\n[table]\ncolumn-height=10\nrow-height = 7.5\n"
        "padding = 2\nframe=1\ncolumn-rule=0\nrow-rule=0.2\noverflow=wrap\nmost-lines=9\n"
        "[footer]\nright = {page}/{pages}");
    EXPECT_EQ(layout.paperWidth, 148);
    EXPECT_EQ(layout.paperHeight, 210);
    EXPECT_FALSE(layout.isPortrait);
    EXPECT_EQ(layout.marginTop, 1);
    EXPECT_EQ(layout.marginRight, 2.5);
    EXPECT_EQ(layout.marginBottom, 3);
    EXPECT_EQ(layout.marginLeft, 4);
    EXPECT_EQ(layout.leastScale, 0.5);
    EXPECT_EQ(layout.mostStretch, 1);
    EXPECT_EQ(layout.repeatedColumns, 2);
    EXPECT_EQ(layout.font(FontRole::title), (LayoutFont{FontFamily::song, 20, false}));
    EXPECT_EQ(layout.font(FontRole::cell), (LayoutFont{FontFamily::hei, 8.5, true}));
    EXPECT_EQ(layout.header.left, "甲 = 乙 # 丙");
    EXPECT_EQ(layout.header.rule, 0.3);
    EXPECT_EQ(layout.titleText, "{company}{title}");
    EXPECT_EQ(layout.titleHeight, 9);
    EXPECT_EQ(layout.heading.middle, "{date}");
    EXPECT_EQ(layout.columnHeight, 10);
    EXPECT_EQ(layout.rowHeight, 7.5);
    EXPECT_EQ(layout.padding, 2);
    EXPECT_EQ(layout.frameRule, 1);
    EXPECT_EQ(layout.columnRule, 0);
    EXPECT_EQ(layout.rowRule, 0.2);
    EXPECT_EQ(layout.overflow, Overflow::wrap);
    EXPECT_EQ(layout.mostLines, 9);
    EXPECT_EQ(layout.footer.right, "{page}/{pages}");
}

TEST(LayoutFile, TakesAnyPaperByItsMillimetres) {
    const ReportLayout layout = readGood("rpn 1\n[page]\npaper = 241 x 140");
    EXPECT_EQ(layout.paperWidth, 241);
    EXPECT_EQ(layout.paperHeight, 140);
}

TEST(LayoutFile, MayBeginWithAByteOrderMark) {
    EXPECT_EQ(readGood("\xEF\xBB\xBFrpn 1\n[page]\npaper = A5\n").paperWidth, 148);
}

struct FaultyText {
    const char* text;
    const char* fault;
};

TEST(LayoutFile, NamesLineAndReasonOfEachFault) {
    const FaultyText faulty[] = {
        {"", "1: 第一个内容应该是“rpn 1”"},
        {"# 只有说明\n\n", "2: 第一个内容应该是“rpn 1”"},
        {"[page]\n", "1: 第一个内容应该是“rpn 1”"},
        {"\n\nrpn 2\n", "3: 版本“rpn 2”太新,本程序只认识“rpn 1”"},
        {"rpn 1\n\xff\n", "2: 不是UTF-8文字"},
        {"rpn 1\n[page\n", "2: “[page”缺少右方括号"},
        {"rpn 1\n[pages]\n", "2: 不认识段“[pages]”"},
        {"rpn 1\n[page]\n[title]\n[page]\n", "4: 段“[page]”出现了两次"},
        {"rpn 1\npaper = A4\n", "2: “paper”不在任何段中"},
        {"rpn 1\n[page]\npaper A4\n", "3: “paper A4”没有等号"},
        {"rpn 1\n[page]\nframe = 1\n", "3: 段“[page]”中没有“frame”这一项"},
        {"rpn 1\n[page]\nshrink=50\nshrink=60\n", "4: “shrink”在本段中出现了两次"},
        {"rpn 1\n[page]\npaper = A9\n", "3: “A9”应该是A3、A4、A5、B5之一,或“宽 x 高”(毫米)"},
        {"rpn 1\n[page]\npaper = 100 x 9\n", "3: “9”应该是50到2000之间的数"},
        {"rpn 1\n[page]\nupright = 1\n", "3: “1”应该是yes或no"},
        {"rpn 1\n[page]\nmargins = 1 2 3\n", "3: “1 2 3”应该是上、右、下、左四个数,以空格分开"},
        {"rpn 1\n[page]\nmargins = 1 2 3 x\n", "3: “x”应该是0到200之间的数"},
        {"rpn 1\n[page]\nshrink = 20\n", "3: “20”应该是30到100之间的数"},
        {"rpn 1\n[page]\nrepeat = 1.5\n", "3: “1.5”应该是0到5之间的整数"},
        {"rpn 1\n[table]\nrow-height = nan\n", "3: “nan”应该是3到100之间的数"},
        {"rpn 1\n[table]\nrow-height = 7mm\n", "3: “7mm”应该是3到100之间的数"},
        {"rpn 1\n[table]\nrow-height =\n", "3: “”应该是3到100之间的数"},
        {"rpn 1\n[table]\noverflow = cut\n", "3: “cut”应该是ellipsis或wrap"},
        {"rpn 1\n[fonts]\ncell = kai 9\n",
         "3: “kai 9”应该是字体(song或hei)、字号(5到72)、可加bold"},
        {"rpn 1\n[fonts]\ncell = hei 9 italic\n",
         "3: “hei 9 italic”应该是字体(song或hei)、字号(5到72)、可加bold"},
        {"rpn 1\n[fonts]\ncell = hei 4\n",
         "3: “hei 4”应该是字体(song或hei)、字号(5到72)、可加bold"},
        {"rpn 1\n[footer]\nleft = {who}\n",
         "3: “{who}”不认识,可以用title、company、books、operator、date、page、pages"},
        {"rpn 1\n[footer]\nleft = 第{page\n", "3: “第{page”缺少右花括号"},
        {"rpn 1\n[page]\npaper = A5\nmargins = 60 60 60 60\n",
         "4: 除去页边、页眉、标题和页脚后,纸上没有地方放表格"},
    };
    for (const FaultyText& each : faulty) EXPECT_EQ(faultOf(each.text), each.fault) << each.text;
}

/// The words that refuse a file; empty when it was read.
std::string refusalOf(const std::string& path, ReportLayout& layout) {
    const auto refusal = readLayoutFile(path, layout);
    return refusal ? refusal->notice.text : "";
}

TEST(LayoutFile, IsNamedWithItsFaultyLineToTheOperator) {
    const std::string path = fileWith("rpn 1\n[page]\npaper = A9\n");
    ReportLayout layout;
    const std::string words = refusalOf(path, layout);
    EXPECT_THAT(words, HasSubstr("“" + path + "”第3行有误:“A9”应该是"));
    EXPECT_THAT(words, EndsWith("没有打印。"));
}

TEST(LayoutFile, IsNamedWhenItIsMissingOrNoFile) {
    ReportLayout layout;
    EXPECT_THAT(refusalOf("/nowhere/Normal.rpn", layout),
                HasSubstr("找不到版面文件“/nowhere/Normal.rpn”"));
    EXPECT_THAT(refusalOf(freshFolder(), layout), HasSubstr("版面文件"));
}

TEST(LayoutFile, IsNamedWhenItIsFarTooLongForOne) {
    const std::string path = fileWith("rpn 1\n#" + std::string(64 * 1024, 'x'));
    ReportLayout layout;
    EXPECT_THAT(refusalOf(path, layout), HasSubstr("无法读取版面文件“" + path + "”"));
}

TEST(LayoutFile, OfTheProgramIsFoundAndSound) {
    for (const char* name : {"Normal.rpn", "DivideW.rpn"}) {
        ReportLayout layout;
        EXPECT_EQ(refusalOf(GetPrintFile(name), layout), "") << name;
        EXPECT_THAT(layout.footer.middle, HasSubstr("{page}"));
        EXPECT_THAT(layout.footer.middle, HasSubstr("{pages}"));
    }
}

TEST(GetPrintFile, PrefersTheUsersOwnLayout) {
    const std::string home = freshFolder();
    std::filesystem::create_directory(home + "/print");
    std::ofstream(home + "/print/Normal.rpn") << "rpn 1\n";
    const EnvironmentSetting setting("CHENGHENG_HOME", home);
    EXPECT_EQ(GetPrintFile("Normal.rpn"), home + "/print/Normal.rpn");
    EXPECT_NE(GetPrintFile("DivideW.rpn"), home + "/print/DivideW.rpn");
}

TEST(GetPrintFile, NamesThePlaceBesideTheProgramForAFileThatIsNowhere) {
    EXPECT_THAT(GetPrintFile("None.rpn"), EndsWith("/print/None.rpn"));
}

TEST(GetPrintFile, LooksForNamesOnlyNotForPaths) {
    EXPECT_THAT(GetPrintFile("../../etc/Normal.rpn"), EndsWith("/print/Normal.rpn"));
}

TEST(PageFacts, TakeTheirPlaceInATextOnEachPage) {
    const ReportFacts session{"恒源公司", "示例帐套", "王芳", {2026, 5, 31}};
    const PageFacts facts{"会计科目", session, 2, 7};
    EXPECT_EQ(withFacts("{title}|{company}|{books}|{operator}|{date}|{page}/{pages}|", facts),
              "会计科目|恒源公司|示例帐套|王芳|2026.05.31|2/7|");
    EXPECT_EQ(withFacts("没有", facts), "没有");
}

TEST(PageFacts, AreNotLookedForInWhatTheyStandFor) {
    EXPECT_EQ(withFacts("{title}", {"{page}{", {}, 1, 1}), "{page}{");
}

TEST(PageFacts, LeaveOutATextThatNamesWhatTheReportDoesNotHave) {
    const PageFacts facts{"会计科目", {}, 1, 1};
    EXPECT_EQ(withFacts("编制单位:{company}", facts), "");
    EXPECT_EQ(withFacts("打印日期:{date}", facts), "");
    EXPECT_EQ(withFacts("{title} {page}", facts), "会计科目 1");
}

TEST(PageFacts, ShowDotsForACountOfPagesThatIsNotKnownYet) {
    EXPECT_EQ(withFacts("第{page}页 共{pages}页", {"", {}, 3, 0}), "第3页 共…页");
}

}  // namespace
}  // namespace chengheng
