#include "auxiliary/members/auxiliary_sql.h"
#include "books/demo/demo_parts.h"
#include "data/tables/directories.h"
#include "data/tables/operators.h"
#include "data/tables/vouchers.h"

namespace chengheng {
namespace {

constexpr std::uint8_t january = 1;

/// Posted and unposted vouchers count their ids together.
class VoucherWriter {
  public:
    explicit VoucherWriter(DemoBooks& books)
        : m_books(books), m_bookkeeper(books.idOf<_UsersInfo>(demo::bookkeeper)) {}

    Status write(const demo::Voucher& given) {
        _UnregMainInfo header;
        header.byPeroid = january;
        header.dtDate = {demo::year, january, given.day};
        header.sSign = given.type;
        header.lNumber = given.number;
        header.lAttach = 1;
        header.lUBill = m_bookkeeper;
        Status status = m_books.add(header, m_lastHeader);
        std::int32_t number = 0;
        for (const demo::VoucherLine& line : given.lines)
            if (status) status = writeLine(line, given.digest, ++number);
        return status;
    }

    Status setCounters() {
        return m_books.run(auxiliary_sql::setVoucherCounters(m_lastHeader, m_lastLine));
    }

  private:
    Status writeLine(const demo::VoucherLine& given, const char* digest, std::int32_t number) {
        _UnregSubInfo line;
        line.lTieId = m_lastHeader;
        line.lLine = number;
        line.sDigest = digest;
        line.lCodeId = m_books.accounts.at(given.code).lId;
        line.bDirect = given.isDebit ? 1 : 0;
        line.mMoney = given.money;
        line.dAmt = given.quantity;
        line.lEnterId = m_books.idOf<_EnterInfo>(given.unit);
        return m_books.add(line, m_lastLine);
    }

    DemoBooks& m_books;
    const std::int32_t m_bookkeeper;
    std::int32_t m_lastHeader = 0;
    std::int32_t m_lastLine = 0;
};

}  // namespace

Status writeDemoVouchers(DemoBooks& books) {
    VoucherWriter writer(books);
    Status status = Status::done();
    for (const demo::Voucher& given : demo::vouchers())
        if (status) status = writer.write(given);
    return status ? writer.setCounters() : status;
}

}  // namespace chengheng
