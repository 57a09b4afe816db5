#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "data/access/table_locks.h"
#include "session/record_change.h"
#include "vouchertype/preset/preset_table.h"

namespace chengheng {

/// Fills an empty table of voucher types with a preset set, all types of it or none. Lives as long
/// as the wizard; whatever locks are held when it goes are freed.
class PresetService {
  public:
    explicit PresetService(IMessages& messages) : m_messages(messages) {}

    /// The cash and bank accounts as they are now; nothing when they cannot be read.
    std::optional<PresetAccounts> accounts();

    /// Writes a set where there is no type yet. Refused while there are any, told when they cannot
    /// be read. A refused finish without classification asks for the locks once more and keeps
    /// them, where one with classification frees them.
    Outcome finish(PresetSet set);

  private:
    UntoldOutcome write(PresetSet set);

    IMessages& m_messages;
    std::vector<std::unique_ptr<TableLocks>> m_kept;
};

}  // namespace chengheng
