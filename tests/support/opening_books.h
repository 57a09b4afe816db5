#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "opening/screen/opening_work.h"
#include "tests/support/account_books.h"

namespace chengheng {

/// What openings() gives when every period has the value: "1=5 2=5 ... 12=5".
std::string allPeriods(const std::string& value);

/// Books whose opening balances are typed. Those that begin mid-year begin in March.
class OpeningTestBooks {
  public:
    explicit OpeningTestBooks(const std::string& location,
                              OpeningLayout layout = OpeningLayout::simple, bool isNew = true);

    AccountBooks& books() { return m_books; }
    CNbCwDB& database() { return m_books.database(); }
    RecordingMessages& messages() { return m_books.messages(); }
    OpeningWork& work() { return m_work; }

    /// Adds debit accounts of the class 资产; the parent's end flag is seen to.
    void addAccounts(const std::vector<std::string>& codes);
    void addCredit(const std::string& code, const std::string& type = "负债");
    /// Changes an account that is there: "lDirect = 0".
    void change(const std::string& code, const std::string& assignment);
    int idOf(const std::string& code) { return m_books.account(code).lId; }

    /// Types into a cell of an account; true when it was written.
    bool type(const std::string& code, std::string_view text, Measure measure = Measure::money,
              OpeningField field = OpeningField::opening);
    /// What the sheet shows there.
    std::string shown(const std::string& code, Measure measure = Measure::money,
                      OpeningField field = OpeningField::opening);
    std::size_t lineOf(const std::string& code, Measure measure = Measure::money);

    /// A voucher of a period, which makes the sheet one for browsing.
    void addVoucher();
    /// Rows of period sums of an account without figures: periods 1 to the number.
    void addRows(const std::string& code, int count, double opening = 0);

    /// Every row of period sums, with ids: "5: 1001 1 begin 500 ...", only figures not 0.
    std::vector<std::string> rows();
    /// Those of one account.
    std::vector<std::string> rowsOf(const std::string& code);
    /// The rows of an account in short: opening of each period, such as "1=5 2=5 ...".
    std::string openings(const std::string& code);
    /// What the rows of all accounts above others hold that a save would change.
    std::vector<std::string> whatASaveWouldChange();

  private:
    AccountBooks m_books;
    OpeningWork m_work{m_books.messages()};
};

/// Begins an edit and saves, as the window does on leaving it.
inline bool save(OpeningTestBooks& books) {
    books.work().beginEdit();
    return books.work().save() == Outcome::done;
}

}  // namespace chengheng
