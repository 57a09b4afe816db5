#include "report/layout/page_facts.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "report/layout/layout_texts.h"

namespace chengheng {
namespace {

struct Fact {
    std::string_view name;
    std::string (*text)(const PageFacts& facts);
};

constexpr std::array knownFacts{
    Fact{"title", [](const PageFacts& facts) { return std::string(facts.title); }},
    Fact{"company", [](const PageFacts& facts) { return facts.facts.company; }},
    Fact{"books", [](const PageFacts& facts) { return facts.facts.setName; }},
    Fact{"operator", [](const PageFacts& facts) { return facts.facts.operatorName; }},
    Fact{"date", [](const PageFacts& facts) { return paperDate(facts.facts.day); }},
    Fact{"page", [](const PageFacts& facts) { return std::to_string(facts.page); }},
    Fact{"pages",
         [](const PageFacts& facts) {
             return facts.pageCount == 0 ? "…" : std::to_string(facts.pageCount);
         }},
};

const Fact* factOf(std::string_view name) {
    const auto found = std::ranges::find(knownFacts, name, &Fact::name);
    return found == knownFacts.end() ? nullptr : &*found;
}

/// A text up to its next name in braces, and that name.
struct Piece {
    std::string_view before;
    std::string_view name;
    bool hasName = false;
    bool isClosed = true;
};

Piece takePiece(std::string_view& text) {
    const std::size_t open = text.find('{');
    Piece piece{.before = text.substr(0, open), .name = {}};
    if (open == std::string_view::npos) {
        text = {};
        return piece;
    }
    const std::size_t close = text.find('}', open);
    piece.hasName = true;
    piece.isClosed = close != std::string_view::npos;
    piece.name = text.substr(open + 1, piece.isClosed ? close - open - 1 : close);
    text = piece.isClosed ? text.substr(close + 1) : std::string_view();
    return piece;
}

}  // namespace

std::string withFacts(std::string_view text, const PageFacts& facts) {
    std::string result;
    while (!text.empty()) {
        const Piece piece = takePiece(text);
        result += piece.before;
        const Fact* const fact = piece.hasName ? factOf(piece.name) : nullptr;
        if (fact == nullptr) continue;
        const std::string named = fact->text(facts);
        if (named.empty()) return {};
        result += named;
    }
    return result;
}

std::string factsFault(std::string_view text) {
    const std::string_view whole = text;
    while (!text.empty()) {
        const Piece piece = takePiece(text);
        if (!piece.isClosed) return fmt::format(layout_texts::braceOpen, whole);
        if (piece.hasName && factOf(piece.name) == nullptr)
            return fmt::format(layout_texts::unknownFact, piece.name);
    }
    return {};
}

std::string paperDate(const Date& date) {
    return !date.isSet() ? std::string()
                         : fmt::format("{:04}.{:02}.{:02}", date.year, date.month, date.day);
}

}  // namespace chengheng
