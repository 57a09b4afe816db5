#include "auxiliary/transfer/entry_directory.h"

#include <algorithm>

#include "base/values/text.h"
#include "data/access/row_lease.h"
#include "data/tables/directories.h"

namespace chengheng {
namespace {

bool isWithin(const LookupScope& scope, Dimension dimension, const DimensionChoice& choice) {
    if (dimension == Dimension::person)
        return scope.department == 0 || choice.department == scope.department;
    const auto& classes = scope.itemClasses;
    return dimension != Dimension::item || classes.empty() ||
           std::ranges::find(classes, choice.itemClass) != classes.end();
}

std::int32_t idOf(const EntryDimensions& of, Dimension dimension) {
    switch (dimension) {
        case Dimension::department:
            return of.department;
        case Dimension::person:
            return of.person.value_or(0);
        case Dimension::unit:
            return of.unit;
        case Dimension::item:
            break;
    }
    return of.item;
}

LookupScope scopeOf(const EntryDimensions& of, Dimension dimension) {
    LookupScope scope;
    if (dimension == Dimension::person) scope.department = of.department;
    if (dimension == Dimension::item) scope.itemClasses = {of.itemClass};
    return scope;
}

}  // namespace

void EntryDirectory::assign(Dimension dimension, std::vector<DimensionChoice> choices) {
    Part& part = m_parts[static_cast<std::size_t>(dimension)];
    part = {};
    part.choices = std::move(choices);
    part.byName.reserve(part.choices.size());
    part.byCode.reserve(part.choices.size());
    for (std::size_t place = 0; place < part.choices.size(); ++place) {
        const DimensionChoice& choice = part.choices[place];
        part.byName.emplace(choice.name, place);
        part.byCode.emplace(choice.code, place);
    }
}

void EntryDirectory::addClass(std::string code, std::string name) {
    m_classes.emplace_back(std::move(code), std::move(name));
}

EntryDirectory::Found EntryDirectory::find(Dimension dimension, std::string_view text,
                                           const LookupScope& scope) const {
    Found found;
    if (text.empty()) return found;
    const Part& part = partOf(dimension);
    for (const auto* index : {&part.byName, &part.byCode}) {
        const auto [first, last] = index->equal_range(text);
        for (auto at = first; at != last; ++at)
            if (isWithin(scope, dimension, part.choices[at->second]))
                found.push_back(&part.choices[at->second]);
        if (!found.empty()) break;
    }
    std::ranges::sort(found);
    return found;
}

const DimensionChoice* EntryDirectory::department(std::int32_t id) const {
    const auto& departments = partOf(Dimension::department).choices;
    const auto found = std::ranges::find(departments, id, &DimensionChoice::id);
    return found == departments.end() ? nullptr : &*found;
}

std::optional<std::string> EntryDirectory::classOf(std::string_view text) const {
    for (const auto& [code, name] : m_classes)
        if (code == text || name == text) return code;
    return std::nullopt;
}

std::string EntryDirectory::textOf(Dimension dimension, const AuxiliaryEntry& entry) const {
    const EntryDimensions& of = entry.content.of;
    const LookupScope scope = scopeOf(of, dimension);
    const std::string& name = nameOf(entry.names, dimension);
    const auto findsIt = [&](const Found& found) {
        return found.size() == 1 && found.front()->id == idOf(of, dimension);
    };
    if (findsIt(find(dimension, withoutBlanksAround(name), scope))) return name;
    for (const DimensionChoice& choice : partOf(dimension).choices)
        if (choice.id == idOf(of, dimension) && isWithin(scope, dimension, choice) &&
            findsIt(find(dimension, withoutBlanksAround(choice.code), scope)))
            return choice.code;
    return name;
}

Status readEntryDirectory(CNbCwDB& database, const AuxiliaryMember& member, std::int32_t accountId,
                          EntryDirectory& directory) {
    LookupScope scope;
    if (member.has(Dimension::item)) {
        if (Status status = readItemClasses(database, accountId, scope.itemClasses); !status)
            return status;
        const RowLease<_ProjClassInfo> lease(database, nullptr);
        if (!lease.isRead()) return database.lastStatus();
        for (const _ProjClassInfo* row : lease.rows())
            if (std::ranges::count(scope.itemClasses, row->sClsCode) != 0)
                directory.addClass(row->sClsCode, row->sClsName);
    }
    for (const DimensionWords& words : member.dimensions) {
        std::vector<DimensionChoice> choices;
        const Status status = readChoices(database, words.dimension, scope, choices);
        if (!status) return status;
        directory.assign(words.dimension, std::move(choices));
    }
    return Status::done();
}

}  // namespace chengheng
