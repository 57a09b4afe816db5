#include "data/lookups/cached_records.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/lookups/CGetData.h"

const _zAccountMInfo* CGetData::m_pzAccountMInfo = nullptr;
std::vector<std::string> CGetData::m_csaSignTable;
std::vector<std::string> CGetData::m_csaSignNameTable;

namespace chengheng {
namespace {

constexpr const char* byId = "lId > 0 ORDER BY lId";
constexpr const char* byCode = "lId > 0 ORDER BY sCode";

BookRecords caches;
std::unordered_map<std::string_view, const _CodeInfo*> accountsByCode;

/// The rows that meet a condition. No rows is a reading well done.
template <class Record>
Status read(CNbCwDB& database, const char* condition, std::vector<Record>& rows) {
    const RowLease<Record> lease(database, condition);
    if (!lease.isRead()) return database.lastStatus();
    rows = lease.copy();
    return Status::done();
}

/// Makes a database of g_pDB the selected one.
Status select(const char* databaseName) {
    if (g_pDB == nullptr) return Status::of(Failure::notOpen);
    return g_pDB->DBSelect(databaseName) != 0 ? Status::done() : g_pDB->lastStatus();
}

template <class Record>
Status readNamed(const char* databaseName, const char* condition, std::vector<Record>& rows) {
    const Status status = select(databaseName);
    return status ? read(*g_pDB, condition, rows) : status;
}

/// The result of a load: the number of records cached or -1.
int loaded(const Status& status, std::size_t count) {
    return status ? static_cast<int>(count) : -1;
}

void publishAccounts(std::vector<_CodeInfo> accounts) {
    accountsByCode.clear();
    caches.accounts = std::move(accounts);
    accountsByCode.reserve(caches.accounts.size());
    for (const _CodeInfo& account : caches.accounts)
        accountsByCode.emplace(account.sCode, &account);
}

void publishSigns(std::vector<_SignInfo> signs) {
    CGetData::m_csaSignTable.clear();
    CGetData::m_csaSignNameTable.clear();
    for (const _SignInfo& sign : signs) {
        CGetData::m_csaSignTable.push_back(sign.sSign);
        CGetData::m_csaSignNameTable.push_back(sign.sSignName);
    }
    caches.signs = std::move(signs);
}

void clearCaches() {
    CGetData::m_pzAccountMInfo = nullptr;
    CGetData::m_csaSignTable.clear();
    CGetData::m_csaSignNameTable.clear();
    accountsByCode.clear();
    caches = {};
}

}  // namespace

std::span<const _CyrencyInfo> cachedCurrencies() { return caches.currencies; }
std::span<const _SettleInfo> cachedSettles() { return caches.settles; }

void publishParameters(const _zAccountMInfo& parameters) {
    if (CGetData::m_pzAccountMInfo == nullptr) return;
    caches.parameters = parameters;
    CGetData::m_pzAccountMInfo = &caches.parameters;
}

Status readBookRecords(CNbCwDB& database, BookRecords& records) {
    std::vector<_zAccountMInfo> parameters;
    Status status = read(database, nullptr, parameters);
    if (status && parameters.empty()) status = Status::of(Failure::damaged, "zAccountM has no row");
    if (status) records.parameters = std::move(parameters.front());
    if (status) status = read(database, byCode, records.accounts);
    if (status) status = read(database, byId, records.signs);
    if (status) status = read(database, byId, records.currencies);
    if (status) status = read(database, byId, records.settles);
    return status;
}

BookLookups::BookLookups(const char* databaseName) {
    BookRecords records;
    m_status = select(databaseName);
    if (m_status) m_status = readBookRecords(*g_pDB, records);
    if (m_status) publish(std::move(records));
}

BookLookups::BookLookups(BookRecords records) { publish(std::move(records)); }

void BookLookups::publish(BookRecords records) {
    publishAccounts(std::move(records.accounts));
    publishSigns(std::move(records.signs));
    caches.currencies = std::move(records.currencies);
    caches.settles = std::move(records.settles);
    caches.parameters = std::move(records.parameters);
    CGetData::m_pzAccountMInfo = &caches.parameters;
}

BookLookups::~BookLookups() { clearCaches(); }

}  // namespace chengheng

using chengheng::caches;

int CGetData::LoadCODEINFOMemoryMapTable(const char* databaseName) {
    std::vector<_CodeInfo> accounts;
    const auto status = chengheng::readNamed(databaseName, chengheng::byCode, accounts);
    if (status) chengheng::publishAccounts(std::move(accounts));
    return chengheng::loaded(status, caches.accounts.size());
}

int CGetData::LoadCYRENCYINFOMemoryMapTable(const char* databaseName) {
    const auto status = chengheng::readNamed(databaseName, chengheng::byId, caches.currencies);
    return chengheng::loaded(status, caches.currencies.size());
}

int CGetData::LoadSignMemoryMapTable(const char* databaseName) {
    std::vector<_SignInfo> signs;
    const auto status = chengheng::readNamed(databaseName, chengheng::byId, signs);
    if (status) chengheng::publishSigns(std::move(signs));
    return chengheng::loaded(status, m_csaSignTable.size());
}

int CGetData::LoadSettleMemoryMapTable(const char* databaseName) {
    const auto status = chengheng::readNamed(databaseName, chengheng::byId, caches.settles);
    return chengheng::loaded(status, caches.settles.size());
}

const _CodeInfo* CGetData::GetCODEINFOByCode(std::string_view code) {
    const auto found = chengheng::accountsByCode.find(code);
    return found == chengheng::accountsByCode.end() ? nullptr : found->second;
}

const _CyrencyInfo* CGetData::GetCYRENCYINFOByExchId(int currencyId) {
    const auto found = std::ranges::find(caches.currencies, currencyId, &_CyrencyInfo::lId);
    return found == caches.currencies.end() ? nullptr : &*found;
}
