#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/codes/code_levels.h"
#include "base/values/date.h"
#include "books/checking/integrity_check.h"
#include "data/tables/schema.h"

namespace chengheng {

inline constexpr int periodsInAYear = 12;

/// Whether two sums differ at most by what adding up many large doubles may lose, for books that
/// round to so many decimals.
bool areEqual(double one, double other, int decimals);

/// NaN for what is no number, which the checks of cells tell.
double numberIn(const Cursor& row, int column);

/// What the checks look at of an account.
struct CheckedAccount {
    int id = 0;
    std::string code;
    std::string name;
    std::string className;
    int grade = 0;
    bool isEnd = false;
    std::string letters;  ///< of its auxiliary books
    std::string mnemonic;
    bool isCash = false;
    bool isBank = false;
};

/// The books under check, with what many checks need read once.
class CheckedBooks {
  public:
    explicit CheckedBooks(Engine& engine) : m_engine(engine) {}

    Status read();

    Engine& engine() { return m_engine; }
    /// The tables that books of their layout have.
    const std::vector<TableInfo>& tables() const { return m_tables; }
    /// How many rows of parameters there are; one is right.
    int parameterRows() const { return m_parameterRows; }
    /// The day that the books begin with; that of no date where none is stored.
    const Date& start() const { return m_start; }
    const std::string& pattern() const { return m_pattern; }
    const CodeLevels& levels() const { return m_levels; }
    /// In the order of their codes.
    const std::vector<CheckedAccount>& accounts() const { return m_accounts; }
    /// Null when there is none of that id.
    const CheckedAccount* findAccount(int id) const;

  private:
    Status readTables();
    Status readParameters();
    Status readAccounts();

    Engine& m_engine;
    std::vector<TableInfo> m_tables;
    int m_parameterRows = 0;
    std::string m_pattern;
    Date m_start;
    CodeLevels m_levels{""};
    std::vector<CheckedAccount> m_accounts;
    std::map<int, std::size_t> m_accountById;
};

/// The faults of a run, each under the name of the check at work.
class FaultList {
  public:
    FaultList(std::vector<IntegrityFault>& faults, const char* check)
        : m_faults(faults), m_check(check) {}
    void add(std::string text) { m_faults.push_back({m_check, std::move(text)}); }

  private:
    std::vector<IntegrityFault>& m_faults;
    const char* m_check;
};

/// Runs work on each currency, by its id and symbol, until one fails.
Status forEachCurrency(
    CheckedBooks& books,
    const std::function<Status(std::int64_t id, const std::string& symbol)>& work);

// The checks themselves; the list in integrity_check.cpp says what each is about.

Status checkEngine(CheckedBooks& books, FaultList& faults);
Status checkParameters(CheckedBooks& books, FaultList& faults);

Status checkObjects(CheckedBooks& books, FaultList& faults);
Status checkCells(CheckedBooks& books, FaultList& faults);

Status checkIdCounters(CheckedBooks& books, FaultList& faults);
Status checkSharedIds(CheckedBooks& books, FaultList& faults);

Status checkUniqueCodes(CheckedBooks& books, FaultList& faults);
Status checkCodePattern(CheckedBooks& books, FaultList& faults);
Status checkGrades(CheckedBooks& books, FaultList& faults);
Status checkParents(CheckedBooks& books, FaultList& faults);
Status checkEndAccounts(CheckedBooks& books, FaultList& faults);
Status checkDesignation(CheckedBooks& books, FaultList& faults);
Status checkUniqueMnemonics(CheckedBooks& books, FaultList& faults);

Status checkReferences(CheckedBooks& books, FaultList& faults);
Status checkProjectItems(CheckedBooks& books, FaultList& faults);
Status checkOperators(CheckedBooks& books, FaultList& faults);

Status checkPeriodSums(CheckedBooks& books, FaultList& faults);
Status checkOpenings(CheckedBooks& books, FaultList& faults);
Status checkAuxiliarySums(CheckedBooks& books, FaultList& faults);
Status checkOpeningEntries(CheckedBooks& books, FaultList& faults);
Status checkParentSums(CheckedBooks& books, FaultList& notes);
Status noteRateGaps(CheckedBooks& books, FaultList& notes);
Status noteRestrictions(CheckedBooks& books, FaultList& notes);
Status checkFixedRates(CheckedBooks& books, FaultList& faults);
Status checkFloatingRates(CheckedBooks& books, FaultList& faults);

}  // namespace chengheng
