#include "base/messages/held_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/recording_messages.h"

namespace chengheng {
namespace {

using testing::ElementsAre;

struct HeldMessagesTest : testing::Test {
    RecordingMessages shown;
    HeldMessages messages{shown};
};

TEST_F(HeldMessagesTest, PassOnWhatIsSaidWhileNothingHoldsThem) {
    shown.willAnswer(Answer::yes);
    messages.tell({.text = "一"});
    EXPECT_EQ(messages.ask({.text = "二"}), Answer::yes);
    messages.tell({.text = "一"});
    EXPECT_THAT(shown.texts(), ElementsAre("一", "二", "一"));
    EXPECT_EQ(shown.questions().front().detail, "");
}

TEST_F(HeldMessagesTest, TellTheFirstNoticeAtTheEndWithTheOthersAsItsDetail) {
    {
        const HeldMessages::Hold hold(messages);
        messages.tell({.text = "断了", .icon = MessageIcon::warning, .beep = true});
        messages.tell({.text = "断了"});
        messages.tell({.text = "没有保存"});
        messages.tell({.text = "没有保存"});
        EXPECT_THAT(shown.texts(), ElementsAre());
    }
    const Notice told = shown.onlyNotice();
    EXPECT_EQ(told.text, "断了");
    EXPECT_EQ(told.detail, "没有保存");
    EXPECT_EQ(told.icon, MessageIcon::warning);
    EXPECT_TRUE(told.beep);
}

TEST_F(HeldMessagesTest, GiveAQuestionWhatWasSaidBeforeIt) {
    shown.willAnswer("是否仍然退出?", Answer::no);
    {
        const HeldMessages::Hold hold(messages);
        messages.tell({.text = "断了", .detail = "EOF"});
        EXPECT_EQ(messages.ask({.text = "是否仍然退出?"}), Answer::no);
    }
    EXPECT_THAT(shown.texts(), ElementsAre("是否仍然退出?"));
    EXPECT_EQ(shown.questions().front().detail, "断了\nEOF");
}

}  // namespace
}  // namespace chengheng
