#include "tests/support/recording_messages.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace chengheng;

TEST(RecordingMessages, KeepNoticesAndQuestionsInOrder) {
    RecordingMessages messages;
    messages.willAnswer("删除吗?", Answer::yes);
    messages.tell({.text = "请输入编码!", .beep = true, .focusField = "sCode"});
    EXPECT_EQ(messages.ask({.text = "删除吗?"}), Answer::yes);
    EXPECT_EQ(messages.texts(), (std::vector<std::string>{"请输入编码!", "删除吗?"}));
    EXPECT_EQ(messages.notices()[0].focusField, "sCode");
    EXPECT_EQ(messages.notices()[0].caption, "澄恒财务软件");
    messages.forget();
    EXPECT_TRUE(messages.texts().empty());
}

TEST(RecordingMessages, GiveTheQueuedAnswersInOrder) {
    RecordingMessages messages;
    messages.willAnswer(Answer::yes);
    messages.willAnswer(Answer::cancel);
    EXPECT_EQ(messages.ask({.text = "一"}), Answer::yes);
    EXPECT_EQ(messages.ask({.text = "二", .buttons = AnswerButtons::okCancel}), Answer::cancel);
    EXPECT_EQ(messages.questions().size(), 2u);
}

TEST(RecordingMessages, FailTheTestOnAnUnexpectedQuestion) {
    RecordingMessages messages;
    EXPECT_NONFATAL_FAILURE(messages.ask({.text = "意外"}), "an unexpected question: 意外");
}

TEST(RecordingMessages, FailTheTestOnAnAnswerNoButtonGives) {
    RecordingMessages messages;
    messages.willAnswer(Answer::ok);
    EXPECT_NONFATAL_FAILURE(messages.ask({.text = "是否"}), "no button gives the answer");
}

TEST(RecordingMessages, FailTheTestOnAnswersLeftOver) {
    EXPECT_NONFATAL_FAILURE(
        {
            RecordingMessages messages;
            messages.willAnswer(Answer::yes);
        },
        "1 answers were never asked for");
}

TEST(RecordingMessages, FailTheTestWhenAnotherQuestionComesThanTheExpectedOne) {
    EXPECT_NONFATAL_FAILURE(
        {
            RecordingMessages messages;
            messages.willAnswer("保存吗?", Answer::yes);
            messages.ask({.text = "删除吗?"});
        },
        "保存吗?");
}

TEST(RecordingMessages, LetATestLookAtThingsWhileABoxIsUp) {
    RecordingMessages messages;
    std::string seen;
    messages.whileShown([&](const std::string& text) { seen = text; });
    messages.tell({.text = "完成"});
    EXPECT_EQ(seen, "完成");
    EXPECT_EQ(messages.onlyNotice().text, "完成");
}
