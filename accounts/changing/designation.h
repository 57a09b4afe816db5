#pragma once

#include <string>
#include <vector>

#include "base/messages/messages.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// The two lists of the dialog 指定科目.
struct DesignationChoices {
    std::vector<std::string> accounts;  ///< "1001   库存现金", the top level in code order
    int cash = -1;                      ///< position of the account designated; -1: none
    int bank = -1;
};

/// The choices among the top-level accounts.
DesignationChoices designationChoices(const std::vector<_CodeInfo>& topLevel);

/// Names one top-level account the cash account and one the bank account of the open set of
/// books (g_pDB). The accounts below them are marked alike.
class DesignationService {
  public:
    explicit DesignationService(IMessages& messages) : m_messages(messages) {}

    /// Empty lists for a chart without accounts, and when it cannot be read, which is told.
    DesignationChoices choices();

    /// Takes the texts chosen in both lists. True when the dialog is to close: the accounts are
    /// designated, or the operator gave up. What keeps it open has been told.
    bool designate(const std::string& cashText, const std::string& bankText);

  private:
    IMessages& m_messages;
};

}  // namespace chengheng
