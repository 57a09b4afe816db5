#include "screen/help/help_window.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>

#include "screen/help/help_pages.h"

using namespace chengheng;

namespace {

QStringList contents(const HelpWindow& help) {
    const auto* list = help.findChild<QListView*>();
    QStringList titles;
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        titles << list->model()->index(row, 0).data().toString();
    }
    return titles;
}

}  // namespace

TEST(HelpPages, AllHaveTextAndATitle) {
    for (const HelpPage& page : helpPages()) {
        const QString source = helpPageSource(page);
        EXPECT_TRUE(source.contains("<h2>" + QString::fromUtf8(page.title) + "</h2>")) << page.file;
    }
}

TEST(HelpPages, LinkOnlyToPagesThatExist) {
    const QRegularExpression link("href=\"([^\"]*)\"");
    for (const HelpPage& page : helpPages()) {
        auto matches = link.globalMatch(helpPageSource(page));
        while (matches.hasNext()) {
            const int context = matches.next().captured(1).toInt();
            EXPECT_EQ(helpPages()[static_cast<std::size_t>(helpPageIndex(context))].context,
                      context)
                << page.file;
        }
    }
}

TEST(HelpPages, AnswerAnUnknownContextWithTheFirstPage) { EXPECT_EQ(helpPageIndex(1), 0); }

TEST(HelpWindow, ShowsThePageOfAContextAndTheContents) {
    QWidget owner;
    HelpWindow help(&owner);
    help.showContext(197780);
    EXPECT_EQ(help.windowTitle(), "帮助 - 澄恒财务软件");
    EXPECT_EQ(contents(help).size(), static_cast<int>(helpPages().size()));
    EXPECT_EQ(help.shownTitle(), "键盘操作");
    EXPECT_TRUE(help.findChild<QTextBrowser*>()->toPlainText().contains("Alt+F4"));
}

TEST(HelpWindow, LeavesOnlyPagesThatHoldTheWordsSearchedFor) {
    QWidget owner;
    HelpWindow help(&owner);
    help.show();
    QTest::keyClicks(help.findChild<QLineEdit*>(), "alt+f4");
    EXPECT_EQ(contents(help), QStringList{"键盘操作"});
    EXPECT_EQ(help.shownTitle(), "键盘操作");
    EXPECT_EQ(help.findChild<QTextBrowser*>()->extraSelections().size(), 1);
    help.findChild<QLineEdit*>()->clear();
    EXPECT_EQ(contents(help).size(), static_cast<int>(helpPages().size()));
    EXPECT_TRUE(help.findChild<QTextBrowser*>()->extraSelections().isEmpty());
}

TEST(HelpWindow, SaysWhenNothingWasFound) {
    QWidget owner;
    HelpWindow help(&owner);
    help.findChild<QLineEdit*>()->setText("zzz");
    EXPECT_TRUE(contents(help).isEmpty());
    EXPECT_EQ(help.findChild<QTextBrowser*>()->toPlainText(), "没有找到相关内容");
}

TEST(HelpWindow, FollowsLinksBetweenPages) {
    QWidget owner;
    HelpWindow help(&owner);
    help.showContext(hubHelpContext);
    emit help.findChild<QTextBrowser*>()->anchorClicked(QUrl("197781"));
    EXPECT_EQ(help.shownTitle(), "操作员与权限");
}

TEST(HelpWindow, TurnsPagesWithTheArrowKeys) {
    QWidget owner;
    HelpWindow help(&owner);
    help.showContext(hubHelpContext);
    help.show();
    QTest::keyClick(help.findChild<QListView*>(), Qt::Key_Down);
    EXPECT_EQ(help.shownTitle(), "第一次建帐的步骤");
}
