#include "tests/support/each_call.h"

#include <stdexcept>

#include "data/layout/layout.h"
#include "tests/support/killed_process.h"
#include "tests/support/sound_log.h"

namespace chengheng {

std::unique_ptr<FaultyEngine> emptyFaultyBooks(const EngineCase& engineCase) {
    auto engine = openForTest(freshLocation(engineCase));
    if (!createLayout(*engine)) throw std::runtime_error("no layout");
    return std::make_unique<FaultyEngine>(std::move(engine));
}

void killAtEachCall(const KilledChange& killed) {
    std::string location = killed.makeBooks();
    const auto before = killed.stored(location);
    int undone = 0;
    bool isKilled = true;
    for (int number = 1; isKilled && number < 100; ++number) {
        SCOPED_TRACE("call " + std::to_string(number));
        isKilled = isKilledAtWork(location, [&](std::unique_ptr<FaultyEngine> engine) {
            killed.change(std::move(engine), number);
        });
        expectSoundLogAt(location);
        const auto stored = killed.stored(location);
        if (stored == before) {
            EXPECT_TRUE(isKilled);
            ++undone;
        } else {
            killed.expectWhole(stored);
            location = killed.makeBooks();
        }
    }
    EXPECT_FALSE(isKilled);
    EXPECT_GT(undone, 4) << "calls before the change counts";
}

}  // namespace chengheng
