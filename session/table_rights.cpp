#include "session/table_rights.h"

#include <algorithm>
#include <cctype>

#include "base/values/text.h"
#include "data/tables/schema.h"
#include "session/rights_list.h"
#include "session/rights_texts.h"

namespace chengheng {
namespace {

using Grants = std::vector<TableGrant>;

constexpr const char* logParts = "OperationLogPart";
constexpr const char* itemTables = "ProjItems";

/// A directory takes the empty sums of what it deletes along.
Grants directoryGrants(std::initializer_list<const char*> tables) {
    Grants grants;
    for (const char* table : tables) grants.push_back({table, toWrite});
    grants.push_back({"AssAcc", toDelete, RowRule::emptyDetails});
    return grants;
}

const Grants& transferDefinitions() {
    static const Grants grants{{"AutoMain", toWrite}, {"AutoSub", toWrite}};
    return grants;
}

/// A transfer makes vouchers that somebody else is to check.
const Grants& transferVouchers() {
    static const Grants grants{{"UnregMain", toAdd, RowRule::uncheckedHeaders},
                               {"UnregSub", toAdd, RowRule::uncheckedLines}};
    return grants;
}

std::vector<FunctionGrants> writingFunctions() {
    return {
        {1, directoryGrants({"Person"})},
        {8, directoryGrants({"Dept"})},
        {13, directoryGrants({itemTables})},
        // To add or delete a class is to make or drop its table, which only their owner can.
        {14, {{"ProjClass", toChange, RowRule::any, "sClsName"}}},
        {23, transferDefinitions()},
        {24, transferVouchers()},
        {25, transferDefinitions()},
        {26, transferVouchers()},
        {27, transferDefinitions()},
        {28, transferVouchers()},
        {29, transferDefinitions()},
        {30, transferVouchers()},
        {31, transferDefinitions()},
        {32, transferVouchers()},
        {36,
         {{"RegMain", toChange | toDelete},
          {"RegSub", toChange | toDelete},
          {"UnregMain", toAdd},
          {"UnregSub", toAdd},
          {"AccSum", toWrite},
          {"AssAcc", toWrite}}},
        {40, {{"zAccountM", toChange, RowRule::any, "sName, sCompany, bFgn, sCodeLen, dtStart"}}},
        {41, {{"Code", toWrite}}},
        {43,
         {{"AccSum", toWrite},
          {"AssAcc", toWrite},
          {"Code", toChange, RowRule::any, "bDirect"},
          {"RegMain", toAdd, RowRule::openingHeaders},
          {"RegMain", toChange | toDelete, RowRule::noVoucherHeaders},
          {"RegSub", toWrite, RowRule::openingLines}}},
        {45, {{"AccSum", toWrite}, {"AssAcc", toWrite}}},
        {46, {{"Cyrency", toWrite}, {"ExchgFix", toWrite}, {"ExchgFlt", toWrite}}},
        {48,
         {{"UnregMain", toWrite, RowRule::uncheckedHeaders},
          {"UnregSub", toWrite, RowRule::uncheckedLines}}},
        {49, {{"UnregMain", toChange, RowRule::any, "lUCheck"}}},
        {51,
         {{"RegMain", toAdd},
          {"RegSub", toAdd},
          {"UnregMain", toDelete},
          {"UnregSub", toDelete},
          {"AccSum", toAdd | toChange},
          {"AssAcc", toAdd | toChange}}},
        {52, {{"Sign", toWrite}}},
        {55, {{"FreqSub", toWrite}}},
        {56, {{"_Digest", toWrite}}},
        {57, {{"Settle", toWrite}}},
        {63, {{"RecpBank", toWrite}}},
        {75, directoryGrants({"EnterClass", "Enter"})},
        {79, {{"RecpEnter", toWrite}}},
    };
}

/// Functions that write nothing into these tables: what only reads, what works on books as a
/// whole and so needs their owner (重建帐, 数据恢复, 删除往年数据), and what has no table here.
constexpr int readingFunctions[] = {2,  3,  4,  5,  6,  7,  9,  10, 11, 12, 15, 16, 17,
                                    18, 19, 20, 21, 22, 33, 34, 35, 37, 38, 39, 42, 44,
                                    47, 50, 53, 54, 58, 59, 60, 61, 62, 64, 65, 66, 67,
                                    68, 69, 70, 71, 72, 73, 74, 76, 77, 78, 80, 81, 82};

std::vector<FunctionGrants> allFunctions() {
    std::vector<FunctionGrants> all = writingFunctions();
    for (const int function : readingFunctions) all.push_back({function, {}});
    std::ranges::sort(all, {}, &FunctionGrants::function);
    return all;
}

bool isFor(const TableGrant& grant, std::string_view table, unsigned uses) {
    const bool isItems =
        std::string_view(grant.table) == itemTables &&
        table.size() > std::string_view(itemTables).size() &&
        isSameInAnyCase(table.substr(0, std::string_view(itemTables).size()), itemTables);
    return (grant.uses & uses) != 0 && (isItems || isSameInAnyCase(grant.table, table));
}

bool grantsAny(std::span<const TableGrant> grants, std::string_view table, unsigned uses) {
    return std::ranges::any_of(grants,
                               [&](const TableGrant& grant) { return isFor(grant, table, uses); });
}

bool isOfName(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

}  // namespace

std::span<const FunctionGrants> functionGrants() {
    static const std::vector<FunctionGrants> all = allFunctions();
    return all;
}

std::span<const TableGrant> everybodysGrants() {
    static const Grants grants = [] {
        Grants made;
        for (const TableInfo& table : allTables())
            if (!grantsAny(supervisorsGrants(), table.name, toRead) && table.name != logParts)
                made.push_back({table.name.c_str(), toRead});
        made.push_back({itemTables, toRead});
        made.push_back({"ABIdTable", toChange, RowRule::ownCounters, "lLastId"});
        made.push_back({"LoginInfoTbl", toAdd | toDelete});
        made.push_back({"OperationLog", toAdd});
        made.push_back({logParts, toAdd});
        made.push_back({"OperationLogHead", toAdd | toChange});
        return made;
    }();
    return grants;
}

std::span<const TableGrant> plainOperatorsGrants() {
    static const Grants grants{
        {"Users", toRead, RowRule::ownOperator},
        {"Users", toChange, RowRule::ownOperator, "sPassword"},
        {"UserAuth", toRead, RowRule::ownOperator},
        {"LogonTries", toRead | toAdd | toChange, RowRule::ownTries},
        {logParts, toRead, RowRule::othersThanUsers},
    };
    return grants;
}

std::span<const TableGrant> supervisorsGrants() {
    static const Grants grants{
        {"Users", toRead | toWrite}, {"UserAuth", toRead | toWrite},
        {"LoginInfoTbl", toChange},  {"LogonTries", toRead | toAdd | toChange},
        {logParts, toRead},
    };
    return grants;
}

std::string grantingRights(std::string_view table, unsigned uses) {
    std::string granting;
    const auto add = [&granting](const char* name) {
        if (!granting.empty()) granting += rights_texts::betweenRights;
        granting += '[' + std::string(name) + ']';
    };
    for (const FunctionGrants& each : functionGrants())
        if (grantsAny(each.grants, table, uses)) add(functionName(each.function));
    if (grantsAny(supervisorsGrants(), table, uses)) add(rights_texts::supervisor);
    return granting;
}

std::string tableInWords(std::string_view words) {
    std::string_view rest = words;
    while (!rest.empty()) {
        const auto* const first = std::ranges::find_if(rest, isOfName);
        rest.remove_prefix(static_cast<std::size_t>(first - rest.begin()));
        const auto* const last = std::ranges::find_if_not(rest, isOfName);
        const std::string_view word = rest.substr(0, static_cast<std::size_t>(last - rest.begin()));
        rest.remove_prefix(word.size());
        for (const TableInfo& table : allTables())
            // "code", "users" and their like are words, too; a server writes names in small
            // letters.
            if (word == inSmallLetters(table.name)) return table.name;
        if (word.starts_with("projitems") && word.size() > std::string_view(itemTables).size())
            return std::string(word);
    }
    return {};
}

}  // namespace chengheng
