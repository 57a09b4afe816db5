#include "host/services/host_messages.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "tests/support/recording_messages.h"

using namespace chengheng;

TEST(HostMessages, GoToThoseInstalled) {
    RecordingMessages messages;
    const HostMessages installed(messages);
    hostMessages().tell({.text = "余额不足"});
    EXPECT_EQ(messages.texts(), std::vector<std::string>{"余额不足"});
}

TEST(HostMessages, GoBackToThoseInstalledBefore) {
    RecordingMessages outer;
    RecordingMessages inner;
    const HostMessages installed(outer);
    {
        const HostMessages nested(inner);
        hostMessages().tell({.text = "里"});
    }
    hostMessages().tell({.text = "外"});
    EXPECT_EQ(inner.texts(), std::vector<std::string>{"里"});
    EXPECT_EQ(outer.texts(), std::vector<std::string>{"外"});
}

TEST(HostMessages, WithNoneInstalledWriteToTheErrorStreamAndAnswerCautiously) {
    testing::internal::CaptureStderr();
    hostMessages().tell({.text = "没有屏幕"});
    EXPECT_EQ(hostMessages().ask({.text = "继续吗?"}), Answer::no);
    EXPECT_EQ(hostMessages().ask({.text = "接受吗?", .buttons = AnswerButtons::okCancel}),
              Answer::cancel);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "没有屏幕\n继续吗?\n接受吗?\n");
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
