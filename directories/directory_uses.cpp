#include "directories/directory_uses.h"

#include <array>

#include "data/access/row_lease.h"
#include "data/tables/balances.h"
#include "data/tables/directories.h"
#include "data/tables/settlement.h"
#include "data/tables/vouchers.h"
#include "directories/directory_sql.h"
#include "directories/directory_store.h"
#include "directories/directory_texts.h"
#include "directories/project_items.h"
#include "directories/run_batch.h"

namespace chengheng {
namespace {

namespace texts = directory_texts;

/// What is looked for: a record, and the code of the class that items of it, or it, stand under.
struct Sought {
    DirectoryKind kind;
    const DirectoryRecord& record;
    std::string classCode = {};

    std::string naming() const { return directory_sql::naming(kind, record.id, classCode); }
};

template <class Row>
Status readAny(CNbCwDB& database, const std::string& condition, bool& isFound) {
    const auto found = hasRows<Row>(database, condition);
    isFound = found.value_or(false);
    return found ? Status::done() : database.lastStatus();
}

Status inOpeningEntries(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_RegSubInfo>(database, directory_sql::openingLines(sought.naming()), isFound);
}
Status inPostedVouchers(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_RegSubInfo>(database, directory_sql::voucherLines(sought.naming()), isFound);
}
Status inOpenVouchers(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_UnregSubInfo>(database, sought.naming(), isFound);
}
Status inBalances(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_AssAccInfo>(database, directory_sql::movedBalances(sought.naming()), isFound);
}
Status inPersons(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_PersonInfo>(database, directory_sql::personsOf(sought.record.id), isFound);
}
Status inUnits(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_EnterInfo>(database, directory_sql::unitsOf(sought.record.id), isFound);
}
Status inReconciliations(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_RecpEnterInfo>(database, directory_sql::reconciliationsOf(sought.record.id),
                                   isFound);
}
Status inItems(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readHasItems(database, sought.classCode, isFound);
}
Status inAccounts(CNbCwDB& database, const Sought& sought, bool& isFound) {
    return readAny<_ProjCodesInfo>(database, directory_sql::accountsOf(sought.classCode), isFound);
}

struct Place {
    const char* words;
    Status (*isUsedThere)(CNbCwDB& database, const Sought& sought, bool& isFound);
};

constexpr Place opening{texts::openingEntries, inOpeningEntries};
constexpr Place posted{texts::postedVouchers, inPostedVouchers};
constexpr Place unposted{texts::openVouchers, inOpenVouchers};
constexpr Place balances{texts::auxiliaryBalances, inBalances};

constexpr std::array ofDepartment{Place{texts::personDirectory, inPersons}, opening, posted,
                                  unposted, balances};
constexpr std::array ofPerson{opening, posted, unposted, balances};
constexpr std::array ofUnitClass{Place{texts::unitDirectory, inUnits}};
constexpr std::array ofUnit{opening, posted, unposted, balances,
                            Place{texts::unitReconciliation, inReconciliations}};
constexpr std::array ofProjectClass{Place{texts::itemDirectory, inItems},
                                    Place{texts::accountProjects, inAccounts},
                                    opening,
                                    posted,
                                    unposted,
                                    balances};

std::span<const Place> placesOf(DirectoryKind kind) {
    switch (kind) {
        case DirectoryKind::department:
            return ofDepartment;
        case DirectoryKind::unitClass:
            return ofUnitClass;
        case DirectoryKind::unit:
            return ofUnit;
        case DirectoryKind::projectClass:
            return ofProjectClass;
        case DirectoryKind::person:
        case DirectoryKind::projectItem:
            break;
    }
    return ofPerson;
}

Status readSought(CNbCwDB& database, Sought& sought) {
    if (sought.kind == DirectoryKind::projectClass) sought.classCode = sought.record.code;
    if (sought.kind != DirectoryKind::projectItem) return Status::done();
    return readClassCode(database, sought.record.group, sought.classCode);
}

}  // namespace

Status readUses(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& record,
                std::string& places) {
    places.clear();
    Sought sought{.kind = kind, .record = record};
    Status status = readSought(database, sought);
    for (const Place& place : placesOf(kind)) {
        bool isFound = false;
        if (status) status = place.isUsedThere(database, sought, isFound);
        if (!isFound) continue;
        if (!places.empty()) places += texts::placeBetween;
        places += place.words;
    }
    return status;
}

Status deleteEmptyBalances(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& record) {
    if (kind == DirectoryKind::unitClass) return Status::done();
    Sought sought{.kind = kind, .record = record};
    const Status status = readSought(database, sought);
    if (!status) return status;
    return runBatch(database, directory_sql::deleteBalances(sought.naming()));
}

}  // namespace chengheng
