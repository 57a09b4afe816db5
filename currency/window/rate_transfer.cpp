#include "currency/window/rate_transfer.h"

#include <fmt/format.h>

#include <QApplication>
#include <QClipboard>

#include "currency/screen/rate_screen_texts.h"
#include "currency/transfer/rate_import.h"
#include "currency/transfer/rate_transfer_texts.h"
#include "currency/window/quoting_window.h"
#include "screen/chosen_file.h"
#include "screen/grid/row_plan_window.h"
#include "sheets/delimited/delimited_text.h"
#include "sheets/files/sheet_export.h"

namespace chengheng {

namespace words = rate_transfer_texts;

int RateTransfer::currencyId() const {
    return m_form.currency() == nullptr ? 0 : m_form.currency()->lId;
}

std::optional<int> RateTransfer::paste(const RateCell& cell) {
    Sheet block;
    const std::string text = QApplication::clipboard()->text().toStdString();
    if (const auto failure = readClipboardBlock(text, block)) {
        m_messages.tell(sheetWarning(failure->text()));
        return std::nullopt;
    }
    if (block.rows.empty() || m_form.currency() == nullptr) {
        m_messages.tell({.text = rate_screen_texts::nothingPasted});
        return std::nullopt;
    }
    RateImport import(m_messages, m_form.year(), {.currency = currencyId()});
    const auto plan =
        import.plan(pastedRates(std::move(block), m_form.kind(), m_form.sheet().line(cell.row).day,
                                cell.column == RateSheetColumn::adjustRate),
                    words::clipboard);
    if (!plan) return std::nullopt;
    return importShown(import, *plan, words::pasteTitle, rate_screen_texts::pasteSource, {});
}

std::optional<int> RateTransfer::importFile() {
    const std::string file = chooseSheetToRead(&m_window, words::importTitle);
    if (file.empty()) return std::nullopt;
    QuotingWindow quoting(&m_window);
    if (quoting.DoModal() != QDialog::Accepted) return std::nullopt;
    RateImport import(m_messages, m_form.year(), quoting.quotedAs(currencyId()));
    const auto plan = import.plan(file);
    if (!plan) return std::nullopt;
    return importShown(import, *plan, words::importTitle, {}, file);
}

std::optional<int> RateTransfer::importShown(RateImport& import, const RatePlan& plan,
                                             const char* title, const std::string& source,
                                             const std::string& file) {
    return applyShown(
        {.title = title,
         .code = rate_screen_texts::time,
         .name = rate_screen_texts::rate,
         .working = words::working,
         .done = fmt::format(words::done, plan.count(RowFate::changed)),
         .source = source},
        plan, file, [&](const ImportProgress& progress) { return import.apply(plan, progress); },
        plan.changes);
}

std::optional<int> RateTransfer::fillGaps() {
    const GapFilling filling = m_overview.filling();
    if (filling.changes.empty()) {
        m_messages.tell({.text = rate_screen_texts::nothingToFill});
        return std::nullopt;
    }
    return applyShown(
        {.title = rate_screen_texts::fillTitle,
         .code = rate_screen_texts::time,
         .name = rate_screen_texts::rate,
         .working = words::working,
         .done = {},
         .source = filling.source,
         .button = rate_screen_texts::fill,
         .ready = rate_screen_texts::fillReady},
        filling.plan, {},
        [&](const ImportProgress& progress) { return m_overview.fill(filling, progress); },
        filling.changes);
}

std::optional<int> RateTransfer::applyShown(const RowPlanWords& shown, const RowPlan& plan,
                                            const std::string& file,
                                            const RowPlanWindow::Apply& apply,
                                            const std::vector<RateChange>& changes) {
    Outcome outcome = Outcome::refused;
    RowPlanWindow preview(
        shown, plan, file,
        [&](const ImportProgress& progress) { return outcome = apply(progress); }, &m_window);
    preview.DoModal();
    if (outcome == Outcome::done) return m_overview.noteWritten(changes);
    if (outcome == Outcome::stale) m_overview.readAnew();
    return std::nullopt;
}

void RateTransfer::exportFile() {
    const _CyrencyInfo* currency = m_form.currency();
    if (currency == nullptr) return;
    const std::string file = chooseSheetToWrite(
        &m_window, words::exportTitle, fmt::format(words::exportFile, currency->sExchName));
    if (file.empty() || exportRates(m_messages, m_form.kind(), currency->lId, m_form.year(), file,
                                    Overwrite::replace) != Outcome::done)
        return;
    m_messages.tell({.text = fmt::format(words::exported, file)});
}

}  // namespace chengheng
