#include <gtest/gtest.h>

#include "currency/currency_form.h"
#include "currency/screen/rate_overview.h"
#include "currency/transfer/rate_import.h"
#include "data/layout/layout.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/currency_books.h"
#include "tests/support/each_call.h"
#include "tests/support/engine_cases.h"
#include "tests/support/logged_locks.h"
#include "tests/support/told_failures.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

/// The window of currencies without its screen, on books whose engine can be made to fail.
struct CurrencyAtWork {
    explicit CurrencyAtWork(std::unique_ptr<FaultyEngine> faulty)
        : engine(*faulty), books(std::move(faulty)) {}

    FaultyEngine& engine;
    CurrencyBooks books;
    CurrencyForm form{books.messages, {2026, 5, 31}};
};

/// Brings rates of both currencies from a sheet.
Outcome importRates(CurrencyBooks& books, const std::string& rate) {
    Sheet sheet;
    EXPECT_FALSE(readCsv(
        "日期,USD,JPY\n2026-01-02," + rate + "," + rate + "\n2026-01-03," + rate + ",\n", sheet));
    RateImport import(books.messages, 2026, {});
    const auto plan = import.plan(std::move(sheet), "汇率.csv");
    return plan ? import.apply(*plan) : Outcome::failed;
}

/// A day of each month, filled with the rate before it.
std::vector<RateChange> fillingOf(const std::vector<RateRow>& rows, double rate) {
    std::vector<RateChange> changes;
    for (const RateRow& row : rows) {
        RateRow filled = row;
        filled.rate = rate;
        if (filled != row) changes.push_back({1, RateKind::fixed, row, filled});
    }
    return changes;
}

class CurrencyTrouble : public testing::TestWithParam<EngineCase> {
  protected:
    /// Lets the n-th call of a command fail, n = 1, 2, ..., until none of its calls does. What the
    /// command did is told by what is stored; whatever fails is told once, and leaves no lock and
    /// no open unit.
    void failEachCall(const std::function<void(CurrencyAtWork&, int number)>& prepare,
                      const std::function<bool(CurrencyAtWork&)>& command, int leastCalls) {
        for (const Failure failure : {Failure::full, Failure::lost}) {
            CurrencyAtWork work(emptyFaultyBooks(GetParam()));
            work.books.insert("USD", "美元");
            work.books.insert("JPY", "日元");
            work.form.open();
            int number = 1;
            for (bool hasFailed = true; hasFailed && number < 100; ++number) {
                prepare(work, number);
                const Texts before = work.books.everything();
                work.books.messages.forget();
                work.engine.failCall(number, failure);
                const bool isDone = command(work);
                hasFailed = work.engine.hasFailed();
                work.engine.failCall(0);
                EXPECT_FALSE(work.engine.inTransaction()) << "call " << number;
                EXPECT_FALSE(work.books.holdsLocks()) << "call " << number;
                EXPECT_EQ(work.books.messages.notices().size(), hasFailed ? 1u : 0u)
                    << "call " << number;
                for (const Notice& notice : work.books.messages.notices())
                    EXPECT_THAT(notice.text, tellsOf(failure)) << "call " << number;
                ASSERT_NE(work.books.database.DBSelect("books"), 0);
                EXPECT_EQ(work.books.everything() != before, isDone) << "call " << number;
                EXPECT_TRUE(isDone || hasFailed);
            }
            EXPECT_GT(number, leastCalls) << "calls of the command";
        }
    }
};

TEST_P(CurrencyTrouble, AFailedCallLeavesAnAdditionWholeOrUndone) {
    failEachCall(
        [](CurrencyAtWork& work, int number) {
            if (!work.form.isAdding()) work.form.startAdding();
            const std::string text = "N" + std::to_string(number);
            work.form.input = {text, text, RateMode::divided, "4", "0.5"};
        },
        [](CurrencyAtWork& work) {
            const CurrencyInput typed = work.form.input;
            const bool isDone = work.form.save();
            if (!isDone) {
                EXPECT_EQ(work.form.input, typed) << "nothing typed is lost";
            }
            EXPECT_EQ(work.form.isAdding(), !isDone);
            return isDone;
        },
        12);
}

TEST_P(CurrencyTrouble, AFailedCallLeavesAModificationWholeOrUndone) {
    failEachCall(
        [](CurrencyAtWork& work, int number) {
            const std::string text = "M" + std::to_string(number);
            work.form.input = {text, text, RateMode::divided, "4", "0.5"};
        },
        [](CurrencyAtWork& work) {
            const CurrencyInput typed = work.form.input;
            const bool isDone = work.form.save();
            EXPECT_EQ(work.form.input, typed);
            EXPECT_EQ(work.form.canSave(), !isDone);
            return isDone;
        },
        8);
}

