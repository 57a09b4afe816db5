#include "auxiliary/window/entry_transfer.h"

#include <fmt/format.h>

#include <QApplication>
#include <QClipboard>
#include <vector>

#include "auxiliary/transfer/entry_import.h"
#include "auxiliary/transfer/transfer_texts.h"
#include "auxiliary/window/entry_plan_window.h"
#include "screen/chosen_file.h"
#include "screen/shown.h"
#include "screen/wait_window.h"
#include "sheets/delimited/delimited_text.h"
#include "sheets/plan_texts.h"

namespace chengheng {

std::optional<AddedEntries> EntryTransfer::paste() {
    Sheet block;
    const std::string text = QApplication::clipboard()->text().toStdString();
    if (const auto failure = readClipboardBlock(text, block)) {
        m_messages.tell({.text = failure->text(), .icon = MessageIcon::warning});
        return std::nullopt;
    }
    std::vector<const char*> captions;
    for (const EntryColumn column : m_work.list().columns()) captions.push_back(headingOf(column));
    const auto plan = EntryImport(m_messages, m_work.member(), m_work.account())
                          .planBlock(std::move(block), captions);
    return plan ? applyShown(*plan, transfer_texts::pasteTitle, {}) : std::nullopt;
}

std::optional<AddedEntries> EntryTransfer::importFile() {
    const std::string file = chooseSheetToRead(&m_window, transfer_texts::importTitle);
    if (file.empty()) return std::nullopt;
    const auto plan = EntryImport(m_messages, m_work.member(), m_work.account()).planFile(file);
    if (!plan) return std::nullopt;
    return applyShown(*plan, transfer_texts::importTitle, fmt::format(plan_texts::file, file));
}

std::optional<AddedEntries> EntryTransfer::applyShown(const EntryPlan& plan, const char* title,
                                                      const std::string& heading) {
    if (plan.rows.empty()) {
        m_messages.tell({.text = transfer_texts::nothingToImport});
        return std::nullopt;
    }
    EntryPlanWindow preview(title, heading, plan, m_work.member(), &m_window);
    if (preview.DoModal() != QDialog::Accepted) return std::nullopt;
    const WaitWindow waiting(shown(transfer_texts::working), &m_window);
    const auto first = m_work.addAll(plan.changes());
    return first ? std::optional(AddedEntries{*first, plan.rows.size()}) : std::nullopt;
}

void EntryTransfer::exportFile() {
    const AuxiliaryAccount& account = m_work.account();
    const std::string file =
        chooseSheetToWrite(&m_window, transfer_texts::exportTitle,
                           fmt::format(transfer_texts::exportFile, account.code));
    if (file.empty()) return;
    std::vector<AuxiliaryEntry> entries;
    for (std::size_t row = 0; row < m_work.list().rowCount(); ++row)
        entries.push_back(m_work.list().atRow(row));
    if (exportEntries(m_messages, m_work.member(), account, entries, file, Overwrite::replace) ==
        Outcome::done)
        m_messages.tell({.text = fmt::format(transfer_texts::exported, file)});
}

}  // namespace chengheng
