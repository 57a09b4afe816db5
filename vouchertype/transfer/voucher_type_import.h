#pragma once

#include <optional>
#include <string>

#include "base/system/output_target.h"
#include "session/record_change.h"
#include "vouchertype/transfer/voucher_type_plan.h"

namespace chengheng {

/// Brings voucher types from a spreadsheet into the open set of books (g_pDB): first a plan that
/// changes nothing, then exactly that plan, whole or not at all. Nothing is deleted. Whatever does
/// not give a plan or `done` has told the operator why.
class VoucherTypeImport {
  public:
    explicit VoucherTypeImport(IMessages& messages) : m_messages(messages) {}

    /// Reads a CSV or XLSX file and decides on its rows.
    std::optional<VoucherTypePlan> plan(const std::string& path);
    /// The same of a sheet that was read already.
    std::optional<VoucherTypePlan> plan(Sheet sheet, const std::string& name);

    /// Does what the last plan says, under the locks of a change. Stale when the books have changed
    /// so that the plan would be another one.
    Outcome apply(const VoucherTypePlan& plan, const ImportProgress& progress = {});

  private:
    UntoldOutcome applyUnderLocks(const VoucherTypePlan& plan, const ImportProgress& progress);

    IMessages& m_messages;
    HeadedSheet m_sheet;
    VoucherTypeState m_state;  ///< of the last plan
};

/// Writes the voucher types of the open set of books as a file, CSV or XLSX by the end of its name,
/// in their order; it reads back unchanged.
Outcome exportVoucherTypes(IMessages& messages, const std::string& path, Overwrite overwrite);

}  // namespace chengheng
