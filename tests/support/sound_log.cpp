#include "tests/support/sound_log.h"

#include <gmock/gmock.h>

#include "operationlog/verifying/log_verification.h"
#include "tests/support/engine_cases.h"

namespace chengheng {

void expectSoundLog(Engine& books) {
    LogVerification found;
    const Status status = verifyLog(books, std::nullopt, found);
    EXPECT_TRUE(status.isDone()) << status.detail;
    EXPECT_THAT(faultTexts(found), testing::IsEmpty());
    EXPECT_TRUE(found.isSound());
}

void expectSoundLogAt(const std::string& location) {
    expectSoundLog(*openForTest(location, OpenMode::existing));
}

}  // namespace chengheng
