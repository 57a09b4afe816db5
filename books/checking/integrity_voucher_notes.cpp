#include <fmt/format.h>

#include <map>
#include <vector>

#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/tables/settlement.h"
#include "data/transfer/stored_tables.h"
#include "vouchertype/restriction/voucher_restriction.h"

namespace chengheng {
namespace {

using RestrictedTypes = std::map<std::string, _SignInfo, std::less<>>;
using AccountNames = std::map<std::string_view, std::string_view>;

/// One of the two pairs of tables that hold vouchers.
struct VoucherTables {
    const char* headers;
    const char* lines;
    const char* state;
};
constexpr VoucherTables voucherTables[] = {
    {"UnregMain", "UnregSub", integrity_texts::unposted},
    {"RegMain", "RegSub", integrity_texts::posted},
};

struct StoredVoucher {
    std::int64_t id = 0;
    std::string type;
    std::int64_t number = 0;
    std::string date;
    std::vector<VoucherLine> lines;
};

/// Of a line that moves foreign money or a quantity alone, that.
double amountOf(const Cursor& row) {
    for (const int column : {6, 7})
        if (row.real(column) != 0) return row.real(column);
    return row.real(8);
}

/// Holds each voucher against its type once all of its lines have come.
class RestrictionNotes {
  public:
    RestrictionNotes(CheckedBooks& books, FaultList& notes) : m_books(books), m_notes(notes) {
        for (const CheckedAccount& account : books.accounts())
            m_names.emplace(account.code, account.name);
    }

    Status readTypes() {
        return forEachRow(
            m_books.engine(), integrity_sql::restrictedTypes, {}, [this](const Cursor& row) {
                _SignInfo type;
                type.sSign = row.text(0);
                type.byLimit = static_cast<std::uint8_t>(row.integer(1));
                type.sCode1 = row.text(2);
                type.sCode2 = row.text(3);
                if (const std::string fault = restrictionFault(type); !fault.empty())
                    m_notes.add(fmt::format(integrity_texts::typeWrong, type.sSign, fault));
                else
                    m_types.try_emplace(type.sSign, type);
                return Status::done();
            });
    }

    Status readVouchers(const VoucherTables& tables) {
        StoredVoucher voucher;
        const std::string sql =
            integrity_sql::linesOfRestrictedVouchers(tables.headers, tables.lines);
        const Status status = forEachRow(m_books.engine(), sql, {}, [&](const Cursor& row) {
            if (row.integer(0) != voucher.id) {
                note(voucher, tables.state);
                voucher = {.id = row.integer(0),
                           .type = std::string(row.text(1)),
                           .number = row.integer(2),
                           .date = std::string(row.text(3)),
                           .lines = {}};
            }
            if (row.integer(9) != 0)
                voucher.lines.push_back({.number = static_cast<int>(voucher.lines.size()) + 1,
                                         .account = codeOf(row.integer(4)),
                                         .isDebit = row.integer(5) != 0,
                                         .amount = amountOf(row)});
            return Status::done();
        });
        note(voucher, tables.state);
        return status;
    }

  private:
    void note(const StoredVoucher& voucher, const char* state) {
        const auto type = m_types.find(voucher.type);
        if (voucher.id == 0 || type == m_types.end()) return;
        const auto nameOf = [this](std::string_view code) {
            const auto found = m_names.find(code);
            return found == m_names.end() ? std::string() : std::string(found->second);
        };
        const auto breach =
            restrictionBreach(type->second, voucher.lines, m_books.levels(), nameOf);
        if (breach)
            m_notes.add(fmt::format(integrity_texts::voucherBreaks, voucher.type, voucher.number,
                                    voucher.date, state, breach->text));
    }

    std::string codeOf(std::int64_t id) const {
        const CheckedAccount* account = m_books.findAccount(static_cast<int>(id));
        return account == nullptr ? std::string() : account->code;
    }

    CheckedBooks& m_books;
    FaultList& m_notes;
    RestrictedTypes m_types;
    AccountNames m_names;
};

}  // namespace

Status noteRestrictions(CheckedBooks& books, FaultList& notes) {
    RestrictionNotes restrictions(books, notes);
    Status status = restrictions.readTypes();
    for (const VoucherTables& tables : voucherTables)
        if (status) status = restrictions.readVouchers(tables);
    return status;
}

}  // namespace chengheng
