#include "auxiliary/transfer/entry_import.h"

#include <fmt/format.h>

#include "accounts/chart/account_sql.h"
#include "auxiliary/entries/entry_reading.h"
#include "auxiliary/transfer/transfer_texts.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/lookups/cached_records.h"
#include "opening/storing/opening_reading.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "sheets/files/sheet_export.h"
#include "sheets/files/sheet_files.h"

namespace chengheng {
namespace {

/// What a plan is held against, as the books are now.
struct BooksNow {
    EntryDirectory directory;
    BookRecords records;
    std::vector<AuxiliaryEntry> entries;
    bool isBrowsing = false;
};

Status readBooksNow(const AuxiliaryMember& member, const AuxiliaryAccount& account,
                    BooksNow& books) {
    Status status = selectOpenBooks();
    if (status) status = readIsBrowsing(*g_pDB, books.isBrowsing);
    if (status) status = readBookRecords(*g_pDB, books.records);
    if (status) status = readEntryDirectory(*g_pDB, member, account.id, books.directory);
    return status ? readEntries(*g_pDB, member, account, books.entries) : status;
}

}  // namespace

std::optional<EntryPlan> EntryImport::planFile(const std::string& path) {
    Sheet file;
    EntrySheet sheet;
    auto failure = readSheet(path, file);
    if (!failure) {
        failure = sheet.read(std::move(file), m_member);
        if (failure) failure = whileReading(std::move(*failure), path);
    }
    if (failure) {
        m_messages.tell(sheetWarning(failure->text()));
        return std::nullopt;
    }
    return plan(sheet);
}

std::optional<EntryPlan> EntryImport::planBlock(Sheet block,
                                                std::span<const char* const> captions) {
    EntrySheet sheet;
    if (const auto failure = sheet.read(std::move(block), m_member, captions)) {
        m_messages.tell(sheetWarning(failure->text()));
        return std::nullopt;
    }
    return plan(sheet);
}

std::optional<EntryPlan> EntryImport::plan(const EntrySheet& sheet) {
    BooksNow books;
    if (!readBooksNow(m_member, m_account, books)) {
        tellLastFailure(m_messages);
        return std::nullopt;
    }
    return planEntries(sheet, {.member = m_member,
                               .account = m_account,
                               .day = openingEntryDay(books.records.parameters.dtStart),
                               .directory = books.directory,
                               .voucherTypes = books.records.signs,
                               .entries = books.entries,
                               .isBrowsing = books.isBrowsing});
}

Outcome exportEntries(IMessages& messages, const AuxiliaryMember& member,
                      const AuxiliaryAccount& account, std::span<const AuxiliaryEntry> entries,
                      const std::string& path, Overwrite overwrite) {
    EntryDirectory directory;
    if (!selectOpenBooks() || !readEntryDirectory(*g_pDB, member, account.id, directory))
        return told(messages, UntoldOutcome::failed());
    return exportSheet(messages, exportedEntries(member, account, entries, directory), path,
                       overwrite);
}

Outcome findEntryAccount(IMessages& messages, std::string_view code, EntryAccount& found) {
    const auto read = [&]() -> UntoldOutcome {
        if (!selectOpenBooks()) return UntoldOutcome::failed();
        const std::string condition = account_sql::ofCode(code);
        const RowLease<_CodeInfo> lease(*g_pDB, condition.c_str());
        if (!lease.isRead()) return UntoldOutcome::failed();
        const auto refused = [code](fmt::format_string<std::string_view&> text) {
            std::string_view shown = code;
            return UntoldOutcome::refused(sheetWarning(fmt::format(text, shown)));
        };
        if (!lease.isFound()) return refused(transfer_texts::accountUnknown);
        const _CodeInfo& stored = *lease.rows().front();
        if (stored.bEnd == 0) return refused(transfer_texts::accountNotEnd);
        const AuxiliaryKind kind = auxiliaryKindOf(stored.sAssBook);
        if (kind == AuxiliaryKind::none) return refused(transfer_texts::accountWithoutEntries);
        found = {&memberOf(kind), auxiliaryAccount(stored)};
        return UntoldOutcome::done();
    };
    return told(messages, read());
}

}  // namespace chengheng
