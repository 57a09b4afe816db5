#include "books/parameters/parameters_service.h"

#include <fmt/format.h>

#include "books/parameters/parameters_sql.h"
#include "books/parameters/parameters_texts.h"
#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/connection/database.h"
#include "data/engines/open_engine.h"
#include "data/lookups/cached_records.h"
#include "data/tables/balances.h"
#include "data/tables/vouchers.h"
#include "session/failure_texts.h"
#include "session/host_globals.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

constexpr LockLists lockLists{WriteRight::parameters,
                              "Code AccSum AssAcc Cyrency RegMain RegSub UnRegMain UnRegSub",
                              "zAccountM"};

Status readCurrencyUse(CNbCwDB& database, ParameterFacts& facts) {
    {
        const SelectedCells accounts(database, parameters_sql::currencyAccounts);
        if (!accounts.isRead()) return database.lastStatus();
        for (int row = 0; row < accounts.rows(); ++row)
            facts.currencyAccounts.push_back(
                fmt::format("{} {}", accounts.text(row, 0), accounts.text(row, 1)));
    }
    const SelectedCells currencies(database, parameters_sql::currencies);
    if (!currencies.isRead()) return database.lastStatus();
    facts.currencies = currencies.rows();
    return Status::done();
}

/// Adds to what is known whether there are such rows.
template <class Record>
Status readHas(CNbCwDB& database, const char* condition, bool& has) {
    const std::optional<bool> found = hasRows<Record>(database, condition);
    if (!found) return database.lastStatus();
    has = has || *found;
    return Status::done();
}

Status readWork(CNbCwDB& database, ParameterFacts& facts) {
    using namespace parameters_sql;
    Status status = readHas<_RegMainInfo>(database, vouchers, facts.hasVouchers);
    if (status) status = readHas<_UnregMainInfo>(database, anyRow, facts.hasVouchers);
    if (status) status = readHas<_RegSubInfo>(database, openingEntries, facts.hasOpeningEntries);
    if (status) status = readHas<_AccSumInfo>(database, sums, facts.hasFigures);
    if (status) status = readHas<_AssAccInfo>(database, auxiliarySums, facts.hasFigures);
    return status;
}

Notice changedMeanwhile(const _zAccountMInfo& stored, const BooksParameters& wanted) {
    return {.text = fmt::format(parameters_texts::changedMeanwhile,
                                parameterLines(parametersOf(stored)), parameterLines(wanted)),
            .icon = MessageIcon::warning};
}

std::string inWords(const ParametersPlan& plan) {
    std::string changes;
    for (const ParameterChange& change : plan.changes) {
        if (!changes.empty()) changes += parameters_texts::between;
        changes +=
            fmt::format(parameters_texts::loggedChange, change.title, change.before, change.after);
    }
    return fmt::format(parameters_texts::logged, changes);
}

}  // namespace

UntoldOutcome ParametersService::readFacts(ParameterFacts& facts) {
    {
        const RowLease<_zAccountMInfo> rows(*g_pDB, parameters_sql::inOrder);
        if (!rows.isRead()) return UntoldOutcome::failed();
        if (!rows.isFound())
            return UntoldOutcome::refused(
                {.text = parameters_texts::parametersMissing, .icon = MessageIcon::stop});
        facts.stored = *rows.rows().front();
    }
    Status status = readCurrencyUse(*g_pDB, facts);
    if (status) status = readWork(*g_pDB, facts);
    if (status)
        status = g_pDB->onSelected([&facts](Database& database) {
            facts.location = database.location();
            return listOthersAtWork(database.engine(), facts.others);
        });
    if (!status) return UntoldOutcome::failed();
    if (m_registry != nullptr) {
        facts.listPath = m_registry->path();
        facts.listStatus = m_registry->read(facts.listed);
    }
    return UntoldOutcome::done();
}

Outcome ParametersService::read(ParameterFacts& facts) {
    ParameterFacts read;
    const UntoldOutcome result = selectOpenBooks() ? readFacts(read) : UntoldOutcome::failed();
    if (result.outcome == Outcome::done) facts = std::move(read);
    return told(m_messages, result);
}

Outcome ParametersService::plan(const WantedParameters& given, ParametersPlan& plan) {
    if (const auto refusal = firstRefusal(parameterChecks(), given))
        return told(m_messages, UntoldOutcome::refused(refusal->notice));
    plan = planOf(given);
    return Outcome::done;
}

UntoldOutcome ParametersService::write(const WantedParameters& given, _zAccountMInfo& record) {
    ParameterFacts facts;
    UntoldOutcome result = readFacts(facts);
    if (result.outcome != Outcome::done) return result;
    if (facts.stored != given.facts.stored)
        return UntoldOutcome::stale(changedMeanwhile(facts.stored, given.wanted));
    const WantedParameters now{facts, given.wanted, given.passesOverOthers};
    if (const auto refusal = firstRefusal(parameterChecks(), now))
        return UntoldOutcome::refused(refusal->notice);
    record = recordWith(given.wanted, facts.stored);
    if (g_pDB->QRYExecuteSQL(parameters_sql::change(record)) == 0) return UntoldOutcome::failed();
    return UntoldOutcome::done();
}

Outcome ParametersService::change(const WantedParameters& given) {
    _zAccountMInfo record;
    const Outcome outcome = changeRecords(
        m_messages, lockLists, [&] { return inWords(planOf(given)); },
        [&] { return write(given, record); });
    if (outcome == Outcome::done) publish(record, given.facts.location);
    return outcome;
}

/// The books hold the change by now; a list that cannot follow is told and no failure of it.
void ParametersService::publish(const _zAccountMInfo& record, const std::string& location) {
    publishParameters(record);
    HostSession::renameBooks(record.sName);
    if (m_registry == nullptr) return;
    const Status status = m_registry->correct({record.lId, record.sName, record.sCompany, {}},
                                              {record.lYear, location});
    if (status) return;
    const std::string reason =
        status.failure == Failure::refused
            ? fmt::format(parameters_texts::listHasOther, shownLocation(status.detail))
            : failureText(status, m_registry->path(), FailureSubject::registry);
    m_messages.tell({.text = fmt::format(parameters_texts::listNotCorrected, reason),
                     .icon = MessageIcon::warning});
}

}  // namespace chengheng
