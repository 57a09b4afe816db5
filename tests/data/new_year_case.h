#pragma once

#include <algorithm>

#include "books/newyear/new_year_books.h"
#include "books/newyear/new_year_tables.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/small_books.h"

namespace chengheng {

using Digests = std::vector<TableDigest>;

inline Digests contentAt(const std::string& location, const TableChoice& choice = {}) {
    Digests digests;
    const auto engine = openForTest(location, OpenMode::readable);
    EXPECT_TRUE(digestContent(*engine, booksFormatVersion, digests, choice).isDone());
    return digests;
}

/// The tables whose rows next year's books have just as they were.
inline bool isTakenAsItIs(std::string_view table) {
    return fateInNextYear(table) == NextYearFate::taken;
}

inline std::string textOf(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->notice.text : "done";
}

/// Small books of 2026 with a voucher, balances, rates and people logged on.
inline void fillEndingYear(Engine& books) {
    fillSmallBooks(books);
    runScript(books,
              "UPDATE ExchgFix SET dRate = 7.1, dAdjustRate = 7.2 WHERE byPeroid = 12;"
              "UPDATE ExchgFlt SET dRate = 7.3 WHERE dtDate = '2026-12-30';"
              "INSERT INTO LoginInfoTbl (lId, sUser) VALUES (1, '张三');"
              "INSERT INTO LogonTries (lId, lWrong) VALUES (1, 3);"
              "INSERT INTO RecpEnter (lId, lCodeId) VALUES (1, 5);"
              "UPDATE ABIdTable SET lLastId = 365 WHERE sTable = 'ExchgFlt'");
}

/// A workstation on which books of 2026 are to be followed by those of 2027.
struct EndingYear {
    explicit EndingYear(const EngineCase& kind) : books(freshLocation(kind)) {
        fillEndingYear(*openForTest(books));
        before = contentAt(books);
    }

    NewYearOrder order(const std::string& target = {}) const {
        return {.books = books, .target = target};
    }
    std::string make(const NewYearOrder& wanted) {
        return textOf(NewYearBooks(registry).make(wanted, {}, made));
    }
    std::vector<BooksSet> listed() const {
        std::vector<BooksSet> sets;
        EXPECT_TRUE(registry.read(sets).isDone());
        return sets;
    }

    BooksRegistry registry{freshFolder()};
    std::string books;
    Digests before;
    NewYearPlan made;
};

}  // namespace chengheng
