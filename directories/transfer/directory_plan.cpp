#include "directories/transfer/directory_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

#include "base/values/text.h"
#include "directories/directory_rules.h"
#include "directories/directory_texts.h"
#include "directories/transfer/directory_transfer_texts.h"
#include "directories/transfer/planned_directory.h"
#include "sheets/plan_texts.h"

namespace chengheng {
namespace {

namespace texts = directory_transfer_texts;

constexpr std::size_t shownCodes = 5;

DirectoryField columnOfField(const std::string& field) {
    if (field == directoryNameField) return DirectoryField::name;
    return field == directoryGroupField ? DirectoryField::group : DirectoryField::code;
}

/// Decides on the rows, each on the directory that those before it leave behind.
class DirectoryPlanner {
  public:
    DirectoryPlanner(const Directory& directory, const DirectorySheet& sheet,
                     const DirectoryState& state)
        : m_directory(directory),
          m_sheet(sheet),
          m_records(directory, state.records, state.groups, sheet.rows().size()) {}

    DirectoryPlan plan() {
        m_plan.ignored = m_sheet.ignoredHeadings();
        m_plan.rows.reserve(m_sheet.rows().size());
        for (const std::size_t row : m_sheet.rows()) m_plan.rows.push_back(planRow(row));
        return std::move(m_plan);
    }

  private:
    /// What a row says of a record.
    struct Given {
        std::string code = {};
        std::optional<std::string> name = {};
        std::optional<std::int32_t> group = {};  ///< 0: none that is known
        std::string groupReason = {};            ///< why none is
        std::optional<UnitKind> unitKind = {};
        std::string kindReason = {};
    };

    PlannedRow planRow(std::size_t row) {
        const Given given = readRow(row);
        PlannedRow planned{.row = row, .code = given.code};
        const DirectoryRecord* existing = m_records.coded(given.group.value_or(0), given.code);
        DirectoryRecord wanted = existing != nullptr ? *existing : DirectoryRecord();
        takeOver(given, wanted);
        planned.name = wanted.name;
        if (const std::size_t other = rowWithCode(row, given, wanted.group); other != 0)
            return refuse(planned, fmt::format(texts::codeTwice, m_directory.noun, other),
                          DirectoryField::code);
        const bool isUnderstood = given.groupReason.empty() && given.kindReason.empty();
        if (existing != nullptr && isUnderstood && wanted == *existing) {
            planned.fate = RowFate::unchanged;
            return planned;
        }
        wanted = tidied(std::move(wanted));
        const DirectoryFacts facts = m_records.factsOf(wanted);
        if (const auto refusal = firstRefusal(directoryChecks(), facts))
            return refuse(planned, *refusal, given.groupReason);
        if (!given.kindReason.empty())
            return refuse(planned, given.kindReason, DirectoryField::unitKind);
        noteSharedName(facts, planned);
        planned.fate = existing != nullptr ? RowFate::changed : RowFate::added;
        write(planned.fate, std::move(wanted));
        return planned;
    }

    Given readRow(std::size_t row) const {
        Given given{.code = m_sheet.text(row, DirectoryField::code).value_or(""),
                    .name = m_sheet.text(row, DirectoryField::name)};
        if (const auto text = m_sheet.text(row, DirectoryField::group); text && !text->empty())
            readGroup(*text, given);
        if (const auto text = m_sheet.text(row, DirectoryField::unitKind); text && !text->empty())
            readKind(*text, given);
        return given;
    }

    void readGroup(const std::string& text, Given& given) const {
        if (!m_directory.groups) return;
        const auto& found = m_records.groups().find(text);
        given.group = found.size() == 1 ? found.front()->id : 0;
        const char* noun = directoryOf(*m_directory.groups).noun;
        if (found.empty()) given.groupReason = fmt::format(texts::groupUnknown, text, noun);
        if (found.size() < 2) return;
        std::vector<std::string> codes;
        for (const DirectoryRecord* group : found)
            if (codes.size() < shownCodes) codes.push_back(group->code);
        std::string listed = fmt::format("{}", fmt::join(codes, plan_texts::listSeparator));
        if (found.size() > codes.size()) listed += texts::moreCodes;
        given.groupReason = fmt::format(texts::equalNames, found.size(), text, noun, listed);
    }

    static void readKind(const std::string& text, Given& given) {
        const auto& kinds = directory_texts::unitKinds;
        const auto found = std::ranges::find(kinds, std::string_view(text));
        if (found == kinds.end())
            given.kindReason = fmt::format(texts::unitKindUnknown, text);
        else
            given.unitKind = static_cast<UnitKind>(found - kinds.begin());
    }

    /// Blanks around what is stored already are no other text.
    static void takeOver(const Given& given, DirectoryRecord& record) {
        if (record.id == 0) record.code = given.code;
        if (given.name && *given.name != withoutBlanksAround(record.name))
            record.name = *given.name;
        if (given.group) record.group = *given.group;
        if (given.unitKind) record.unitKind = *given.unitKind;
    }

    /// The row before that has the code, too; 0 when none has.
    std::size_t rowWithCode(std::size_t row, const Given& given, std::int32_t group) {
        const bool isItem = m_directory.kind == DirectoryKind::projectItem;
        if (given.code.empty() || (isItem && group == 0)) return 0;
        const bool namesTable = m_directory.kind == DirectoryKind::projectClass;
        std::string code = namesTable ? inSmallLetters(given.code) : given.code;
        if (isItem) code.insert(0, std::to_string(group) + ' ');
        const auto [first, isNew] = m_rowsOfCodes.try_emplace(std::move(code), row);
        return isNew ? 0 : first->second;
    }

    /// As the window would ask.
    void noteSharedName(const DirectoryFacts& facts, PlannedRow& planned) const {
        if (m_directory.sharedNames == SharedNames::never) return;
        const auto bearers = m_records.named(facts.wanted);
        if (const DirectoryRecord* bearer = sharedNameToAsk(facts, bearers))
            planned.questions.push_back(
                fmt::format(texts::nameShared, m_directory.noun, directoryLine(*bearer)));
    }

    void write(RowFate fate, DirectoryRecord wanted) {
        if (fate == RowFate::added) {
            m_plan.added.push_back(wanted);
            return m_records.add(std::move(wanted));
        }
        m_records.change(wanted);
        m_plan.changed.push_back(std::move(wanted));
    }

    PlannedRow refuse(PlannedRow& planned, const Refusal& refusal,
                      const std::string& groupReason) const {
        const DirectoryField field = columnOfField(refusal.notice.focusField);
        const bool isOfGroup = field == DirectoryField::group && !groupReason.empty();
        return refuse(planned, isOfGroup ? groupReason : refusal.notice.text, field);
    }
    PlannedRow refuse(PlannedRow& planned, std::string reason, DirectoryField field) const {
        planned.fate = RowFate::refused;
        planned.reason = std::move(reason);
        planned.column = m_sheet.columnOf(field);
        if (planned.column != 0) planned.heading = headingOf(m_directory, field);
        return std::move(planned);
    }

    const Directory& m_directory;
    const DirectorySheet& m_sheet;
    PlannedDirectory m_records;
    std::unordered_map<std::string, std::size_t> m_rowsOfCodes;  ///< of items with their class
    DirectoryPlan m_plan;
};

}  // namespace

DirectoryPlan planDirectory(const Directory& directory, const DirectorySheet& sheet,
                            const DirectoryState& state) {
    return DirectoryPlanner(directory, sheet, state).plan();
}

}  // namespace chengheng
