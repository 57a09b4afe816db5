#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "auxiliary/screen/auxiliary_work.h"
#include "auxiliary/transfer/entry_plan.h"

class QWidget;

namespace chengheng {

/// What came in at once.
struct AddedEntries {
    std::int32_t firstLine = 0;
    std::size_t count = 0;
};

/// Entries from the clipboard and from files, and into them. What comes in is shown as a plan
/// first, and written when the operator wants it.
class EntryTransfer {
  public:
    EntryTransfer(AuxiliaryWork& work, IMessages& messages, QWidget& window)
        : m_work(work), m_messages(messages), m_window(window) {}

    /// Nothing when no entry came in.
    std::optional<AddedEntries> paste();
    std::optional<AddedEntries> importFile();
    /// The shown entries as they are sorted.
    void exportFile();

  private:
    std::optional<AddedEntries> applyShown(const EntryPlan& plan, const char* title,
                                           const std::string& heading);

    AuxiliaryWork& m_work;
    IMessages& m_messages;
    QWidget& m_window;
};

}  // namespace chengheng
