#include "directories/directory_service.h"

#include <fmt/format.h>

#include "base/values/text.h"
#include "data/access/host_database.h"
#include "directories/directory_rules.h"
#include "directories/directory_store.h"
#include "directories/directory_texts.h"
#include "directories/directory_uses.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

namespace texts = directory_texts;

UntoldOutcome outcomeOf(const Status& status) {
    return status ? UntoldOutcome::done() : UntoldOutcome::failed();
}

/// Answers the questions of the checks from the books. What cannot be read refuses, too, and is
/// then told as the failure that it is: nothing is read after it, which would take its place.
class StoredFacts {
  public:
    StoredFacts(const Directory& directory, const DirectoryRecord& wanted)
        : m_directory(directory), m_wanted(wanted) {}

    DirectoryFacts facts() {
        return {.directory = m_directory,
                .wanted = m_wanted,
                .isGroupThere = [this] { return isGroupThere(); },
                .bearersOfCode = [this](const std::string& code) { return coded(code); },
                .bearersOfName = [this](const std::string& name) { return named(name); },
                .bearersOfClassCode = [this](const std::string& code) { return classes(code); }};
    }
    bool hasFailed() const { return m_hasFailed; }

  private:
    using Records = std::vector<DirectoryRecord>;

    template <class Read>
    void unlessFailed(Read read) {
        if (!m_hasFailed) m_hasFailed = !read();
    }
    Records coded(const std::string& code) {
        Records found;
        unlessFailed(
            [&] { return readCoded(*g_pDB, m_directory.kind, m_wanted.group, code, found); });
        return found;
    }
    Records named(const std::string& name) {
        Records found;
        unlessFailed(
            [&] { return readNamed(*g_pDB, m_directory.kind, m_wanted.group, name, found); });
        return found;
    }
    Records classes(const std::string& code) {
        Records found;
        unlessFailed([&] { return readDirectory(*g_pDB, m_directory.kind, found); });
        std::erase_if(found, [&code](const DirectoryRecord& each) {
            return !isSameInAnyCase(each.code, code);
        });
        return found;
    }
    bool isGroupThere() {
        std::optional<DirectoryRecord> group;
        unlessFailed(
            [&] { return readRecord(*g_pDB, *m_directory.groups, m_wanted.group, 0, group); });
        return group.has_value();
    }

    const Directory& m_directory;
    const DirectoryRecord& m_wanted;
    bool m_hasFailed = false;
};

UntoldOutcome refused(const Refusal& refusal) { return UntoldOutcome::refused(refusal.notice); }

}  // namespace

std::optional<std::vector<DirectoryRecord>> DirectoryService::readAll() {
    std::vector<DirectoryRecord> records;
    if (selectOpenBooks() && readDirectory(*g_pDB, m_directory.kind, records)) return records;
    tellLastFailure(m_messages);
    return std::nullopt;
}

std::optional<std::vector<DirectoryRecord>> DirectoryService::readGroups() {
    std::vector<DirectoryRecord> groups;
    if (!m_directory.groups) return groups;
    if (selectOpenBooks() && readDirectory(*g_pDB, *m_directory.groups, groups)) return groups;
    tellLastFailure(m_messages);
    return std::nullopt;
}

UntoldOutcome DirectoryService::readStored(std::int32_t id, std::int32_t group,
                                           DirectoryRecord& record) {
    std::optional<DirectoryRecord> found;
    if (!readRecord(*g_pDB, m_directory.kind, id, group, found)) return UntoldOutcome::failed();
    if (!found) return UntoldOutcome::stale({.text = fmt::format(texts::gone, m_directory.noun)});
    record = *found;
    return UntoldOutcome::done();
}

Outcome DirectoryService::read(std::int32_t id, std::int32_t group, DirectoryRecord& record,
                               std::string& uses) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    UntoldOutcome result = readStored(id, group, record);
    if (result.outcome == Outcome::done)
        result = outcomeOf(readUses(*g_pDB, m_directory.kind, record, uses));
    return told(m_messages, result);
}

/// The checks, and after them the question whether a name may be shared.
UntoldOutcome DirectoryService::refuse(CNbCwDB& database, const DirectoryRecord& wanted) {
    StoredFacts stored(m_directory, wanted);
    const DirectoryFacts facts = stored.facts();
    const auto refusal = firstRefusal(directoryChecks(), facts);
    if (stored.hasFailed()) return UntoldOutcome::failed();
    if (refusal) return refused(*refusal);
    if (m_directory.sharedNames == SharedNames::never) return UntoldOutcome::done();
    std::vector<DirectoryRecord> bearers;
    if (!readNamed(database, m_directory.kind, wanted.group, wanted.name, bearers))
        return UntoldOutcome::failed();
    const DirectoryRecord* bearer = sharedNameToAsk(facts, bearers);
    if (bearer == nullptr) return UntoldOutcome::done();
    const Answer answer = m_messages.ask(
        {.text = fmt::format(texts::nameShared, m_directory.noun, directoryLine(*bearer))});
    return {answer == Answer::yes ? Outcome::done : Outcome::refused};
}

