#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/engines/remove_database.h"
#include "tests/data/new_year_case.h"
#include "tests/support/failing_disk.h"
#include "tests/support/failing_sync.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/killed_process.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/small_disk.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;
using testing::HasSubstr;

bool isNothingAt(const std::string& location) {
    std::unique_ptr<Engine> engine;
    if (openEngine(location, OpenMode::existing, engine).failure == Failure::missing) return true;
    bool hasBooks = true;
    EXPECT_TRUE(engine->hasTable("BooksFormat", hasBooks).isDone());
    return !hasBooks && isServerAddress(location);
}

/// What lies where a file of books is to be made.
std::vector<std::string> namesBeside(const std::string& location) {
    std::vector<std::string> names;
    if (isServerAddress(location)) return names;
    for (const auto& entry : files::directory_iterator(files::path(location).parent_path()))
        names.push_back(entry.path().filename());
    return names;
}

/// What is done to an engine before it is used.
using Meddling = std::function<void(FaultyEngine&)>;

BooksOpener openerWith(const std::function<bool(OpenMode)>& isMeant, const Meddling& meddle) {
    return [=](const std::string& location, OpenMode mode, std::unique_ptr<Engine>& engine) {
        Status status = openEngine(location, mode, engine);
        if (!status || !isMeant(mode)) return status;
        auto faulty = std::make_unique<FaultyEngine>(std::move(engine));
        meddle(*faulty);
        engine = std::move(faulty);
        return status;
    };
}

bool isOfSource(OpenMode mode) { return mode == OpenMode::readable; }
bool isOfTarget(OpenMode mode) { return mode == OpenMode::create; }

class NewYearTrouble : public testing::TestWithParam<EngineCase> {
  protected:
    NewYearTrouble() : m_target(freshLocation(GetParam())) {
        if (!isServerAddress(m_target)) m_target = freshFolder() + "/Nbzw.db";
    }
    std::string make(const BooksOpener& opener) {
        return textOf(
            NewYearBooks(m_year.registry, opener).make(m_year.order(m_target), {}, m_year.made));
    }
    void expectNothingMade(int number) {
        EXPECT_TRUE(isNothingAt(m_target)) << "call " << number;
        EXPECT_EQ(namesBeside(m_target), std::vector<std::string>()) << "call " << number;
        EXPECT_TRUE(m_year.listed().empty()) << "call " << number;
        EXPECT_EQ(contentAt(m_year.books), m_year.before) << "call " << number;
    }

    EndingYear m_year{GetParam()};
    std::string m_target;
};

TEST_P(NewYearTrouble, AFailedCallAtEitherEndLeavesNothing) {
    for (const auto isMeant : {isOfSource, isOfTarget})
        for (const Failure failure : {Failure::full, Failure::lost}) {
            int calls = 0;
            for (int number = 1;; number += 1 + number / 2) {
                const std::string text = make(openerWith(isMeant, [&](FaultyEngine& engine) {
                    engine.failCall(number, failure);
                    ++calls;
                }));
                if (text == "done") break;
                ASSERT_LT(number, 4000) << text;
                expectNothingMade(number);
            }
            EXPECT_GT(calls, 8);
            EXPECT_TRUE(removeDatabase(m_target).isDone());
            EXPECT_TRUE(m_year.registry.forget(shownLocation(m_target)).isDone());
            EXPECT_TRUE(m_year.registry.forget(shownLocation(m_year.books)).isDone());
        }
}

TEST_P(NewYearTrouble, AProcessKilledOnTheWayLeavesAPlaceThatCanBeUsedAgain) {
    int kills = 0;
    for (int number = 1;; number += 1 + number / 3) {
        const bool isKilled = isKilledAtWork([&] {
            const std::string text = make(
                openerWith(isOfTarget, [&](FaultyEngine& engine) { engine.dieAtCall(number); }));
            if (text != "done") throw std::runtime_error(text);
        });
        if (!isKilled) break;
        ++kills;
        EXPECT_TRUE(isNothingAt(m_target)) << "call " << number;
        EXPECT_TRUE(m_year.listed().empty()) << "call " << number;
        EXPECT_EQ(contentAt(m_year.books), m_year.before) << "call " << number;
    }
    EXPECT_GT(kills, 6);
    EXPECT_EQ(contentAt(m_target, isTakenAsItIs), contentAt(m_year.books, isTakenAsItIs));
    if (!isServerAddress(m_target)) {
        EXPECT_EQ(namesBeside(m_target), std::vector<std::string>{"Nbzw.db"});
    }
}

