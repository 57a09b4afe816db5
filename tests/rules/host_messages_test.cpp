#include "session/host_messages.h"

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
