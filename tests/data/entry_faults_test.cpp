// Opening entries whose n-th database call fails, or at whose n-th call the process dies, n = 1, 2,
// ... until the action succeeds: the books hold the old state or the new.

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"
#include "tests/support/killed_process.h"
#include "tests/support/sound_log.h"
#include "tests/support/waiting_process.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

const AuxiliaryMember& faultMember() { return memberOf(AuxiliaryKind::unitAndProject); }

/// The first entry goes, the second moves to another combination, a third one comes.
bool changeAll(EntryBooks& books) {
    const AuxiliaryMember& member = faultMember();
    const std::vector<AuxiliaryEntry> stored = books.stored(member);
    EntryChange changes[] = {
        {.before = stored.at(0), .after = {}},
        {.before = stored.at(1), .after = EntryBooks::entry(member, 1, 12)},
        {.before = {}, .after = EntryBooks::entry(member, 2, 40, false)},
    };
    return books.service(member).write(books.account(member), changes) == Outcome::done;
}

void prepare(EntryBooks& books) {
    const AuxiliaryMember& member = faultMember();
    EntryChange changes[] = {{.before = {}, .after = EntryBooks::entry(member, 1, 100)},
                             {.before = {}, .after = EntryBooks::entry(member, 2, 7)}};
    ASSERT_EQ(books.service(member).write(books.account(member), changes), Outcome::done);
}

class EntryFaults : public testing::TestWithParam<EngineCase> {
  protected:
    void failEachCall(Failure failure) {
        EntryBooks books(freshLocation(GetParam()));
        prepare(books);
        const Texts before = books.rows();
        const AuxiliaryMember& member = faultMember();
        const AuxiliaryAccount account = books.account(member);
        const std::vector<AuxiliaryEntry> stored = books.stored(member);
        int failures = 0;
        bool isDone = false;
        for (int call = 1; !isDone && call < 500; ++call) {
            books.messages().forget();
            EntryChange changes[] = {
                {.before = stored.at(0), .after = {}},
                {.before = stored.at(1), .after = EntryBooks::entry(member, 1, 12)},
                {.before = {}, .after = EntryBooks::entry(member, 2, 40, false)},
            };
            books.books().engine().failCall(call, failure);
            isDone = books.service(member).write(account, changes) == Outcome::done;
            books.books().engine().failCall(0);
            EXPECT_FALSE(books.books().engine().inTransaction()) << call;
            for (const char* table : {"Code", "Enter", "Codes"})
                EXPECT_FALSE(books.books().locks().holds(table, LockMode::shared)) << call;
            EXPECT_FALSE(books.books().locks().holds("AssAcc", LockMode::exclusive)) << call;
            ASSERT_NE(books.database().DBSelect("books"), 0);
            if (isDone) break;
            ++failures;
            ASSERT_EQ(books.rows(), before) << call;
            EXPECT_EQ(books.messages().texts().size(), 1u) << call;
        }
        EXPECT_TRUE(isDone);
        EXPECT_GT(failures, 20);
        EXPECT_TRUE(books.agree(member));
        EXPECT_EQ(books.books().faults(), Texts{});
    }
};

TEST_P(EntryFaults, OnAFullDiskChangeNothingAndAreTold) { failEachCall(Failure::full); }

TEST_P(EntryFaults, ByALostConnectionChangeNothingAndAreTold) { failEachCall(Failure::lost); }

CHENGHENG_ON_ALL_ENGINES(EntryFaults);

class EntryCrashes : public testing::TestWithParam<EngineCase> {
  protected:
    static bool diesAtCall(const std::string& location, int call) {
        return isKilledAtWork([&] {
            EntryBooks books(location, OpeningLayout::simple, false);
            books.books().engine().dieAtCall(call);
            if (!changeAll(books)) throw std::runtime_error("not written");
        });
    }
    static Texts rowsAt(const std::string& location) {
        return EntryBooks(location, OpeningLayout::simple, false).rows();
    }
};

