#include "directories/directory_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/values/text.h"
#include "data/tables/schema.h"
#include "directories/directory_texts.h"

namespace chengheng {
namespace {

namespace texts = directory_texts;

bool isShowable(std::string_view text) { return printableLine(text) == text; }

Refusal codeRefusal(std::string text) { return inputRefusal(std::move(text), directoryCodeField); }
Refusal nameRefusal(std::string text) { return inputRefusal(std::move(text), directoryNameField); }

std::optional<Refusal> codeEmpty(const DirectoryFacts& facts) {
    if (!facts.wanted.code.empty()) return std::nullopt;
    return codeRefusal(fmt::format(texts::codeEmpty, facts.directory.noun));
}

std::optional<Refusal> codeBlank(const DirectoryFacts& facts) {
    if (!hasBlank(facts.wanted.code)) return std::nullopt;
    return codeRefusal(fmt::format(texts::codeBlank, facts.directory.noun));
}

std::optional<Refusal> codeUnshowable(const DirectoryFacts& facts) {
    if (isShowable(facts.wanted.code)) return std::nullopt;
    return codeRefusal(fmt::format(texts::codeUnshowable, facts.directory.noun));
}

std::optional<Refusal> codeLong(const DirectoryFacts& facts) {
    if (characterCount(facts.wanted.code) <= directoryCodeWidth) return std::nullopt;
    return codeRefusal(fmt::format(texts::codeLong, facts.directory.noun, directoryCodeWidth));
}

/// The code of a project class is part of a table's name.
std::optional<Refusal> classCodeLetters(const DirectoryFacts& facts) {
    if (facts.directory.kind != DirectoryKind::projectClass) return std::nullopt;
    if (!projectItemTable(facts.wanted.code).name.empty()) return std::nullopt;
    return codeRefusal(texts::classCodeLetters);
}

std::optional<Refusal> nameEmpty(const DirectoryFacts& facts) {
    if (!facts.wanted.name.empty()) return std::nullopt;
    return nameRefusal(fmt::format(texts::nameEmpty, facts.directory.noun));
}

std::optional<Refusal> nameUnshowable(const DirectoryFacts& facts) {
    if (isShowable(facts.wanted.name)) return std::nullopt;
    return nameRefusal(fmt::format(texts::nameUnshowable, facts.directory.noun));
}

std::optional<Refusal> nameLong(const DirectoryFacts& facts) {
    if (characterCount(facts.wanted.name) <= directoryNameWidth) return std::nullopt;
    return nameRefusal(fmt::format(texts::nameLong, facts.directory.noun, directoryNameWidth));
}

std::optional<Refusal> groupMissing(const DirectoryFacts& facts) {
    if (!facts.directory.groups || facts.wanted.group != 0) return std::nullopt;
    return inputRefusal(fmt::format(texts::groupMissing, facts.directory.groupLabel),
                        directoryGroupField);
}

std::optional<Refusal> groupGone(const DirectoryFacts& facts) {
    if (!facts.directory.groups || facts.isGroupThere()) return std::nullopt;
    return inputRefusal(fmt::format(texts::groupGone, facts.directory.groupLabel),
                        directoryGroupField);
}

/// Null when nobody but the record itself bears it.
const DirectoryRecord* other(const DirectoryFacts& facts,
                             std::span<const DirectoryRecord> bearers) {
    const auto found = std::ranges::find_if(
        bearers, [&facts](const DirectoryRecord& bearer) { return bearer.id != facts.wanted.id; });
    return found == bearers.end() ? nullptr : &*found;
}

std::optional<Refusal> codeTaken(const DirectoryFacts& facts) {
    const bool namesTable = facts.directory.kind == DirectoryKind::projectClass;
    const auto bearers =
        (namesTable ? facts.bearersOfClassCode : facts.bearersOfCode)(facts.wanted.code);
    const DirectoryRecord* bearer = other(facts, bearers);
    if (bearer == nullptr) return std::nullopt;
    return codeRefusal(fmt::format(texts::codeTaken, facts.directory.noun, directoryLine(*bearer)));
}

std::optional<Refusal> nameTaken(const DirectoryFacts& facts) {
    if (facts.directory.sharedNames == SharedNames::afterAQuestion) return std::nullopt;
    auto bearers = facts.bearersOfName(facts.wanted.name);
    if (facts.directory.sharedNames == SharedNames::afterAQuestionInOtherGroups)
        std::erase_if(bearers, [&facts](const DirectoryRecord& bearer) {
            return bearer.group != facts.wanted.group;
        });
    const DirectoryRecord* bearer = other(facts, bearers);
    if (bearer == nullptr) return std::nullopt;
    return nameRefusal(fmt::format(texts::nameTaken, facts.directory.noun, directoryLine(*bearer)));
}

constexpr std::array checks{
    Check<DirectoryFacts>{"a code", codeEmpty},
    Check<DirectoryFacts>{"no blank in the code", codeBlank},
    Check<DirectoryFacts>{"a code that can be shown", codeUnshowable},
    Check<DirectoryFacts>{"a code of no more characters than fit", codeLong},
    Check<DirectoryFacts>{"a class code that can name a table", classCodeLetters},
    Check<DirectoryFacts>{"a name", nameEmpty},
    Check<DirectoryFacts>{"a name that can be shown", nameUnshowable},
    Check<DirectoryFacts>{"a name of no more characters than fit", nameLong},
    Check<DirectoryFacts>{"a group", groupMissing},
    Check<DirectoryFacts>{"a group that is there", groupGone},
    Check<DirectoryFacts>{"nobody else's code", codeTaken},
    Check<DirectoryFacts>{"nobody else's name", nameTaken},
};

}  // namespace

DirectoryRecord tidied(DirectoryRecord record) {
    record.code = std::string(withoutBlanksAround(record.code));
    record.name = std::string(withoutBlanksAround(record.name));
    return record;
}

std::span<const Check<DirectoryFacts>> directoryChecks() { return checks; }

const DirectoryRecord* sharedNameToAsk(const DirectoryFacts& facts,
                                       std::span<const DirectoryRecord> bearers) {
    if (facts.directory.sharedNames == SharedNames::never) return nullptr;
    const bool keepsName = std::ranges::count(bearers, facts.wanted.id, &DirectoryRecord::id) != 0;
    return keepsName ? nullptr : other(facts, bearers);
}

}  // namespace chengheng
