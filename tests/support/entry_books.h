#pragma once

#include <string>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/entries/entry_service.h"
#include "auxiliary/members/auxiliary_member.h"
#include "tests/support/opening_books.h"

namespace chengheng {

/// Books with an account for each kind of auxiliary accounting, 2001 to 2007 in the order of the
/// members, and two departments, persons, units and project items to choose from: 销售部 with
/// 张三, 生产部 with 李四; 甲公司, 乙公司; 一期, 二期 of the project class 01.
class EntryBooks {
  public:
    explicit EntryBooks(const std::string& location, OpeningLayout layout = OpeningLayout::simple,
                        bool isNew = true);

    OpeningTestBooks& opening() { return m_opening; }
    AccountBooks& books() { return m_opening.books(); }
    CNbCwDB& database() { return m_opening.database(); }
    RecordingMessages& messages() { return m_opening.messages(); }
    EntryService service(const AuxiliaryMember& member) { return {messages(), member}; }

    AuxiliaryAccount account(const AuxiliaryMember& member);
    /// An entry of the first (1) or the second (2) of everything.
    static AuxiliaryEntry entry(const AuxiliaryMember& member, int which, double money,
                                bool isDebit = true);
    /// The entries as they are stored now.
    std::vector<AuxiliaryEntry> stored(const AuxiliaryMember& member);

    /// What the auxiliary sums of a combination hold: "1=5 2=5 ... 12=5" of money.
    std::string auxiliary(const AuxiliaryMember& member, int which);
    /// Every row that an entry writes: headers, lines, sums, counters.
    std::vector<std::string> rows();
    /// Whether lines, auxiliary sums and period sums of the account say the same.
    bool agree(const AuxiliaryMember& member);

  private:
    OpeningTestBooks m_opening;
};

/// The code of a member's account.
std::string accountCode(const AuxiliaryMember& member);

}  // namespace chengheng