Outcome DirectoryService::add(DirectoryRecord& record) {
    DirectoryRecord wanted = tidied(record);
    const Outcome outcome = underLocks(m_messages, m_directory.writing, [&] {
        const UntoldOutcome result = refuse(*g_pDB, wanted);
        if (result.outcome != Outcome::done) return result;
        return inOneUnit(
            m_directory.writing.right,
            [&] {
                return fmt::format(texts::loggedAddition, m_directory.noun, directoryLine(wanted));
            },
            [&] { return outcomeOf(addRecord(*g_pDB, m_directory.kind, wanted)); });
    });
    if (outcome == Outcome::done) record = wanted;
    return outcome;
}

UntoldOutcome DirectoryService::refuseModification(const DirectoryRecord& loaded,
                                                   const DirectoryRecord& wanted) {
    DirectoryRecord stored;
    const UntoldOutcome result = readStored(loaded.id, loaded.group, stored);
    if (result.outcome == Outcome::stale)
        return UntoldOutcome::stale(
            {.text = fmt::format(texts::goneBelowTyped, m_directory.noun, m_directory.noun)});
    if (result.outcome != Outcome::done) return result;
    if (stored != loaded)
        return UntoldOutcome::stale({.text = fmt::format(texts::changedBelowTyped, m_directory.noun,
                                                         wordsOf(stored), wordsOf(wanted))});
    if (m_directory.kind == DirectoryKind::projectItem && loaded.group != wanted.group)
        return refused(inputRefusal(texts::groupFixed, directoryGroupField));
    if (m_directory.kind != DirectoryKind::projectClass || loaded.code == wanted.code)
        return UntoldOutcome::done();
    std::string uses;
    if (!readUses(*g_pDB, m_directory.kind, loaded, uses)) return UntoldOutcome::failed();
    if (uses.empty()) return UntoldOutcome::done();
    return refused(inputRefusal(fmt::format(texts::usedCodeFixed, uses), directoryCodeField));
}

Outcome DirectoryService::modify(const DirectoryRecord& loaded, DirectoryRecord& wanted) {
    DirectoryRecord changed = tidied(wanted);
    const Outcome outcome = underLocks(m_messages, m_directory.writing, [&] {
        UntoldOutcome result = refuseModification(loaded, changed);
        if (result.outcome == Outcome::done) result = refuse(*g_pDB, changed);
        if (result.outcome != Outcome::done || changed == loaded) return result;
        return inOneUnit(
            m_directory.writing.right,
            [&] {
                return fmt::format(texts::loggedChange, m_directory.noun,
                                   changedName(directoryLine(loaded), directoryLine(changed)));
            },
            [&] { return outcomeOf(editRecord(*g_pDB, m_directory.kind, loaded, changed)); });
    });
    if (outcome == Outcome::done) wanted = changed;
    return outcome;
}

UntoldOutcome DirectoryService::refuseDeletion(const DirectoryRecord& loaded) {
    DirectoryRecord stored;
    const UntoldOutcome result = readStored(loaded.id, loaded.group, stored);
    // Deleted already, as the operator wants it: there is nothing to say.
    if (result.outcome == Outcome::stale) return {Outcome::stale};
    if (result.outcome != Outcome::done) return result;
    if (stored != loaded)
        return UntoldOutcome::stale({.text = fmt::format(texts::changed, m_directory.noun)});
    std::string uses;
    if (!readUses(*g_pDB, m_directory.kind, loaded, uses)) return UntoldOutcome::failed();
    if (uses.empty()) return UntoldOutcome::done();
    return UntoldOutcome::refused(
        {.text = fmt::format(texts::usedNotDeleted, m_directory.noun, uses)});
}

Outcome DirectoryService::remove(const DirectoryRecord* selected) {
    if (selected == nullptr)
        return told(m_messages, UntoldOutcome::refused({.text = fmt::format(texts::nothingSelected,
                                                                            m_directory.noun)}));
    const Answer answer = m_messages.ask(
        {.text = fmt::format(texts::deletion, m_directory.noun, selected->code, selected->name)});
    if (answer != Answer::yes) return Outcome::refused;
    const auto words = [&] {
        return fmt::format(texts::loggedDeletion, m_directory.noun, directoryLine(*selected));
    };
    return changeRecords(m_messages, m_directory.deleting, words, [&] {
        UntoldOutcome result = refuseDeletion(*selected);
        if (result.outcome != Outcome::done) return result;
        result = outcomeOf(deleteEmptyBalances(*g_pDB, m_directory.kind, *selected));
        if (result.outcome != Outcome::done) return result;
        return outcomeOf(deleteRecord(*g_pDB, m_directory.kind, *selected));
    });
}

/// "01 陈静(财务部)"
std::string DirectoryService::wordsOf(const DirectoryRecord& record) {
    std::string group;
    if (m_directory.hasUnitKinds)
        group = texts::unitKinds.at(static_cast<std::size_t>(record.unitKind));
    std::optional<DirectoryRecord> found;
    if (m_directory.groups && readRecord(*g_pDB, *m_directory.groups, record.group, 0, found) &&
        found)
        group = group.empty() ? found->name : found->name + texts::placeBetween + group;
    return group.empty() ? directoryLine(record)
                         : fmt::format(texts::inGroup, directoryLine(record), group);
}

}  // namespace chengheng
