#pragma once

#include <string>
#include <vector>

#include "books/carrying/carry_forward.h"
#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"

namespace chengheng {

/// Books of 2026 and beside them, in the same set of a list, those of 2025, closed by nobody. The
/// year before has no accounts until it is given those of this year.
class CarryBooks {
  public:
    explicit CarryBooks(const EngineCase& engineCase, OpeningLayout layout = OpeningLayout::simple);

    OpeningTestBooks& now() { return m_now; }
    RecordingMessages& messages() { return m_now.messages(); }
    const std::string& location() const { return m_location; }
    const std::string& lastLocation() const { return m_lastLocation; }
    const BooksRegistry& registry() const { return m_registry; }

    /// Runs statements, each ending with a semicolon, on last year's books.
    void last(const std::string& sql) const;
    /// Gives last year's books the accounts of this year with their ids.
    void mirror();
    /// Opening, debits and credits of the last period of an account in money, of last year.
    void close(const std::string& code, double opening, double debit, double credit);
    /// Gives both years two departments, 1 and 2, and a unit, 1.
    void addMembers();
    /// Opening and credits of the last period of a combination in money, of last year.
    void detail(const std::string& code, int department, int unit, double opening,
                double credit = 0);
    /// What this year's details of a combination open with, in all periods: "1/0 5 5 ...".
    std::vector<std::string> details();
    /// Every row of the last year's books that a carry-forward looks at.
    std::vector<std::string> lastRows() const;

    /// Carries forward as the window does and tells what there is to tell.
    Outcome carry();
    /// Carries what has changed since, likewise.
    Outcome repeat();
    /// Both years' figures that are not the same, as they are named.
    std::vector<std::string> differences();
    /// The list knows these places of this year and the year before.
    void list(const std::string& location, const std::string& lastLocation, int lastYear = 2025);
    /// It knows nothing.
    void forgetList();

  private:
    std::string m_location;
    std::string m_lastLocation;
    OpeningTestBooks m_now;
    BooksRegistry m_registry{freshFolder()};
    int m_lastId = 0;
};

}  // namespace chengheng