TEST_P(EntryCrashes, LeaveTheOldEntriesOrTheNew) {
    const std::string location = freshLocation(GetParam());
    {
        EntryBooks books(location);
        prepare(books);
    }
    const Texts before = rowsAt(location);
    int deaths = 0;
    for (int call = 1; diesAtCall(location, call); ++call) {
        ++deaths;
        ASSERT_EQ(rowsAt(location), before) << call;
        if (deaths % 6 == 0) expectSoundLogAt(location);
        ASSERT_LT(deaths, 500);
    }
    EXPECT_GT(deaths, 20);
    EXPECT_NE(rowsAt(location), before);
    EntryBooks books(location, OpeningLayout::simple, false);
    EXPECT_TRUE(books.agree(faultMember()));
    EXPECT_EQ(books.books().faults(), Texts{});
}

CHENGHENG_ON_SHARED_ENGINES(EntryCrashes);

class EnteringWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    static constexpr int entries = 12;

    /// Adds entries for the same two combinations, changes every third one and deletes the next.
    static bool enterMany(EntryBooks& books, int cents) {
        const AuxiliaryMember& member = faultMember();
        const AuxiliaryAccount account = books.account(member);
        EntryService service = books.service(member);
        bool isDone = true;
        for (int at = 0; isDone && at < entries; ++at) {
            AuxiliaryEntry entry = EntryBooks::entry(member, 1 + at % 2, 100 + cents / 100.0);
            isDone = service.add(account, entry) == Outcome::done;
            AuxiliaryEntry other = EntryBooks::entry(member, 2 - at % 2, 1);
            if (isDone && at % 3 == 1)
                isDone = service.modify(account, entry, other) == Outcome::done;
            if (isDone && at % 3 == 2) isDone = service.remove(account, entry) == Outcome::done;
        }
        return isDone;
    }
};

TEST_P(EnteringWorkstations, ForTheSameUnitsAtOnceLoseNothing) {
    const std::string location = freshLocation(GetParam());
    { const EntryBooks books(location); }
    WaitingProcess otherStation([&] {
        EntryBooks books(location, OpeningLayout::simple, false);
        return enterMany(books, 11);
    });
    EntryBooks books(location, OpeningLayout::simple, false);
    otherStation.start(std::chrono::milliseconds(0));
    EXPECT_TRUE(enterMany(books, 22));
    EXPECT_TRUE(otherStation.hasSucceeded());
    EXPECT_EQ(books.messages().texts(), Texts{});
    EXPECT_EQ(books.stored(faultMember()).size(), 2u * entries * 2 / 3);
    EXPECT_TRUE(books.agree(faultMember()));
    EXPECT_EQ(books.books().faults(), Texts{});
    // 4 entries of each stay as they were added, 4 became 1.
    EXPECT_EQ(books.opening().openings(accountCode(faultMember())), allPeriods("809.32"));
}

/// Another workstation takes the unit away at each moment of an addition: either the entry is
/// there and the unit was taken afterwards, or nothing was written.
TEST_P(EnteringWorkstations, LoseAUnitThatAnotherOneDeletesBeforeOrAfterTheEntry) {
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    bool haveMet = true;
    int refusals = 0;
    for (int call = 1; haveMet && call < 100; ++call) {
        const std::string location = freshLocation(GetParam());
        { const EntryBooks made(location); }
        haveMet = false;
        WaitingProcess otherStation([&] {
            EntryBooks theirs(location, OpeningLayout::simple, false);
            return theirs.database().QRYDelete("Enter", "lId = 1") == 0;
        });
        EntryBooks books(location, OpeningLayout::simple, false);
        const AuxiliaryAccount account = books.account(member);
        const Texts before = books.rows();
        books.books().engine().beforeCall(call, [&] {
            haveMet = true;
            otherStation.start();
        });
        AuxiliaryEntry entry = EntryBooks::entry(member, 1, 10);
        const Outcome outcome = books.service(member).add(account, entry);
        books.books().engine().beforeCall(0, {});
        if (!haveMet) otherStation.start();
        EXPECT_TRUE(otherStation.hasSucceeded()) << call;
        ASSERT_TRUE(outcome == Outcome::done || outcome == Outcome::refused) << call;
        if (outcome == Outcome::refused) {
            ++refusals;
            EXPECT_EQ(books.messages().onlyNotice().text, "该单位信息不存在") << call;
            EXPECT_EQ(books.rows(), before) << call;
        }
        EXPECT_TRUE(books.agree(member)) << call;
    }
    EXPECT_FALSE(haveMet);
    EXPECT_GT(refusals, 0);
}

CHENGHENG_ON_SHARED_ENGINES(EnteringWorkstations);

}  // namespace
