#pragma once

#include <optional>
#include <vector>

#include "operators/operator_rules.h"
#include "session/record_change.h"
#include "session/rights/passwords.h"

namespace chengheng {

/// Reads and changes the operators of the open set of books and their rights. Whatever does not
/// give `done` has told why, but for `stale`: then the operator that was to be changed is no
/// longer there, and mayReadAgain asks what to do. Changes hold their locks across checks and
/// writing.
class OperatorService {
  public:
    explicit OperatorService(IMessages& messages, PasswordCost cost = PasswordCost::usual)
        : m_messages(messages), m_cost(cost) {}

    /// Every operator with his rights; nothing when they cannot be read, or are not one to one.
    std::optional<std::vector<OperatorRecord>> readAll();

    /// Reads whether an operator is to choose a new password at the next log-on; false when it
    /// cannot be read, which has been told.
    bool readMark(OperatorRecord& record);

    /// Adds an operator without rights. A refusal that keeps the dialog open names the field.
    Outcome add(const OperatorInput& input, OperatorRecord& added);
    /// Writes what the input makes other: the name, the password unless both are empty, whether a
    /// new one is to be chosen. What
    /// else is stored by now stays. `changed` takes it over when it is done.
    Outcome modify(const OperatorInput& input, OperatorRecord& changed);
    /// Makes the change on the rights as they are stored by now and brings those back.
    Outcome saveRights(const RightsChange& change, OperatorRecord& changed);
    /// Asks and deletes; null: none is selected. One who has gone already is deleted.
    Outcome remove(const OperatorRecord* record);

    /// Asks and makes an operator a supervisor, or a supervisor an operator with the rights stored.
    Outcome setSupervisor(bool isSupervisor, OperatorRecord& changed);

    /// Whether the operators are to be read anew, as the one to be changed has gone.
    bool mayReadAgain();

  private:
    IMessages& m_messages;
    PasswordCost m_cost;
};

}  // namespace chengheng