TEST_P(NewYearTrouble, AnotherProgramThatListsTheYearMeanwhileIsFirst) {
    const auto enterOther = [this](std::size_t done, std::size_t total) {
        if (done < total) return true;
        RegistryChange change(m_year.registry);
        change.enter({1, "小帐", "小公司", {}}, {2026, m_year.books});
        change.enter({1, "小帐", "小公司", {}}, {2027, "/elsewhere/Nbzw.db"});
        return change.save().isDone();
    };
    EXPECT_EQ(
        textOf(NewYearBooks(m_year.registry).make(m_year.order(m_target), enterOther, m_year.made)),
        "帐套“小帐”的2027年度已经存在:\n/elsewhere/Nbzw.db\n没有改动它。");
    EXPECT_TRUE(isNothingAt(m_target));
    EXPECT_EQ(namesBeside(m_target), std::vector<std::string>());
    EXPECT_EQ(m_year.listed().at(0).years.at(1).location, "/elsewhere/Nbzw.db");
}

TEST_P(NewYearTrouble, TwoWhoMakeTheSameAtOnceMakeOne) {
    std::string second;
    const auto makeSecond = [&](std::size_t done, std::size_t) {
        if (done == 0 || !second.empty()) return true;
        second = "making";
        NewYearPlan plan;
        second = textOf(NewYearBooks(m_year.registry).make(m_year.order(m_target), {}, plan));
        return true;
    };
    const std::string first =
        textOf(NewYearBooks(m_year.registry).make(m_year.order(m_target), makeSecond, m_year.made));
    const std::string place = shownLocation(m_target);
    if (isServerAddress(m_target)) {
        EXPECT_EQ(second, "“" + place + "”正由另一个程序建立,没有改动它。\n请等其完成后再看。");
        EXPECT_EQ(first, "done");
    } else {
        EXPECT_EQ(second, "done");
        EXPECT_EQ(first, "帐套“小帐”的2027年度已经存在:\n" + place + "\n没有改动它。");
    }
    EXPECT_EQ(contentAt(m_target, isTakenAsItIs), contentAt(m_year.books, isTakenAsItIs));
    EXPECT_EQ(m_year.listed().at(0).years.size(), 2U);
}

TEST_P(NewYearTrouble, AListThatCannotBeReadIsToldBeforeAnythingIsMade) {
    std::ofstream(m_year.registry.path()) << "no list";
    EXPECT_THAT(make(plainOpener()), HasSubstr("帐套列表文件"));
    EXPECT_TRUE(isNothingAt(m_target));
}

TEST_P(NewYearTrouble, AListThatCannotBeWrittenLeavesNoBooks) {
    int spoilt = 0;
    const auto spoil = [&](std::size_t done, std::size_t total) {
        // A folder in the way of the file that is to become the list.
        if (done == total && ++spoilt == 1) files::create_directory(m_year.registry.path());
        return true;
    };
    EXPECT_THAT(
        textOf(NewYearBooks(m_year.registry).make(m_year.order(m_target), spoil, m_year.made)),
        HasSubstr("帐套列表文件"));
    EXPECT_EQ(spoilt > 0, true);
    EXPECT_TRUE(isNothingAt(m_target));
    EXPECT_EQ(namesBeside(m_target), std::vector<std::string>());
}

CHENGHENG_ON_SHARED_ENGINES(NewYearTrouble);

TEST(NewYearSchema, ThatWasEmptyIsUsedAndStaysEmptyWhenTheMakingFails) {
    for (const EngineCase& kind : sharedEngineCases()) {
        if (kind.name != "postgres") continue;
        EndingYear year(kind);
        const std::string target = freshLocation(kind);
        openForTest(target);
        const auto giveUp = [](std::size_t done, std::size_t) { return done == 0; };
        EXPECT_THAT(textOf(NewYearBooks(year.registry).make(year.order(target), giveUp, year.made)),
                    HasSubstr("已取消"));
        bool isThere = true;
        EXPECT_TRUE(openForTest(target, OpenMode::existing)->hasTable("Code", isThere).isDone());
        EXPECT_FALSE(isThere);
        EXPECT_EQ(year.make(year.order(target)), "done");
    }
}

