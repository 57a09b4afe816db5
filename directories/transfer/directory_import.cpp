#include "directories/transfer/directory_import.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "data/access/host_database.h"
#include "directories/directory_store.h"
#include "directories/transfer/directory_transfer_texts.h"
#include "session/open_books.h"
#include "sheets/files/plan_import.h"
#include "sheets/files/sheet_export.h"

namespace chengheng {
namespace {

namespace texts = directory_transfer_texts;

constexpr std::size_t rowsAtOnce = 1000;

Status readState(const Directory& directory, DirectoryState& state) {
    Status status = readDirectory(*g_pDB, directory.kind, state.records);
    if (status && directory.groups) status = readDirectory(*g_pDB, *directory.groups, state.groups);
    return status;
}

/// Writes a plan part by part and tells how far it is.
class PlanWriter {
  public:
    PlanWriter(const Directory& directory, const DirectoryPlan& plan,
               const ImportProgress& progress)
        : m_kind(directory.kind),
          m_total(plan.added.size() + plan.changed.size()),
          m_progress(progress) {}

    Status write(const DirectoryPlan& plan) {
        Status status = tellProgress(0);
        if (status)
            status = inParts(plan.added, [this](Records part) {
                std::int32_t lastId = 0;
                return addRecords(*g_pDB, m_kind, part, lastId);
            });
        if (status)
            status = inParts(plan.changed,
                             [this](Records part) { return editRecords(*g_pDB, m_kind, part); });
        return status;
    }

  private:
    using Records = std::span<const DirectoryRecord>;

    template <class Write>
    Status inParts(Records left, Write writePart) {
        while (!left.empty()) {
            const auto part = left.first(std::min(rowsAtOnce, left.size()));
            Status status = writePart(part);
            if (status) status = tellProgress(part.size());
            if (!status) return status;
            left = left.subspan(part.size());
        }
        return Status::done();
    }

    Status tellProgress(std::size_t more) {
        m_done += more;
        if (!m_progress || m_progress(m_done, m_total)) return Status::done();
        return Status::of(Failure::cancelled);
    }

    const DirectoryKind m_kind;
    const std::size_t m_total;
    const ImportProgress& m_progress;
    std::size_t m_done = 0;
};

}  // namespace

std::optional<DirectoryPlan> DirectoryImport::plan(const std::string& path) {
    auto sheet = readSheetToImport(m_messages, path);
    return sheet ? plan(std::move(*sheet), path) : std::nullopt;
}

std::optional<DirectoryPlan> DirectoryImport::plan(Sheet sheet, const std::string& name) {
    if (auto failure = m_sheet.read(std::move(sheet), m_directory)) {
        m_messages.tell(sheetWarning(whileReading(std::move(*failure), name).text()));
        return std::nullopt;
    }
    if (!selectOpenBooks() || !readState(m_directory, m_state)) {
        told(m_messages, UntoldOutcome::failed());
        return std::nullopt;
    }
    return planDirectory(m_directory, m_sheet, m_state);
}

Outcome DirectoryImport::apply(const DirectoryPlan& plan, const ImportProgress& progress) {
    if (!isAccepted(m_messages, plan)) return Outcome::refused;
    return underLocks(m_messages, m_directory.writing,
                      [&] { return applyUnderLocks(plan, progress); });
}

/// Where the books are as they were, so is the plan.
UntoldOutcome DirectoryImport::applyUnderLocks(const DirectoryPlan& plan,
                                               const ImportProgress& progress) {
    DirectoryState state;
    if (!readState(m_directory, state)) return UntoldOutcome::failed();
    if (state != m_state && planDirectory(m_directory, m_sheet, state) != plan)
        return planOutdated();
    return inOneUnit(
        m_directory.writing.right,
        [&] { return importInWords(m_directory.noun, plan.added.size(), plan.changed.size()); },
        [&] {
            const Status status = PlanWriter(m_directory, plan, progress).write(plan);
            if (status) return UntoldOutcome::done();
            if (status.failure != Failure::cancelled) return UntoldOutcome::failed();
            return UntoldOutcome::refused(
                {.text = fmt::format(texts::cancelled, m_directory.noun)});
        });
}

Outcome exportDirectory(IMessages& messages, const Directory& directory, const std::string& path,
                        Overwrite overwrite) {
    DirectoryState state;
    if (!selectOpenBooks() || !readState(directory, state))
        return told(messages, UntoldOutcome::failed());
    return exportSheet(messages, exportedDirectory(directory, state.records, state.groups), path,
                       overwrite);
}

}  // namespace chengheng
