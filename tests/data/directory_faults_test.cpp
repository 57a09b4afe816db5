// Changes of every directory whose n-th database call fails, or at whose n-th call the process
// dies, n = 1, 2, ... until the change succeeds: the books hold the old state or the new.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "directories/directory_service.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"
#include "tests/support/killed_process.h"
#include "tests/support/sound_log.h"

namespace {

using namespace chengheng;

enum class Change { adding, modifying, deleting };

class DirectoryFaults : public testing::TestWithParam<EngineCase> {
  protected:
    /// What a directory and the tables of items hold.
    static std::vector<std::string> rows(EntryBooks& books, const Directory& directory) {
        std::vector<std::string> rows = books.rows();
        DirectoryService service(books.messages(), directory);
        const auto records = service.readAll();
        EXPECT_TRUE(records.has_value());
        for (const DirectoryRecord& record : *records)
            rows.push_back(std::to_string(record.id) + " " + directoryLine(record));
        for (const char* table : {"ProjItems9", "ProjItems8"}) {
            bool isThere = false;
            EXPECT_TRUE(books.books().engine().hasTable(table, isThere).isDone());
            if (isThere) rows.emplace_back(table);
        }
        return rows;
    }
    static Outcome carryOut(Change change, EntryBooks& books, const Directory& directory,
                            const DirectoryRecord& record) {
        DirectoryService service(books.messages(), directory);
        DirectoryRecord changed = record;
        if (change == Change::adding) return service.add(changed);
        changed.code = "8";
        if (change == Change::modifying) return service.modify(record, changed);
        books.messages().willAnswer(Answer::yes);
        return service.remove(&record);
    }
    static DirectoryRecord prepare(Change change, EntryBooks& books, const Directory& directory) {
        DirectoryRecord record{.group = directory.groups ? 1 : 0, .code = "9", .name = "新的"};
        if (change != Change::adding) {
            EXPECT_EQ(DirectoryService(books.messages(), directory).add(record), Outcome::done);
        }
        return record;
    }
    void failEachCall(Change change, const Directory& directory, Failure failure) {
        EntryBooks books(freshLocation(GetParam()));
        const DirectoryRecord record = prepare(change, books, directory);
        const std::vector<std::string> before = rows(books, directory);
        const char* words = failure == Failure::full ? "磁盘空间不足" : "中断";
        int failures = 0;
        for (int call = 1;; ++call) {
            ASSERT_LT(call, 200) << directory.key;
            books.messages().forget();
            books.books().engine().failCall(call, failure);
            const Outcome outcome = carryOut(change, books, directory, record);
            books.books().engine().failCall(0);
            EXPECT_FALSE(books.books().holdsLocks()) << call;
            EXPECT_FALSE(books.books().engine().inTransaction()) << call;
            ASSERT_NE(books.database().DBSelect("books"), 0);
            if (outcome == Outcome::done) break;
            ++failures;
            EXPECT_EQ(outcome, Outcome::failed) << directory.key << call;
            ASSERT_EQ(books.messages().notices().size(), 1u) << directory.key << call;
            EXPECT_THAT(books.messages().notices().front().text, testing::HasSubstr(words))
                << directory.key << call;
            ASSERT_EQ(rows(books, directory), before) << directory.key << call;
        }
        EXPECT_GT(failures, 5) << directory.key;
        EXPECT_NE(rows(books, directory), before);
        EXPECT_EQ(books.books().faults(), std::vector<std::string>{});
    }
};

TEST_P(DirectoryFaults, OfAFullDiskLeaveEverythingAsItWas) {
    using enum DirectoryKind;
    for (const DirectoryKind kind : {person, projectClass, projectItem})
        for (const Change change : {Change::adding, Change::modifying, Change::deleting})
            failEachCall(change, directoryOf(kind), Failure::full);
}

TEST_P(DirectoryFaults, OfALostConnectionLeaveEverythingAsItWas) {
    const Directory& classes = directoryOf(DirectoryKind::projectClass);
    for (const Change change : {Change::adding, Change::modifying, Change::deleting})
        failEachCall(change, classes, Failure::lost);
    failEachCall(Change::deleting, directoryOf(DirectoryKind::unit), Failure::lost);
}

CHENGHENG_ON_ALL_ENGINES(DirectoryFaults);

/// A child process dies at each call of a change.
class DirectoryCrashes : public DirectoryFaults {};

TEST_P(DirectoryCrashes, LeaveAProjectClassWithItsTableOrNeither) {
    const Directory& classes = directoryOf(DirectoryKind::projectClass);
    for (const Change change : {Change::adding, Change::modifying, Change::deleting}) {
        const std::string location = freshLocation(GetParam());
        DirectoryRecord record;
        std::vector<std::string> before;
        {
            EntryBooks books(location);
            record = prepare(change, books, classes);
            before = rows(books, classes);
        }
        const auto isKilledAt = [&](int call) {
            return isKilledAtWork([&] {
                EntryBooks books(location, OpeningLayout::simple, false);
                books.books().engine().dieAtCall(call);
                if (carryOut(change, books, classes, record) != Outcome::done)
                    throw std::runtime_error("not done");
            });
        };
        int deaths = 0;
        for (int call = 1; isKilledAt(call); ++call) {
            ASSERT_LT(++deaths, 200);
            expectSoundLogAt(location);
            EntryBooks books(location, OpeningLayout::simple, false);
            ASSERT_EQ(rows(books, classes), before) << call;
        }
        EXPECT_GT(deaths, 5);
        expectSoundLogAt(location);
        EntryBooks books(location, OpeningLayout::simple, false);
        EXPECT_NE(rows(books, classes), before);
        EXPECT_EQ(books.books().faults(), std::vector<std::string>{});
    }
}

CHENGHENG_ON_SHARED_ENGINES(DirectoryCrashes);

}  // namespace