TEST(NewYearSchema, WhoseLastStepIsNotConfirmedIsSaidToBeUncertainAndStays) {
    for (const EngineCase& kind : sharedEngineCases()) {
        if (kind.name != "postgres") continue;
        EndingYear year(kind);
        const std::string target = freshLocation(kind);
        FaultyEngine* engine = nullptr;
        const auto opener =
            openerWith(isOfTarget, [&engine](FaultyEngine& opened) { engine = &opened; });
        const auto breakCommit = [&engine](std::size_t done, std::size_t total) {
            if (done == total) engine->failCall(1, Failure::unconfirmed);
            return true;
        };
        // Before the digests are taken the same rows are told of, too.
        EXPECT_THAT(textOf(NewYearBooks(year.registry, opener)
                               .make(year.order(target), breakCommit, year.made)),
                    HasSubstr("不知道本次操作是否已经保存"));
        std::unique_ptr<Engine> kept;
        EXPECT_TRUE(openEngine(target, OpenMode::existing, kept).isDone());
        EXPECT_TRUE(year.listed().empty());
    }
}

TEST(NewYearFile, OnADiskThatFillsUpLeavesNothing) {
    FailingDisk disk;
    EndingYear year(EngineCase{"sqliteFile"});
    const std::string target = freshFolder() + "/Nbzw.db";
    int failures = 0;
    for (int room = 0;; room += 9) {
        disk.fail(FailingDisk::Fault::full, room);
        const std::string text = year.make(year.order(target));
        disk.repair();
        if (text == "done") break;
        ++failures;
        EXPECT_THAT(text, HasSubstr("磁盘")) << room;
        EXPECT_TRUE(namesBeside(target).empty()) << room;
        EXPECT_TRUE(year.listed().empty()) << room;
    }
    EXPECT_GT(failures, 3);
    EXPECT_EQ(contentAt(year.books), year.before);
}

TEST(NewYearFile, OnASmallDiskLeavesNothing) {
    EndingYear year(EngineCase{"sqliteFile"});
    const std::string target = freshFolder() + "/Nbzw.db";
    {
        const SmallDisk disk(64 * 1024);
        EXPECT_THAT(year.make(year.order(target)), HasSubstr("磁盘"));
    }
    EXPECT_TRUE(namesBeside(target).empty());
    EXPECT_EQ(year.make(year.order(target)), "done");
}

TEST(NewYearFile, ThatTheDiskDoesNotConfirmStandsAndIsListed) {
    EndingYear year(EngineCase{"sqliteFile"});
    const std::string target = freshFolder() + "/Nbzw.db";
    {
        const FailingFolderSync failing;
        EXPECT_THAT(year.make(year.order(target)), HasSubstr("系统没有确认"));
    }
    EXPECT_EQ(contentAt(target, isTakenAsItIs), contentAt(year.books, isTakenAsItIs));
    EXPECT_EQ(year.listed().at(0).years.size(), 2U);
}

TEST(NewYearFile, IsMadeFromBooksOnAMediumThatTakesNoWrites) {
    EndingYear year(EngineCase{"sqliteFile"});
    const files::path folder = files::path(year.books).parent_path();
    const std::string target = freshFolder();
    files::permissions(files::path(target).parent_path(), files::perms(0755));
    files::permissions(target, files::perms(0777));
    files::permissions(folder.parent_path(), files::perms(0755));
    files::permissions(year.books, files::perms(0444));
    files::permissions(folder, files::perms(0555));
    NewYearOrder order = year.order(target + "/Nbzw.db");
    order.isListed = false;
    EXPECT_EQ(asOrdinaryUser([&] { return year.make(order) == "done" ? 0 : 1; }), 0);
    EXPECT_EQ(contentAt(order.target, isTakenAsItIs), contentAt(year.books, isTakenAsItIs));
}

}  // namespace
}  // namespace chengheng
