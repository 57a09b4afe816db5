#include "accounts/transfer/import_plan.h"

#include <algorithm>
#include <numeric>
#include <unordered_set>

#include "accounts/chart/account_texts.h"
#include "accounts/codes/mnemonic.h"
#include "accounts/rules/account_checks.h"
#include "accounts/rules/account_record.h"
#include "accounts/transfer/import_texts.h"
#include "accounts/transfer/planned_chart.h"
#include "accounts/transfer/row_entry.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

namespace texts = import_texts;

/// The column that shows a field of the dialog.
ChartField columnOfField(const std::string& field) {
    const std::pair<const char*, ChartField> places[] = {
        {account_field::code, ChartField::code},
        {account_field::name, ChartField::name},
        {account_field::mnemonic, ChartField::mnemonic},
        {account_field::currency, ChartField::currency},
        {account_field::unit, ChartField::unit}};
    const auto found =
        std::ranges::find_if(places, [&field](const auto& place) { return field == place.first; });
    return found == std::end(places) ? ChartField::code : found->second;
}

/// Decides on the rows, each on the chart that those before it leave behind.
class ImportPlanner {
  public:
    ImportPlanner(const ChartSheet& sheet, const ChartState& state)
        : m_sheet(sheet), m_state(state), m_levels(state.levelPattern), m_chart(state) {
        for (const ChartRow& row : sheet.rows)
            if (const auto& cell = row.at(ChartField::mnemonic))
                m_givenMnemonics.insert(inPlainCapitals(withoutBlanksAround(*cell)));
    }

    ImportPlan plan() {
        ImportPlan plan;
        plan.rows.resize(m_sheet.rows.size());
        for (const std::size_t at : parentsFirst()) plan.rows[at] = planRow(m_sheet.rows[at]);
        plan.added = m_chart.added();
        plan.changed = m_chart.changed();
        plan.ignored = m_sheet.ignoredHeadings;
        return plan;
    }

  private:
    static std::string codeOf(const ChartRow& row) {
        return std::string(withoutTrailingBlanks(row.at(ChartField::code).value_or("")));
    }

    std::vector<std::size_t> parentsFirst() const {
        std::vector<std::size_t> order(m_sheet.rows.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::vector<std::string> codes;
        for (const ChartRow& row : m_sheet.rows) codes.push_back(codeOf(row));
        std::ranges::stable_sort(
            order, {}, [&codes](std::size_t at) -> const std::string& { return codes[at]; });
        return order;
    }

    PlannedRow planRow(const ChartRow& row) {
        PlannedRow planned{.row = row.row, .code = codeOf(row)};
        const auto existing = m_chart.accountOf(planned.code);
        AccountEntry entry = existing ? entryOf(*existing) : newEntry(planned.code);
        entry.code = planned.code;
        const auto unread = readRowEntry(row, m_state, m_levels.gradeOf(planned.code), entry);
        planned.name = entry.name;
        const bool isRepeated = !planned.code.empty() && !m_seen.insert(planned.code).second;
        if (isRepeated) {
            refuse(planned, account_texts::codeNotUnique, ChartField::code);
        } else if (existing) {
            planChange(*existing, tidied(entry), unread, planned);
        } else {
            if (!unread && entry.mnemonic.empty()) entry.mnemonic = mnemonicFor(entry.name);
            planAddition(tidied(entry), unread, planned);
        }
        return planned;
    }

    /// A new account has the class of its parent, the plainest page, and the journals that go with
    /// a designated parent, until its row says otherwise.
    AccountEntry newEntry(const std::string& code) {
        AccountEntry entry{.page = account_texts::ledgerPages.front()};
        const auto parent = m_chart.accountOf(m_levels.parentOf(code));
        if (!parent) return entry;
        entry.className = parent->sType;
        if (parent->bCash == 0 && parent->bBank == 0) return entry;
        const AuxiliaryBooks books = booksOfLetters(parent->sAssBook);
        entry.books.isJournal = books.isJournal;
        entry.books.isBank = books.isBank;
        return entry;
    }

    /// As the dialog proposes it. A mnemonic that another row gives is that row's.
    std::string mnemonicFor(const std::string& name) {
        return m_mnemonics.next(name, [this](std::string_view mnemonic) {
            return m_givenMnemonics.contains(std::string(mnemonic)) ||
                   m_chart.isMnemonicTaken(mnemonic, 0);
        });
    }

    /// A code that cannot be is told before a cell that cannot be understood, as nothing else
    /// about the row counts then.
    void planAddition(const AccountEntry& entry, const std::optional<CellRefusal>& unread,
                      PlannedRow& planned) {
        const AccountFacts facts{entry, nullptr, m_levels, m_state.classes, m_chart};
        const std::size_t checks = unread ? 1 : additionChecks().size();
        if (const auto refusal = firstRefusal(additionChecks().first(checks), facts))
            return refuse(planned, *refusal);
        if (unread) return refuse(planned, unread->reason, unread->field);
        planned.fate = RowFate::added;
        noteQuestions(additionQuestions(facts), planned);
        m_chart.add(newAccount(facts), facts.parentCode());
    }

    void planChange(const _CodeInfo& before, const AccountEntry& entry,
                    const std::optional<CellRefusal>& unread, PlannedRow& planned) {
        const AccountFacts facts{entry, &before, m_levels, m_state.classes, m_chart};
        if (unread) return refuse(planned, unread->reason, unread->field);
        if (entry.direction && *entry.direction != before.bDirect)
            return refuse(planned, texts::directionKept, ChartField::direction);
        const _CodeInfo after = modifiedAccount(facts);
        planned.fate = RowFate::unchanged;
        if (after == before) return;
        if (const auto refusal = firstRefusal(modificationChecks(), facts))
            return refuse(planned, *refusal);
        planned.fate = RowFate::changed;
        noteQuestions(modificationQuestions(facts), planned);
        m_chart.change(after);
    }

    void refuse(PlannedRow& planned, const Refusal& refusal) const {
        refuse(planned, refusal.notice.text, columnOfField(refusal.notice.focusField));
    }
    void refuse(PlannedRow& planned, std::string reason, ChartField field) const {
        planned.fate = RowFate::refused;
        planned.reason = std::move(reason);
        planned.column = m_sheet.columnOf(field);
        if (planned.column != 0)
            planned.heading = chartColumns()[static_cast<std::size_t>(field)].heading;
    }

    static void noteQuestions(const std::vector<AccountQuestion>& questions, PlannedRow& planned) {
        for (const AccountQuestion& asked : questions)
            planned.questions.push_back(asked.question.text);
    }

    const ChartSheet& m_sheet;
    const ChartState& m_state;
    CodeLevels m_levels;
    PlannedChart m_chart;
    std::unordered_set<std::string> m_seen;
    std::unordered_set<std::string> m_givenMnemonics;
    MnemonicSeries m_mnemonics;
};

}  // namespace

ImportPlan planImport(const ChartSheet& sheet, const ChartState& state) {
    return ImportPlanner(sheet, state).plan();
}

}  // namespace chengheng
