#include "operationlog/account_entries.h"

#include <algorithm>
#include <limits>
#include <map>

#include "data/log/packing.h"
#include "data/transfer/stored_tables.h"
#include "operationlog/log_rows.h"
#include "operationlog/log_sql.h"

namespace chengheng {
namespace {

constexpr const char* accountTable = "Code";
constexpr const char* codeColumn = "sCode";
constexpr const char* accountColumn = "lCodeId";

/// Where a page of parts ended.
struct PartPlace {
    std::int64_t lowest = std::numeric_limits<std::int32_t>::min();
    std::int64_t highest = std::numeric_limits<std::int32_t>::min();
    std::string unit = {};
    std::int64_t part = 0;
};

bool isText(const LoggedCell& cell, const std::string& text) {
    const auto* const found = std::get_if<std::string>(&cell);
    return found != nullptr && *found == text;
}

void addBearers(const std::vector<LoggedRow>& rows, const std::string& code,
                std::vector<std::int32_t>& ids) {
    for (const LoggedRow& row : rows)
        for (const LoggedColumn& column : row.columns)
            if (column.name == codeColumn &&
                (isText(column.before, code) || isText(column.after, code)))
                ids.push_back(static_cast<std::int32_t>(row.id));
}

Status addBearersIn(std::string_view packed, const std::string& code,
                    std::vector<std::int32_t>& ids) {
    const auto bytes = unpacked(packed);
    std::vector<LoggedRow> rows;
    if (!bytes) return Status::of(Failure::damaged, "OperationLogPart.sPacked");
    // Most parts tell of other accounts and need no reading.
    if (bytes->find(code) == std::string::npos) return Status::done();
    if (Status status = unpackRows(packed, rows); !status) return status;
    addBearers(rows, code, ids);
    return Status::done();
}

Status addFormerBearers(Engine& engine, const std::string& code, std::vector<std::int32_t>& ids) {
    PartPlace place;
    bool isAtEnd = false;
    Status status = Status::done();
    while (status && !isAtEnd) {
        isAtEnd = true;
        const std::string unit = place.unit;
        const Value values[] = {Value::of(std::string_view(accountTable)), Value::of(place.lowest),
                                Value::of(place.highest), Value::of(std::string_view(unit)),
                                Value::of(place.part)};
        status = forEachRow(engine, log_sql::partsOfTable, values, [&](const Cursor& row) {
            isAtEnd = false;
            place = {.lowest = row.integer(0),
                     .highest = row.integer(1),
                     .unit = std::string(row.text(2)),
                     .part = row.integer(3)};
            return addBearersIn(row.text(4), code, ids);
        });
    }
    return status;
}

enum class Belongs { no, yes, unsaid };

/// What a row of the log says of whose it is; of a changed row only what differs is there.
Belongs belongs(const LoggedRow& row, std::int32_t account, bool isOfChart) {
    if (isOfChart) return row.id == account ? Belongs::yes : Belongs::no;
    const auto column = std::ranges::find(row.columns, accountColumn, &LoggedColumn::name);
    if (column == row.columns.end())
        return row.kind == ChangeKind::changed ? Belongs::unsaid : Belongs::no;
    const LoggedCell wanted = std::int64_t{account};
    return column->before == wanted || column->after == wanted ? Belongs::yes : Belongs::no;
}

struct AccountPart {
    LogRows rows;
    bool isWhollyOurs = false;
    std::int64_t lowest = 0;
    std::int64_t highest = 0;
};

Status readAccountPart(Engine& engine, std::string_view unit, std::int32_t account,
                       AccountPart& part) {
    const Value values[] = {Value::of(unit), Value::of(std::int64_t{part.rows.part}),
                            Value::of(std::int64_t{account})};
    part = {};
    return forEachRow(engine, log_sql::partOfAccountBehind, values, [&part](const Cursor& row) {
        part.rows.part = static_cast<std::int32_t>(row.integer(0));
        part.rows.table = row.text(1);
        part.isWhollyOurs = row.text(3).empty();
        part.lowest = row.integer(4);
        part.highest = row.integer(5);
        return part.isWhollyOurs ? Status::done() : unpackRows(row.text(3), part.rows.rows);
    });
}

/// Looks up in the books whose the rows are that do not say it.
Status askBooks(Engine& engine, const AccountPart& part, std::int32_t account, bool& touches) {
    std::map<std::int64_t, std::int64_t> accounts;
    const Value values[] = {Value::of(part.lowest), Value::of(part.highest)};
    const Status status = forEachRow(engine, log_sql::accountsOfRows(part.rows.table), values,
                                     [&accounts](const Cursor& row) {
                                         accounts[row.integer(0)] = row.integer(1);
                                         return Status::done();
                                     });
    for (const LoggedRow& row : part.rows.rows) {
        if (belongs(row, account, false) != Belongs::unsaid) continue;
        const auto found = accounts.find(row.id);
        touches = touches || found == accounts.end() || found->second == account;
    }
    return status;
}

Status partTouches(Engine& engine, const AccountPart& part, std::int32_t account, bool& touches) {
    bool isUnsaid = false;
    touches = part.isWhollyOurs;
    for (const LoggedRow& row : part.rows.rows) {
        const Belongs found = belongs(row, account, part.rows.table == accountTable);
        touches = touches || found == Belongs::yes;
        isUnsaid = isUnsaid || found == Belongs::unsaid;
    }
    return touches || !isUnsaid ? Status::done() : askBooks(engine, part, account, touches);
}

}  // namespace

Status findAccountIds(Engine& engine, const std::string& code, std::vector<std::int32_t>& ids) {
    ids.clear();
    const Value values[] = {Value::of(std::string_view(code))};
    Status status = forEachRow(engine, log_sql::accountsOfCode, values, [&ids](const Cursor& row) {
        ids.push_back(static_cast<std::int32_t>(row.integer(0)));
        return Status::done();
    });
    if (status) status = addFormerBearers(engine, code, ids);
    std::ranges::sort(ids);
    const auto doubled = std::ranges::unique(ids);
    ids.erase(doubled.begin(), doubled.end());
    return status;
}

Status touchesAccounts(Engine& engine, std::string_view unit,
                       const std::vector<std::int32_t>& accounts, bool& touches) {
    touches = false;
    Status status = Status::done();
    for (const std::int32_t account : accounts) {
        AccountPart part;
        do {
            status = readAccountPart(engine, unit, account, part);
            if (status && part.rows.part != 0) status = partTouches(engine, part, account, touches);
        } while (status && part.rows.part != 0 && !touches);
        if (!status || touches) break;
    }
    return status;
}

}  // namespace chengheng
