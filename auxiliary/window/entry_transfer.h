#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "auxiliary/screen/auxiliary_work.h"
#include "auxiliary/transfer/entry_plan.h"

class QWidget;

namespace chengheng {

/// Entries from the clipboard and from files, and into them. What comes in is shown as a plan
/// first, and written when the operator wants it.
class EntryTransfer {
  public:
    EntryTransfer(AuxiliaryWork& work, IMessages& messages, QWidget& window)
        : m_work(work), m_messages(messages), m_window(window) {}

    /// The line of the first entry that came in; nothing when none did.
    std::optional<std::int32_t> paste();
    std::optional<std::int32_t> importFile();
    /// The shown entries as they are sorted.
    void exportFile();

  private:
    std::optional<std::int32_t> applyShown(const EntryPlan& plan, const char* title,
                                           const std::string& heading);

    AuxiliaryWork& m_work;
    IMessages& m_messages;
    QWidget& m_window;
};

}  // namespace chengheng
