#include "books/logon/known_books.h"

#include <fmt/format.h>

#include <algorithm>

#include "books/logon/logon_sql.h"
#include "books/logon/logon_texts.h"
#include "books/making/new_books.h"
#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/engines/open_engine.h"
#include "session/failure_texts.h"

namespace chengheng {
namespace {

constexpr const char* nameWhileRead = "read";

bool isListed(const std::vector<BooksSet>& sets, const std::string& name, const BooksYear& year) {
    for (const BooksSet& set : sets)
        for (const BooksYear& known : set.years)
            if (known.location == year.location || (set.name == name && known.year == year.year))
                return true;
    return false;
}

}  // namespace

std::optional<Refusal> readBooks(const std::string& location, _zAccountMInfo& parameters) {
    CNbCwDB database;
    NbCwDBInfo info;
    const bool isOpen = database.DBOpen(info, location.c_str(), nameWhileRead, 1) != 0 &&
                        database.DBSelect(nameWhileRead) != 0;
    std::vector<_zAccountMInfo> rows;
    if (isOpen) rows = readRows<_zAccountMInfo>(database, logon_sql::parameters);
    const Status& status = database.lastStatus();
    if (!isOpen || (!status && status.failure != Failure::missing))
        return failureRefusalOf(status, location, books_field::location);
    if (rows.empty())
        return failureRefusal(
            fmt::format(logon_texts::operatorsUnreadable, shownLocation(location)),
            books_field::location);
    parameters = rows.front();
    return std::nullopt;
}

Status rememberBooks(const BooksRegistry& registry, const std::string& location,
                     const _zAccountMInfo& parameters) {
    const BooksYear year{parameters.lYear, location};
    std::vector<BooksSet> sets;
    if (Status status = registry.read(sets); !status) return status;
    if (isListed(sets, parameters.sName, year)) return Status::done();
    RegistryChange change(registry);
    if (!change.status() || isListed(change.sets(), parameters.sName, year)) return change.status();
    change.enter({parameters.lId, parameters.sName, parameters.sCompany, {}}, year);
    return change.save();
}

}  // namespace chengheng
