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

struct Caches {
    std::vector<_CodeInfo> accounts;
    std::unordered_map<std::string_view, const _CodeInfo*> accountsByCode;
    std::vector<_CyrencyInfo> currencies;
    std::vector<_SettleInfo> settles;
    _zAccountMInfo parameters;
};

Caches caches;

/// The rows that meet a condition. No rows is a reading well done.
template <class Record>
Status read(const char* databaseName, const char* condition, std::vector<Record>& rows) {
    if (g_pDB == nullptr) return Status::of(Failure::notOpen);
    if (g_pDB->DBSelect(databaseName) == 0) return g_pDB->lastStatus();
    const RowLease<Record> lease(*g_pDB, condition);
    if (!lease.isRead()) return g_pDB->lastStatus();
    rows = lease.copy();
    return Status::done();
}

/// The result of a load: the number of records cached or -1.
int loaded(const Status& status, std::size_t count) {
    return status ? static_cast<int>(count) : -1;
}

Status loadAccounts(const char* databaseName) {
    std::vector<_CodeInfo> accounts;
    Status status = read(databaseName, byCode, accounts);
    if (!status) return status;
    caches.accountsByCode.clear();
    caches.accounts = std::move(accounts);
    caches.accountsByCode.reserve(caches.accounts.size());
    for (const _CodeInfo& account : caches.accounts)
        caches.accountsByCode.emplace(account.sCode, &account);
    return status;
}

Status loadSigns(const char* databaseName) {
    std::vector<_SignInfo> signs;
    Status status = read(databaseName, byId, signs);
    if (!status) return status;
    CGetData::m_csaSignTable.clear();
    CGetData::m_csaSignNameTable.clear();
    for (const _SignInfo& sign : signs) {
        CGetData::m_csaSignTable.push_back(sign.sSign);
        CGetData::m_csaSignNameTable.push_back(sign.sSignName);
    }
    return status;
}

void clearCaches() {
    CGetData::m_pzAccountMInfo = nullptr;
    CGetData::m_csaSignTable.clear();
    CGetData::m_csaSignNameTable.clear();
    caches = {};
}

}  // namespace

std::span<const _CodeInfo> cachedAccounts() { return caches.accounts; }
std::span<const _CyrencyInfo> cachedCurrencies() { return caches.currencies; }
std::span<const _SettleInfo> cachedSettles() { return caches.settles; }

Status loadBooksParameters(const char* databaseName) {
    std::vector<_zAccountMInfo> rows;
    Status status = read(databaseName, nullptr, rows);
    if (!status) return status;
    if (rows.empty()) return Status::of(Failure::damaged, "zAccountM has no row");
    caches.parameters = std::move(rows.front());
    CGetData::m_pzAccountMInfo = &caches.parameters;
    return status;
}

BookLookups::BookLookups(const char* databaseName) {
    for (const auto load : {loadBooksParameters, loadAccounts, loadSigns}) {
        m_status = load(databaseName);
        if (!m_status) return;
    }
    m_status = read(databaseName, byId, caches.currencies);
    if (m_status) m_status = read(databaseName, byId, caches.settles);
}

BookLookups::~BookLookups() { clearCaches(); }

}  // namespace chengheng

using chengheng::caches;

int CGetData::LoadCODEINFOMemoryMapTable(const char* databaseName) {
    const auto status = chengheng::loadAccounts(databaseName);
    return chengheng::loaded(status, caches.accounts.size());
}

int CGetData::LoadCYRENCYINFOMemoryMapTable(const char* databaseName) {
    const auto status = chengheng::read(databaseName, chengheng::byId, caches.currencies);
    return chengheng::loaded(status, caches.currencies.size());
}

int CGetData::LoadSignMemoryMapTable(const char* databaseName) {
    const auto status = chengheng::loadSigns(databaseName);
    return chengheng::loaded(status, m_csaSignTable.size());
}

int CGetData::LoadSettleMemoryMapTable(const char* databaseName) {
    const auto status = chengheng::read(databaseName, chengheng::byId, caches.settles);
    return chengheng::loaded(status, caches.settles.size());
}

const _CodeInfo* CGetData::GetCODEINFOByCode(std::string_view code) {
    const auto found = caches.accountsByCode.find(code);
    return found == caches.accountsByCode.end() ? nullptr : found->second;
}

const _CyrencyInfo* CGetData::GetCYRENCYINFOByExchId(int currencyId) {
    const auto found = std::ranges::find(caches.currencies, currencyId, &_CyrencyInfo::lId);
    return found == caches.currencies.end() ? nullptr : &*found;
}