TEST_P(CurrencyTrouble, AFailedCallLeavesADeletionWholeOrUndone) {
    failEachCall(
        [](CurrencyAtWork& work, int) {
            if (work.form.leaves().all().size() < 2) {
                work.books.insert("GBP", "英镑");
                work.form.open();
            }
            if (work.form.isAdding()) work.form.open();
        },
        [](CurrencyAtWork& work) {
            const std::size_t before = work.form.leaves().all().size();
            // A call that fails before the question keeps it from being asked.
            std::size_t asked = work.books.messages.questions().size();
            work.books.messages.willAnswer(Answer::yes);
            work.form.remove(work.form.selectedId());
            if (work.books.messages.questions().size() == asked)
                static_cast<void>(work.books.messages.ask({}));
            return work.form.leaves().all().size() < before;
        },
        10);
}

TEST_P(CurrencyTrouble, AFailedCallLeavesARateAsItWas) {
    failEachCall(
        [](CurrencyAtWork& work, int number) {
            work.form.showKind(number % 2 == 0 ? RateKind::fixed : RateKind::floating);
        },
        [](CurrencyAtWork& work) {
            static int times = 0;
            const RateCell cell{3, RateSheetColumn::rate};
            const std::string before = work.form.sheet().text(cell);
            work.form.beginEdit();
            const std::string text = std::to_string(++times) + ".5";
            const bool isDone = work.form.endEdit(cell, text) == Outcome::done;
            EXPECT_FALSE(work.form.isEditing());
            EXPECT_EQ(work.form.sheet().text(cell), isDone ? text + "0000" : before);
            return isDone;
        },
        6);
}

TEST_P(CurrencyTrouble, AFailedCallLeavesAnImportOfRatesWholeOrUndone) {
    failEachCall([](CurrencyAtWork&, int) {},
                 [](CurrencyAtWork& work) {
                     static int times = 0;
                     const std::string rate = "7." + std::to_string(++times);
                     return importRates(work.books, rate) == Outcome::done;
                 },
                 12);
}

TEST_P(CurrencyTrouble, AFailedCallLeavesAllOfManyRatesAsTheyWere) {
    failEachCall([](CurrencyAtWork& work, int) { work.form.readRatesAnew(); },
                 [](CurrencyAtWork& work) {
                     static int times = 0;
                     std::vector<RateRow> rows;
                     for (int row = 0; row < work.form.sheet().rowCount(); ++row)
                         rows.push_back(work.form.sheet().line(row));
                     return writeRates(work.books.messages, fillingOf(rows, ++times)) ==
                            Outcome::done;
                 },
                 16);
}

TEST_P(CurrencyTrouble, AFailedReadOfAYearIsNoYearWithoutRates) {
    CurrencyAtWork work(emptyFaultyBooks(GetParam()));
    work.books.insert("USD", "美元");
    work.books.run("UPDATE ExchgFlt SET dRate = 7 WHERE lId < 5");
    RateOverview overview(work.form, work.books.messages, {});
    work.form.open();
    overview.follow();
    work.form.showKind(RateKind::floating);
    work.books.messages.forget();
    work.engine.failCall(1, Failure::lost);
    overview.follow();
    work.engine.failCall(0);
    EXPECT_FALSE(overview.isYearRead());
    EXPECT_EQ(overview.line(), "全年的汇率没有读出,缺口和图不完整");
    EXPECT_FALSE(overview.hasGaps());
    EXPECT_EQ(work.books.messages.notices().size(), 1u);
    overview.follow();
    EXPECT_EQ(work.books.messages.notices().size(), 1u) << "told once";
    work.form.showMonth(1);
    overview.follow();
    EXPECT_TRUE(overview.isYearRead());
    EXPECT_EQ(overview.rates().size(), 4u);
    EXPECT_EQ(overview.line(), "");
}

TEST_P(CurrencyTrouble, AFailedCallKeepsSelectionKindAndMonthWhereTheyWere) {
    const std::function<bool(CurrencyAtWork&)> commands[] = {
        [](CurrencyAtWork& work) { return work.form.select(2); },
        [](CurrencyAtWork& work) {
            work.form.showKind(RateKind::floating);
            return work.form.kind() == RateKind::floating;
        },
        [](CurrencyAtWork& work) {
            work.form.showMonth(2);
            return work.form.month() == 2;
        }};
    for (const auto& command : commands) {
        CurrencyAtWork work(emptyFaultyBooks(GetParam()));
        work.books.insert("USD", "美元");
        work.books.insert("JPY", "日元");
        work.form.open();
        int number = 1;
        for (bool hasFailed = true; hasFailed && number < 100; ++number) {
            const RateRow first = work.form.sheet().line(0);
            work.books.messages.forget();
            work.engine.failCall(number, Failure::lost);
            const bool isDone = command(work);
            hasFailed = work.engine.hasFailed();
            work.engine.failCall(0);
            EXPECT_NE(isDone, hasFailed);
            EXPECT_EQ(work.books.messages.notices().size(), hasFailed ? 1u : 0u);
            if (hasFailed) {
                EXPECT_EQ(work.form.sheet().line(0), first);
                EXPECT_EQ(work.form.selectedId(), 1);
                EXPECT_EQ(work.form.input.symbol, "USD");
                EXPECT_EQ(work.form.kind(), RateKind::fixed);
                EXPECT_EQ(work.form.month(), 5);
            }
        }
        EXPECT_GT(number, 2);
    }
}

