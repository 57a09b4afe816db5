#include "operationlog/verifying/log_verification.h"

#include <fmt/format.h>

#include "operationlog/log_filter.h"
#include "operationlog/log_names.h"
#include "operationlog/verifying/verifying_texts.h"

namespace chengheng {
namespace {

/// Whether the fault lies in what a seal is about.
bool isWithin(const LogFault& fault, const LogSeal& seal) {
    return fault.first > 0 && fault.first <= seal.end.number;
}

bool isWhole(const LogSeal& seal, const ChainFindings& chain) {
    if (chain.fault && isWithin(*chain.fault, seal)) return false;
    return chain.sealedHash == seal.end.hash && chain.sealedTime == seal.end.time;
}

Status verify(Engine& engine, const std::optional<LogSeal>& seal, LogVerification& result) {
    Status status = checkChain(engine, seal ? seal->end.number : 0, result.chain);
    if (status) status = countStrayParts(engine, result.strayParts);
    if (status) status = checkRows(engine, result.rows);
    if (status && seal) result.isSealWhole = isWhole(*seal, result.chain);
    return status;
}

}  // namespace

Status verifyLog(Engine& engine, const std::optional<LogSeal>& seal, LogVerification& result) {
    result = {};
    Status status = engine.beginReading();
    if (!status) return status;
    status = verify(engine, seal, result);
    const Status ended = engine.rollback();
    return status ? ended : status;
}

std::string textOf(const LogFault& fault) {
    using namespace verifying_texts;
    const bool isOne = fault.first == fault.last;
    switch (fault.kind) {
        case Tampering::takenOut:
            return isOne ? fmt::format(takenOut, fault.first)
                         : fmt::format(severalTakenOut, fault.first, fault.last);
        case Tampering::changed:
            return fmt::format(changed, fault.first);
        case Tampering::exchanged:
            return fmt::format(exchanged, fault.first);
        case Tampering::putIn:
            return isOne ? fmt::format(putIn, fault.first)
                         : fmt::format(severalPutIn, fault.first, fault.last);
        case Tampering::partsChanged:
            return fmt::format(partsChanged, fault.first);
        case Tampering::headGone:
            return headGone;
        case Tampering::headChanged:
            break;
    }
    return headChanged;
}

std::string textOf(const RowFault& fault) {
    using namespace verifying_texts;
    const std::string table = shownTable(fault.table);
    switch (fault.kind) {
        case RowFault::Kind::gone:
            return fmt::format(rowGone, table, fault.id, fault.entry);
        case RowFault::Kind::cameBack:
            return fmt::format(rowCameBack, table, fault.id, fault.entry);
        case RowFault::Kind::untold:
            return fmt::format(rowsUntold, table, fault.entry);
        case RowFault::Kind::differs:
            break;
    }
    return fmt::format(rowDiffers, table, fault.id, shownColumn(fault.table, fault.column),
                       shownLogCell(fault.table, fault.column, fault.found), fault.entry,
                       shownLogCell(fault.table, fault.column, fault.told));
}

std::string textOf(const LogSeal& seal, bool isWhole) {
    using namespace verifying_texts;
    const std::string time = shownLogTime(seal.end.time);
    return isWhole ? fmt::format(sealWhole, seal.end.number, time)
                   : fmt::format(sealBroken, seal.end.number, time);
}

std::vector<std::string> faultTexts(const LogVerification& result) {
    std::vector<std::string> texts;
    if (result.chain.fault) texts.push_back(textOf(*result.chain.fault));
    if (result.strayParts > 0)
        texts.push_back(fmt::format(verifying_texts::strayParts, result.strayParts));
    for (const RowFault& fault : result.rows.faults) texts.push_back(textOf(fault));
    return texts;
}

}  // namespace chengheng
