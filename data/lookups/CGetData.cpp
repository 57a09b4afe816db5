#include "data/lookups/CGetData.h"

#include <algorithm>

#include "base/values/text.h"
#include "data/lookups/id_lookups.h"
#include "data/tables/accounts.h"
#include "data/tables/currency.h"

using chengheng::Directory;

namespace {

constexpr std::string_view codeSeparator = "   ";

constexpr Directory departments{"Dept", "sDeptCode", "sDeptName"};
constexpr Directory persons{"Person", "sPersonCode", "sPersonName"};
constexpr Directory units{"Enter", "sEnterCode", "sEnterName"};
constexpr Directory currencies{"Cyrency", "sExchCode", "sExchName"};

}  // namespace

int CGetData::GetCodeId(std::string_view code) {
    const _CodeInfo* const account = GetCODEINFOByCode(code);
    return account == nullptr ? 0 : account->lId;
}

int CGetData::GetCodeId_new(std::string_view code) { return chengheng::accountIdOf(code); }

int CGetData::GetDeptID(const char* databaseName, std::string_view nameOrCode) {
    return chengheng::idOf(departments, databaseName, nameOrCode);
}

int CGetData::GetPersonId(const char* databaseName, std::string_view nameOrCode) {
    return chengheng::idOf(persons, databaseName, nameOrCode);
}

int CGetData::GetUnitId(const char* databaseName, std::string_view nameOrCode) {
    return chengheng::idOf(units, databaseName, nameOrCode);
}

std::string CGetData::GetDeptName(const char* databaseName, int id) {
    return chengheng::nameOf(departments, databaseName, id);
}

std::string CGetData::GetPersonName(const char* databaseName, int id) {
    return chengheng::nameOf(persons, databaseName, id);
}

std::string CGetData::GetUnitName(const char* databaseName, int id) {
    return chengheng::nameOf(units, databaseName, id);
}

std::string CGetData::GetExchName(const char* databaseName, int currencyId) {
    const _CyrencyInfo* const currency = GetCYRENCYINFOByExchId(currencyId);
    if (currency != nullptr) return currency->sExchName;
    return chengheng::nameOf(currencies, databaseName, currencyId);
}

std::string CGetData::GetCode_Separator(std::string_view text) {
    return std::string(text.substr(0, text.find(codeSeparator)));
}

std::string CGetData::GetCode_Include(std::string_view code, std::span<const int> levelLengths) {
    const auto length = static_cast<int>(chengheng::characterCount(code));
    if (std::ranges::find(levelLengths, length) == levelLengths.end()) return std::string(code);
    std::string text;
    std::size_t before = 0;
    for (const int end : levelLengths) {
        if (end > length) break;
        const auto whole = chengheng::firstCharacters(code, static_cast<std::size_t>(end));
        if (!text.empty()) text += '-';
        text += whole.substr(before);
        before = whole.size();
    }
    return text;
}

std::optional<Date> CGetData::StringToTime(std::string_view text) {
    return chengheng::parseDate(chengheng::withoutBlanksAround(text));
}

Date CGetData::GetStartDate() {
    return m_pzAccountMInfo == nullptr ? Date{} : m_pzAccountMInfo->dtStart;
}

Date CGetData::GetYMonthDay(int month) {
    if (m_pzAccountMInfo == nullptr || month < 0 || month > 12) return {};
    const int year = m_pzAccountMInfo->lYear - (month == 0 ? 1 : 0);
    const int monthOfYear = month == 0 ? 12 : month;
    return {static_cast<std::int16_t>(year), static_cast<std::uint8_t>(monthOfYear),
            static_cast<std::uint8_t>(chengheng::daysInMonth(year, monthOfYear))};
}
