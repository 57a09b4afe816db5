#include "books/list/books_registry.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

#include "data/engines/open_engine.h"

namespace chengheng {
namespace {

using Json = nlohmann::json;

constexpr int registryFormat = 1;
constexpr std::size_t largestRegistry = 16 * 1024 * 1024;

/// The library would cut a number to size, and take a fraction for one.
std::int32_t numberOf(const Json& json) {
    const bool isNumber =
        json.is_number_unsigned()
            ? std::in_range<std::int32_t>(json.get<std::uint64_t>())
            : json.is_number_integer() && std::in_range<std::int32_t>(json.get<std::int64_t>());
    if (!isNumber) throw std::range_error(json.dump() + " is no number of a list");
    return json.get<std::int32_t>();
}

BooksYear yearOf(const Json& json) {
    return {numberOf(json.at("year")), json.at("location").get<std::string>()};
}

BooksSet setOf(const Json& json) {
    BooksSet set;
    set.id = numberOf(json.at("id"));
    set.name = json.at("name").get<std::string>();
    set.company = json.at("company").get<std::string>();
    for (const Json& year : json.at("years")) set.years.push_back(yearOf(year));
    return set;
}

// A server's password is not kept.
Json jsonOf(const BooksSet& set) {
    Json years = Json::array();
    for (const BooksYear& year : set.years)
        years.push_back({{"year", year.year}, {"location", shownLocation(year.location)}});
    return {{"id", set.id}, {"name", set.name}, {"company", set.company}, {"years", years}};
}

Status damaged(std::vector<BooksSet>& sets, const char* detail) {
    sets.clear();
    return Status::of(Failure::damaged, detail);
}

Status readSets(const std::string& text, const std::string& path, std::vector<BooksSet>& sets) {
    try {
        const Json json = Json::parse(text);
        if (numberOf(json.at("format")) > registryFormat)
            return Status::of(Failure::newerVersion, path);
        for (const Json& set : json.at("sets")) sets.push_back(setOf(set));
    } catch (const Json::exception& error) {
        return damaged(sets, error.what());
    } catch (const std::range_error& error) {
        return damaged(sets, error.what());
    }
    std::ranges::sort(sets, {}, &BooksSet::id);
    return Status::done();
}

std::string textOf(const std::vector<BooksSet>& sets) {
    Json list = Json::array();
    for (const BooksSet& set : sets) list.push_back(jsonOf(set));
    const Json json{{"format", registryFormat}, {"sets", list}};
    // A name with broken UTF-8 must not make the whole list unwritable.
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

bool isSamePlace(const BooksYear& one, const BooksYear& other) {
    return one.year == other.year && shownLocation(one.location) == shownLocation(other.location);
}

bool hasYear(const BooksSet& set, const BooksYear& year) {
    return std::ranges::any_of(
        set.years, [&year](const BooksYear& known) { return isSamePlace(known, year); });
}

/// Moves a year into the set of another name, or gives that name to its set when it is the only
/// one there.
void moveYear(std::vector<BooksSet>& sets, BooksSet& from, const BooksSet& facts,
              const BooksYear& year) {
    auto into = std::ranges::find(sets, facts.name, &BooksSet::name);
    if (into == sets.end() && from.years.size() == 1) {
        from.name = facts.name;
        return;
    }
    const auto moved = std::ranges::find(from.years, year.year, &BooksYear::year);
    const BooksYear own = *moved;
    from.years.erase(moved);
    if (into == sets.end()) {
        sets.push_back({facts.id, facts.name, facts.company, {own}});
    } else {
        into->years.push_back(own);
        std::ranges::sort(into->years, {}, &BooksYear::year);
    }
    std::erase_if(sets, [](const BooksSet& set) { return set.years.empty(); });
}

}  // namespace

std::string otherPlaceOf(const std::vector<BooksSet>& sets, std::string_view name,
                         const BooksYear& year) {
    const auto set = std::ranges::find(sets, name, &BooksSet::name);
    if (set == sets.end()) return {};
    const auto known = std::ranges::find(set->years, year.year, &BooksYear::year);
    if (known == set->years.end() || isSamePlace(*known, year)) return {};
    return known->location;
}

bool listUnderOwnName(std::vector<BooksSet>& sets, const BooksSet& facts, const BooksYear& year) {
    const auto holds = [&year](const BooksSet& set) { return hasYear(set, year); };
    auto set = std::ranges::find_if(sets, holds);
    if (set == sets.end() || !otherPlaceOf(sets, facts.name, year).empty()) return false;
    const std::vector<BooksSet> before = sets;
    if (set->name != facts.name) moveYear(sets, *set, facts, year);
    set = std::ranges::find_if(sets, holds);
    if (set->years.back().year == year.year) set->company = facts.company;
    return sets != before;
}

BooksRegistry::BooksRegistry(std::string folder) : m_folder(std::move(folder)) {}

std::string BooksRegistry::path() const { return m_folder + "/books.json"; }

Status BooksRegistry::read(std::vector<BooksSet>& sets) const {
    sets.clear();
    std::string text;
    const Status status = readFile(path(), largestRegistry, text);
    if (status.failure == Failure::missing) return Status::done();
    return status ? readSets(text, path(), sets) : status;
}

Status BooksRegistry::forget(std::string_view location) {
    RegistryChange change(*this);
    if (!change.status()) return change.status();
    for (BooksSet& set : change.sets())
        std::erase_if(set.years, [&](const BooksYear& year) { return year.location == location; });
    std::erase_if(change.sets(), [](const BooksSet& set) { return set.years.empty(); });
    return change.save();
}

Status BooksRegistry::correct(const BooksSet& facts, const BooksYear& year) const {
    std::vector<BooksSet> sets;
    if (const Status status = read(sets); !status) return status;
    const std::string elsewhere = otherPlaceOf(sets, facts.name, year);
    const bool isListed =
        std::ranges::any_of(sets, [&year](const BooksSet& set) { return hasYear(set, year); });
    if (isListed && !elsewhere.empty()) return Status::of(Failure::refused, elsewhere);
    if (!listUnderOwnName(sets, facts, year)) return Status::done();
    RegistryChange change(*this);
    if (!change.status() || !listUnderOwnName(change.sets(), facts, year)) return change.status();
    return change.save();
}

RegistryChange::RegistryChange(const BooksRegistry& registry) : m_registry(registry) {
    m_status = makeOwnedFolder(registry.folder());
    if (!m_status) return;
    m_hold = std::make_unique<FileHold>(registry.path() + ".lock");
    m_status = m_hold->status();
    if (m_status) m_status = registry.read(m_sets);
}

BooksSet* RegistryChange::findSet(std::string_view name) {
    const auto found = std::ranges::find(m_sets, name, &BooksSet::name);
    return found == m_sets.end() ? nullptr : &*found;
}

void RegistryChange::enter(const BooksSet& facts, const BooksYear& year) {
    BooksSet* set = findSet(facts.name);
    if (set == nullptr) {
        m_sets.push_back(facts);
        set = &m_sets.back();
        set->years.clear();
    }
    std::erase_if(set->years, [&](const BooksYear& known) { return known.year == year.year; });
    set->years.push_back(year);
    std::ranges::sort(set->years, {}, &BooksYear::year);
}

Status RegistryChange::save() {
    if (!m_status) return m_status;
    m_status = replaceOwnedFile(m_registry.path(), textOf(m_sets));
    return m_status;
}

}  // namespace chengheng