TEST_P(CurrencyTrouble, TakesAndFreesTheAccountsFirst) {
    auto faulty = emptyFaultyBooks(GetParam());
    LoggedLocks locks(faulty->real().locks());
    faulty->replaceLocks(locks);
    CurrencyAtWork work(std::move(faulty));
    work.form.open();
    const Texts change{"lock Code 1", "lock Cyrency ExchgFix ExchgFlt 2", "unlock Code 1",
                       "unlock Cyrency ExchgFix ExchgFlt 2"};
    work.form.input = {"USD", "美元"};
    EXPECT_TRUE(work.form.save());
    EXPECT_EQ(locks.log(), change) << "addition";
    locks.forget();
    work.form.input.name = "美金";
    EXPECT_TRUE(work.form.save());
    EXPECT_EQ(locks.log(), change) << "modification";
    locks.forget();
    EXPECT_EQ(work.form.endEdit({0, RateSheetColumn::rate}, "7"), Outcome::done);
    EXPECT_EQ(locks.log(), change) << "a rate";
    locks.forget();
    EXPECT_EQ(importRates(work.books, "7.5"), Outcome::done);
    EXPECT_EQ(locks.log(), change) << "an import";
    locks.forget();
    EXPECT_EQ(writeRates(work.books.messages, fillingOf({work.form.sheet().line(1)}, 7)),
              Outcome::done);
    EXPECT_EQ(locks.log(), change) << "many rates";
    work.books.messages.forget();
    locks.forget();
    work.form.input.decimals = "1";
    EXPECT_FALSE(work.form.save());
    EXPECT_EQ(locks.log(), Texts{}) << "what is wrong in itself needs no lock";
    work.books.messages.willAnswer(Answer::yes);
    work.form.remove(1);
    EXPECT_EQ(locks.log(), change) << "deletion";
}

CHENGHENG_ON_ALL_ENGINES(CurrencyTrouble);

class CurrencyCrashes : public testing::TestWithParam<EngineCase> {
  protected:
    std::string makeBooks() {
        const std::string location = freshLocation(GetParam());
        CurrencyBooks books(location);
        books.insert("USD", "美元");
        books.insert("JPY", "日元");
        return location;
    }
    void killAtEachCall(const std::function<void(CurrencyAtWork&)>& change,
                        const std::function<void(const Texts& changed)>& expectChanged) {
        chengheng::killAtEachCall({
            [this] { return makeBooks(); },
            [&](std::unique_ptr<FaultyEngine> engine, int number) {
                CurrencyAtWork work(std::move(engine));
                work.form.open();
                work.engine.dieAtCall(number);
                change(work);
            },
            [](const std::string& location) {
                CurrencyBooks books(location, false);
                EXPECT_NE(books.database.SQLLock("Code Cyrency ExchgFix ExchgFlt", 2, 1), 0)
                    << "the dead hold no lock";
                return books.everything();
            },
            expectChanged,
        });
    }
};

TEST_P(CurrencyCrashes, LeaveAnAdditionWholeOrUndone) {
    killAtEachCall(
        [](CurrencyAtWork& work) {
            work.form.startAdding();
            work.form.input = {"GBP", "英镑", RateMode::divided, "4", "0.5"};
            work.form.save();
        },
        [](const Texts& changed) {
            EXPECT_EQ(changed.size(), 3 + 3 * (12 + 365) + 3u);
            EXPECT_EQ(changed[2], "3 3 GBP 英镑 0 4 0.5");
            EXPECT_EQ(changed.back(), "ExchgFlt 1095");
        });
}

TEST_P(CurrencyCrashes, LeaveADeletionWholeOrUndone) {
    killAtEachCall(
        [](CurrencyAtWork& work) {
            work.books.messages.willAnswer(Answer::yes);
            work.form.remove(1);
        },
        [](const Texts& changed) {
            EXPECT_EQ(changed.size(), 1 + 12 + 365 + 3u);
            EXPECT_EQ(changed[0], "2 2 JPY 日元 1 5 1e-05");
        });
}

TEST_P(CurrencyCrashes, LeaveAnImportOfRatesWholeOrUndone) {
    killAtEachCall([](CurrencyAtWork& work) { importRates(work.books, "7.5"); },
                   [](const Texts& changed) {
                       std::size_t written = 0;
                       for (const std::string& row : changed)
                           written += row.find(" 7.5 0") != std::string::npos;
                       EXPECT_EQ(written, 3u);
                   });
}

CHENGHENG_ON_SHARED_ENGINES(CurrencyCrashes);

}  // namespace
