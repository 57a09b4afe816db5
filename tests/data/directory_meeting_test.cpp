// Two workstations at once: one deletes a record of a directory, the other enters an opening entry
// that names it.

#include <gtest/gtest.h>

#include "directories/directory_service.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"
#include "tests/support/waiting_process.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

/// A directory and the entries that name its records.
struct Meeting {
    DirectoryKind directory;
    AuxiliaryKind entries;
};

constexpr Meeting meetings[] = {
    {DirectoryKind::unit, AuxiliaryKind::unit},
    {DirectoryKind::projectItem, AuxiliaryKind::project},
};

Outcome removeFirst(EntryBooks& books, DirectoryKind kind) {
    DirectoryService service(books.messages(), directoryOf(kind));
    const DirectoryRecord first = service.readAll().value().front();
    books.messages().willAnswer(Answer::yes);
    return service.remove(&first);
}

Outcome enter(EntryBooks& books, AuxiliaryKind kind) {
    const AuxiliaryMember& member = memberOf(kind);
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 10);
    return books.service(member).add(books.account(member), entry);
}

bool isDirectoryWhole(EntryBooks& books, DirectoryKind kind) {
    return DirectoryService(books.messages(), directoryOf(kind)).readAll().value().size() == 2;
}

class DirectoryMeetings : public testing::TestWithParam<EngineCase> {
  protected:
    using Work = std::function<Outcome(EntryBooks& books)>;

    static constexpr int step = 5;  ///< making books costs more than what is tried on them

    /// The other one comes to it at moments of what this one does: one of them is refused.
    void meet(DirectoryKind directory, const Work& here, const Work& there) {
        bool haveMet = true;
        int refusals = 0;
        for (int call = 1; haveMet && call < 100; call += step) {
            const std::string location = freshLocation(GetParam());
            { const EntryBooks made(location); }
            haveMet = false;
            WaitingProcess otherStation([&] {
                EntryBooks theirs(location, OpeningLayout::simple, false);
                return there(theirs) == Outcome::done;
            });
            EntryBooks books(location, OpeningLayout::simple, false);
            const Texts before = books.rows();
            books.books().engine().beforeCall(call, [&] {
                haveMet = true;
                otherStation.start(std::chrono::milliseconds(300));
            });
            const bool isDone = here(books) == Outcome::done;
            books.books().engine().beforeCall(0, {});
            if (!haveMet) otherStation.start();
            EXPECT_NE(otherStation.hasSucceeded(), isDone) << call;
            refusals += isDone ? 0 : 1;
            EXPECT_EQ(books.books().faults(), Texts{}) << call;
            const bool isEntered = books.rows() != before;
            EXPECT_EQ(isEntered, isDirectoryWhole(books, directory)) << call;
        }
        EXPECT_GT(refusals, 0);
    }
};

TEST_P(DirectoryMeetings, OfADeletionWithAnEntryLetOneOfThemHaveItsWay) {
    for (const Meeting& meeting : meetings) {
        const auto removing = [&](EntryBooks& books) {
            return removeFirst(books, meeting.directory);
        };
        const auto entering = [&](EntryBooks& books) { return enter(books, meeting.entries); };
        meet(meeting.directory, removing, entering);
        meet(meeting.directory, entering, removing);
    }
}

CHENGHENG_ON_SHARED_ENGINES(DirectoryMeetings);

}  // namespace
