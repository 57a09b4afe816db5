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

/// The class of a code and one item in it; the class is added where it is not there.
DirectoryRecord addItem(EntryBooks& books, const char* classCode, const char* itemCode) {
    DirectoryService classes(books.messages(), directoryOf(DirectoryKind::projectClass));
    DirectoryRecord group{.code = classCode, .name = "研发"};
    const auto all = classes.readAll();
    for (const DirectoryRecord& each : *all)
        if (each.code == classCode) group = each;
    if (group.id == 0) {
        EXPECT_EQ(classes.add(group), Outcome::done);
    }
    DirectoryRecord item{.group = group.id, .code = itemCode, .name = itemCode};
    EXPECT_EQ(DirectoryService(books.messages(), directoryOf(DirectoryKind::projectItem)).add(item),
              Outcome::done);
    return item;
}

TEST_P(DirectoryMeetings, OverAClassThatIsDroppedAndMadeAnewFindItsNewTable) {
    const std::string location = freshLocation(GetParam());
    { const EntryBooks made(location); }
    WaitingProcess otherStation([&] {
        EntryBooks theirs(location, OpeningLayout::simple, false);
        DirectoryService classes(theirs.messages(), directoryOf(DirectoryKind::projectClass));
        theirs.messages().willAnswer(Answer::yes);
        const DirectoryRecord last = classes.readAll().value().back();
        if (classes.remove(&last) != Outcome::done) return false;
        return addItem(theirs, "07", "N1").id == 1;
    });
    EntryBooks books(location, OpeningLayout::simple, false);
    DirectoryService items(books.messages(), directoryOf(DirectoryKind::projectItem));
    const DirectoryRecord gone = addItem(books, "07", "X1");
    books.messages().willAnswer(Answer::yes);
    EXPECT_EQ(items.remove(&gone), Outcome::done);
    otherStation.start(std::chrono::seconds(20));
    ASSERT_TRUE(otherStation.hasSucceeded());
    EXPECT_EQ(items.readAll().value().back().code, "N1");
    EXPECT_EQ(addItem(books, "07", "N2").id, 2);
    EXPECT_EQ(items.readAll().value().back().code, "N2");
    EXPECT_EQ(books.books().faults(), Texts{});
}

CHENGHENG_ON_SHARED_ENGINES(DirectoryMeetings);

}  // namespace
