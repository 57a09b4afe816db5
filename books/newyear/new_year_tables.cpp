#include "books/newyear/new_year_tables.h"

#include <algorithm>
#include <array>

namespace chengheng {
namespace {

using Fate = NextYearFate;

constexpr std::array tables{
    TableOfNextYear{"BooksFormat", Fate::changed},
    TableOfNextYear{"ABIdTable", Fate::changed},
    TableOfNextYear{"zAccountM", Fate::changed},
    TableOfNextYear{"zCodeClass", Fate::taken},
    TableOfNextYear{"zAuth", Fate::taken},
    TableOfNextYear{"Code", Fate::taken},
    TableOfNextYear{"AccSum", Fate::left},
    TableOfNextYear{"AssAcc", Fate::left},
    TableOfNextYear{"Sign", Fate::taken},
    TableOfNextYear{"Settle", Fate::taken},
    TableOfNextYear{"Cyrency", Fate::taken},
    TableOfNextYear{"ExchgFix", Fate::made},
    TableOfNextYear{"ExchgFlt", Fate::made},
    TableOfNextYear{"Users", Fate::taken},
    TableOfNextYear{"UserAuth", Fate::taken},
    TableOfNextYear{"LoginInfoTbl", Fate::left},
    TableOfNextYear{"Dept", Fate::taken},
    TableOfNextYear{"Person", Fate::taken},
    TableOfNextYear{"EnterClass", Fate::taken},
    TableOfNextYear{"Enter", Fate::taken},
    TableOfNextYear{"ProjClass", Fate::taken},
    TableOfNextYear{"ProjCodes", Fate::taken},
    TableOfNextYear{"RegMain", Fate::left},
    TableOfNextYear{"RegSub", Fate::left},
    TableOfNextYear{"UnregMain", Fate::left},
    TableOfNextYear{"UnregSub", Fate::left},
    TableOfNextYear{"AutoMain", Fate::taken},
    TableOfNextYear{"AutoSub", Fate::taken},
    TableOfNextYear{"FreqSub", Fate::taken},
    TableOfNextYear{"_Digest", Fate::taken},
    TableOfNextYear{"RecpBank", Fate::left},
    TableOfNextYear{"RecpEnter", Fate::left},
    TableOfNextYear{"ZWPrintMain", Fate::taken},
    TableOfNextYear{"ZWPrintSub", Fate::taken},
    // Otherwise new books would be a way to begin counting wrong passwords anew.
    TableOfNextYear{"LogonTries", Fate::taken},
    TableOfNextYear{"OperationLog", Fate::left},
    TableOfNextYear{"OperationLogPart", Fate::left},
    TableOfNextYear{"OperationLogHead", Fate::left},
};

}  // namespace

std::span<const TableOfNextYear> tablesOfNextYear() { return tables; }

NextYearFate fateInNextYear(std::string_view table) {
    const auto found =
        std::ranges::find_if(tables, [table](const auto& known) { return known.table == table; });
    return found == tables.end() ? NextYearFate::taken : found->fate;
}

bool isTakenOver(std::string_view table) {
    const NextYearFate fate = fateInNextYear(table);
    return fate == NextYearFate::taken || fate == NextYearFate::changed;
}

}  // namespace chengheng
