#include "vouchertype/window/voucher_type_files.h"

#include <fmt/format.h>

#include <QDialog>

#include "screen/chosen_file.h"
#include "screen/grid/row_plan_window.h"
#include "vouchertype/transfer/voucher_type_import.h"
#include "vouchertype/transfer/voucher_type_transfer_texts.h"
#include "vouchertype/voucher_type_texts.h"

namespace chengheng {

bool importVoucherTypes(IMessages& messages, QWidget* window) {
    namespace texts = voucher_type_transfer_texts;
    const std::string file = chooseSheetToRead(window, texts::importTitle);
    if (file.empty()) return false;
    VoucherTypeImport import(messages);
    const auto plan = import.plan(file);
    if (!plan) return false;
    RowPlanWindow preview(
        {.title = texts::importTitle,
         .code = voucher_type_texts::number,
         .name = voucher_type_texts::name,
         .working = texts::working,
         .done =
             fmt::format(texts::done, plan->count(RowFate::added), plan->count(RowFate::changed))},
        *plan, file, [&](const ImportProgress& progress) { return import.apply(*plan, progress); },
        window);
    return preview.DoModal() == QDialog::Accepted;
}

void exportVoucherTypes(IMessages& messages, QWidget* window) {
    namespace texts = voucher_type_transfer_texts;
    const std::string file = chooseSheetToWrite(window, texts::exportTitle, texts::exportFile);
    if (file.empty() || exportVoucherTypes(messages, file, Overwrite::replace) != Outcome::done)
        return;
    messages.tell({.text = fmt::format(texts::exported, file)});
}

}  // namespace chengheng
