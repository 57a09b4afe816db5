#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/messages/messages.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/sound_log.h"
#include "tests/support/told_failures.h"

namespace chengheng {

/// Empty books with their tables, on an engine that can be made to fail.
std::unique_ptr<FaultyEngine> emptyFaultyBooks(const EngineCase& engineCase);

/// A window without its screen, on books whose engine can be made to fail.
template <class Books, class Form>
struct FormAtWork {
    explicit FormAtWork(std::unique_ptr<FaultyEngine> faulty)
        : engine(*faulty), books(std::move(faulty)) {}

    void open() {
        form.open();
        books.messages.forget();
    }

    FaultyEngine& engine;
    Books books;
    Form form{books.messages};
};

/// Lets the n-th call of a command fail, n = 1, 2, ..., until none of its calls does. What the
/// command did is told by what is stored; whatever fails is told, and leaves no lock and no open
/// unit. `open` makes the window on empty books and fills these.
template <class Work>
void failEachCall(const EngineCase& engineCase, const std::function<void(Work&)>& open,
                  const std::function<void(Work&, int number)>& prepare,
                  const std::function<bool(Work&)>& command) {
    for (const Failure failure : {Failure::full, Failure::lost}) {
        Work work(emptyFaultyBooks(engineCase));
        open(work);
        int number = 1;
        for (bool hasFailed = true; hasFailed && number < 100; ++number) {
            prepare(work, number);
            const auto before = work.books.stored();
            work.books.messages.forget();
            work.engine.failCall(number, failure);
            const bool isDone = command(work);
            hasFailed = work.engine.hasFailed();
            work.engine.failCall(0);
            EXPECT_FALSE(work.engine.inTransaction()) << "call " << number;
            EXPECT_FALSE(work.books.holdsLocks()) << "call " << number;
            EXPECT_EQ(!work.books.messages.notices().empty(), hasFailed) << "call " << number;
            for (const Notice& notice : work.books.messages.notices()) {
                EXPECT_THAT(notice.text, tellsOf(failure)) << "call " << number;
                EXPECT_EQ(notice.icon, MessageIcon::warning);
            }
            ASSERT_NE(work.books.database.DBSelect("books"), 0);
            EXPECT_EQ(work.books.stored() != before, isDone) << "call " << number;
            expectSoundLog(work.engine.real());
            EXPECT_TRUE(isDone || hasFailed);
        }
        EXPECT_GT(number, 8) << "calls of the command";
    }
}

/// A change of books whose process is killed before each of its calls in turn.
struct KilledChange {
    /// Gives where they were made.
    std::function<std::string()> makeBooks;
    /// The change, in a process of its own that is to die before the call of that number.
    std::function<void(std::unique_ptr<FaultyEngine> engine, int number)> change;
    /// What the books hold afterwards; expects that the dead hold no lock.
    std::function<std::vector<std::string>(const std::string& location)> stored;
    /// Expects the change whole.
    std::function<void(const std::vector<std::string>& stored)> expectWhole;
};

/// Kills it until it survives. Each time it is whole or undone, and several times undone.
void killAtEachCall(const KilledChange& killed);

}  // namespace chengheng
