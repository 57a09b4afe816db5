#include "books/checking/integrity_check.h"

#include <array>
#include <cmath>

#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/layout/layout.h"
#include "data/layout/layout_steps.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

constexpr std::array<IntegrityCheck, 22> checks{{
    {"engine", integrity_texts::engineTitle, checkEngine},
    {"parameters", integrity_texts::parametersTitle, checkParameters},
    {"objects", integrity_texts::objectsTitle, checkObjects},
    {"cells", integrity_texts::cellsTitle, checkCells},
    {"idCounters", integrity_texts::idCountersTitle, checkIdCounters},
    {"sharedIds", integrity_texts::sharedIdsTitle, checkSharedIds},
    {"uniqueCodes", integrity_texts::uniqueCodesTitle, checkUniqueCodes},
    {"codePattern", integrity_texts::codePatternTitle, checkCodePattern},
    {"grades", integrity_texts::gradesTitle, checkGrades},
    {"parents", integrity_texts::parentsTitle, checkParents},
    {"endAccounts", integrity_texts::endAccountsTitle, checkEndAccounts},
    {"designation", integrity_texts::designationTitle, checkDesignation},
    {"uniqueMnemonics", integrity_texts::uniqueMnemonicsTitle, checkUniqueMnemonics},
    {"references", integrity_texts::referencesTitle, checkReferences},
    {"projectItems", integrity_texts::projectItemsTitle, checkProjectItems},
    {"operators", integrity_texts::operatorsTitle, checkOperators},
    {"periodSums", integrity_texts::periodSumsTitle, checkPeriodSums},
    {"openings", integrity_texts::openingsTitle, checkOpenings},
    {"auxiliarySums", integrity_texts::auxiliarySumsTitle, checkAuxiliarySums},
    {"openingEntries", integrity_texts::openingEntriesTitle, checkOpeningEntries},
    {"fixedRates", integrity_texts::fixedRatesTitle, checkFixedRates},
    {"floatingRates", integrity_texts::floatingRatesTitle, checkFloatingRates},
}};

constexpr std::array<IntegrityCheck, 3> noteChecks{{
    {"parentSums", integrity_texts::parentSumsTitle, checkParentSums},
    {"rateGaps", integrity_texts::rateGapsTitle, noteRateGaps},
    {"voucherRestrictions", integrity_texts::voucherRestrictionsTitle, noteRestrictions},
}};

Status run(const IntegrityCheck& check, CheckedBooks& books, std::vector<IntegrityFault>& faults) {
    FaultList list(faults, check.name);
    return check.run(books, list);
}

Status runAll(CheckedBooks& books, std::vector<IntegrityFault>& faults,
              std::vector<IntegrityFault>* notes) {
    Status status = run(checks.front(), books, faults);
    // Nothing that is read from a corrupt database can be relied on.
    if (!status || !faults.empty()) return status;
    status = books.read();
    for (const IntegrityCheck& check : std::span(checks).subspan(1))
        if (status) status = run(check, books, faults);
    if (notes == nullptr) return status;
    for (const IntegrityCheck& check : noteChecks)
        if (status) status = run(check, books, *notes);
    return status;
}

}  // namespace

double numberIn(const Cursor& row, int column) {
    const ValueKind kind = row.kind(column);
    const bool isNumber = kind == ValueKind::integer || kind == ValueKind::real;
    return isNumber ? row.real(column) : std::nan("");
}

Status CheckedBooks::read() {
    Status status = readTables();
    if (status) status = readParameters();
    return status ? readAccounts() : status;
}

Status CheckedBooks::readTables() {
    int number = 0;
    const Status status = readLayoutNumber(m_engine, number);
    m_tables = tablesOfLayout(number);
    return status;
}

Status CheckedBooks::readParameters() {
    return forEachRow(m_engine, integrity_sql::parameters, {}, [this](const Cursor& row) {
        if (m_parameterRows++ == 0) {
            m_pattern = row.text(0);
            m_levels = CodeLevels(m_pattern);
            m_start = parseDate(row.text(1)).value_or(Date());
        }
        return Status::done();
    });
}

Status CheckedBooks::readAccounts() {
    return forEachRow(m_engine, integrity_sql::accounts, {}, [this](const Cursor& row) {
        CheckedAccount account;
        account.id = static_cast<int>(row.integer(0));
        account.code = row.text(1);
        account.name = row.text(2);
        account.className = row.text(3);
        account.grade = static_cast<int>(row.integer(4));
        account.isEnd = row.integer(5) != 0;
        account.letters = row.text(6);
        account.mnemonic = row.text(7);
        account.isCash = row.integer(8) != 0;
        account.isBank = row.integer(9) != 0;
        m_accountById.emplace(account.id, m_accounts.size());
        m_accounts.push_back(std::move(account));
        return Status::done();
    });
}

const CheckedAccount* CheckedBooks::findAccount(int id) const {
    const auto found = m_accountById.find(id);
    return found == m_accountById.end() ? nullptr : &m_accounts[found->second];
}

std::span<const IntegrityCheck> integrityChecks() { return checks; }

std::span<const IntegrityCheck> integrityNotes() { return noteChecks; }

Status checkIntegrity(Engine& engine, std::vector<IntegrityFault>& faults,
                      std::vector<IntegrityFault>* notes) {
    Status status = engine.beginReading();
    if (!status) return status;
    CheckedBooks books(engine);
    status = runAll(books, faults, notes);
    const Status ended = engine.rollback();
    return status ? ended : status;
}

Status checkEngine(CheckedBooks& books, FaultList& faults) {
    std::vector<std::string> found;
    const Status status = books.engine().verify(found);
    for (const std::string& fault : found) faults.add(integrity_texts::engineFault(fault));
    return status;
}

Status checkParameters(CheckedBooks& books, FaultList& faults) {
    if (books.parameterRows() != 1)
        faults.add(integrity_texts::parameterRows(books.parameterRows()));
    if (books.parameterRows() > 0 && !isLevelPattern(books.pattern()))
        faults.add(integrity_texts::wrongPattern(books.pattern()));
    return Status::done();
}

}  // namespace chengheng
