#include <algorithm>
#include <tuple>
#include <vector>

#include "auxiliary/members/auxiliary_sql.h"
#include "base/values/numbers.h"
#include "books/demo/demo_parts.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "data/tables/directories.h"
#include "data/tables/operators.h"
#include "data/tables/vouchers.h"
#include "opening/storing/opening_reading.h"
#include "opening/storing/posting.h"

namespace chengheng {
namespace {

constexpr int periods = 12;
constexpr int moneyDecimals = 2;

/// The day before the books begin.
constexpr Date entryDate{demo::year - 1, 12, 31};

/// An opening entry is a voucher of one line in no period.
_RegMainInfo headerOf(const DemoBooks& books, std::int32_t number) {
    _RegMainInfo header;
    header.dtDate = entryDate;
    header.sSign = demo::transferVoucherType;
    header.lNumber = number;
    header.lUBill = books.idOf<_UsersInfo>(demo::bookkeeper);
    return header;
}

_RegSubInfo lineOf(const DemoBooks& books, const demo::Entry& entry, std::int32_t header) {
    const _CodeInfo& account = books.accounts.at(entry.code);
    const std::string_view person = entry.person;
    _RegSubInfo line;
    line.lTieId = header;
    line.lLine = 1;
    line.sDigest = entry.digest;
    line.lCodeId = account.lId;
    line.bDirect = account.bDirect;
    line.mMoney = entry.money;
    line.lDeptId = books.idOf<_DeptInfo>(entry.department);
    if (!person.empty()) line.lPersonId = books.idOf<_PersonInfo>(person);
    line.lEnterId = books.idOf<_EnterInfo>(entry.unit);
    if (const auto item = books.items.find(entry.item); item != books.items.end()) {
        line.lItemId = item->second.id;
        line.sItemId = item->second.classCode;
    }
    line.sStlId = entry.settlement;
    line.bBegin = 1;
    return line;
}

_AssAccInfo auxiliaryOf(const _RegSubInfo& line) {
    _AssAccInfo sums;
    sums.lCodeId = line.lCodeId;
    sums.lItemId = line.lItemId;
    sums.lDeptId = line.lDeptId;
    sums.lPersonId = line.lPersonId;
    sums.lEnterId = line.lEnterId;
    sums.sItemId = line.sItemId;
    return sums;
}

auto dimensionsOf(const _AssAccInfo& sums) {
    return std::tie(sums.lCodeId, sums.lItemId, sums.lDeptId, sums.lPersonId, sums.lEnterId,
                    sums.sItemId);
}

/// The auxiliary sums of the entries, one for each combination of dimensions.
void addToAuxiliary(std::vector<_AssAccInfo>& auxiliary, const _RegSubInfo& line) {
    const _AssAccInfo wanted = auxiliaryOf(line);
    auto found = std::ranges::find_if(auxiliary, [&wanted](const _AssAccInfo& sums) {
        return dimensionsOf(sums) == dimensionsOf(wanted);
    });
    if (found == auxiliary.end()) found = auxiliary.insert(found, wanted);
    found->mBegin += line.mMoney;
    Round(found->mBegin, moneyDecimals);
}

Status writeEntries(DemoBooks& books, std::vector<_AssAccInfo>& auxiliary) {
    std::int32_t header = 0;
    std::int32_t lastLine = 0;
    std::int32_t number = 0;
    for (const demo::Entry& entry : demo::entries()) {
        if (Status status = books.add(headerOf(books, ++number), header); !status) return status;
        const _RegSubInfo line = lineOf(books, entry, header);
        if (Status status = books.add(line, lastLine); !status) return status;
        addToAuxiliary(auxiliary, line);
    }
    return books.run(auxiliary_sql::setVoucherCounters(header, lastLine));
}

Status writeAuxiliary(DemoBooks& books, const std::vector<_AssAccInfo>& auxiliary) {
    Status status = Status::done();
    for (_AssAccInfo sums : auxiliary) {
        for (int period = 1; status && period <= periods; ++period) {
            sums.byPeroid = static_cast<std::uint8_t>(period);
            status = books.add(sums);
        }
    }
    return status;
}

/// Adds to the figures of an end account.
void addTo(OpeningSheet& sheet, const char* code, double money, double foreign, double quantity) {
    const auto place = sheet.placeOfCode(code);
    if (!place) return;
    const double added[] = {money, foreign, quantity};
    for (const Measure measure : measures) {
        double& opening = sheet.accounts()[*place].balance(measure).opening;
        opening += added[static_cast<std::size_t>(measure)];
        Round(opening, decimalsOf(measure));
    }
}

/// The sums of every account, those above end accounts by the roll-up of the opening balances.
Status writeSums(DemoBooks& books) {
    OpeningBooks opening;
    Status status = readOpeningBooks(books.database(), opening);
    OpeningSheet& sheet = opening.sheet;
    for (const demo::Opening& given : demo::openings())
        addTo(sheet, given.code, given.money, given.foreign, given.quantity);
    for (const demo::Entry& entry : demo::entries()) addTo(sheet, entry.code, entry.money, 0, 0);
    sheet.rollUp();
    for (const OpeningAccount& account : sheet.accounts())
        if (status) status = postAccount(books.database(), account, sheet.layout());
    return status;
}

}  // namespace

Status writeDemoOpenings(DemoBooks& books) {
    std::vector<_AssAccInfo> auxiliary;
    Status status = writeEntries(books, auxiliary);
    if (status) status = writeAuxiliary(books, auxiliary);
    return status ? writeSums(books) : status;
}

}  // namespace chengheng
