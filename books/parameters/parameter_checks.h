#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/messages/checks.h"
#include "base/values/status.h"
#include "books/list/books_registry.h"
#include "books/parameters/books_parameters.h"
#include "books/upgrading/people_at_work.h"

namespace chengheng {

/// What a change of the parameters depends on.
struct ParameterFacts {
    _zAccountMInfo stored;
    std::vector<std::string> currencyAccounts;  ///< "100202 美元户" of each that keeps one
    int currencies = 0;
    bool hasVouchers = false;        ///< posted or not
    bool hasOpeningEntries = false;  ///< of auxiliary accounts
    bool hasFigures = false;         ///< in the sums of a period
    std::vector<PersonAtWork> others;
    std::string location;          ///< of the books, as the list names it
    std::vector<BooksSet> listed;  ///< the list of this workstation
    Status listStatus;             ///< whether it could be read
    std::string listPath;
};

/// Parameters that somebody wants.
struct WantedParameters {
    const ParameterFacts& facts;
    BooksParameters wanted;
    /// Whether those listed as logged on count as gone.
    bool passesOverOthers = false;

    BooksParameters stored() const { return parametersOf(facts.stored); }
};

/// What is asked of a change; what stays as it is is asked nothing.
std::span<const Check<WantedParameters>> parameterChecks();

/// "100202 美元户、100203 欧元户", the first few, then how many there are in all.
std::string namedAccounts(const std::vector<std::string>& accounts);

/// Why the month of the start cannot be another one; empty when it can.
std::string startMonthObstacle(const ParameterFacts& facts);

}  // namespace chengheng
