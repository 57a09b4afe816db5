#include "opening/sheet/auxiliary_kind.h"

#include <algorithm>
#include <array>

#include "opening/sheet/opening_texts.h"

namespace chengheng {
namespace {

struct KindOfLetters {
    std::string_view letters;  ///< all of them must be there
    AuxiliaryKind kind;
    const char* text;
};

/// The first that fits is the account's.
constexpr std::array kinds{
    KindOfLetters{"DB", AuxiliaryKind::unitAndProject, opening_texts::unitAndProject},
    KindOfLetters{"BC", AuxiliaryKind::departmentAndUnit, opening_texts::departmentAndUnit},
    KindOfLetters{"CD", AuxiliaryKind::departmentAndProject, opening_texts::departmentAndProject},
    KindOfLetters{"A", AuxiliaryKind::person, opening_texts::person},
    KindOfLetters{"C", AuxiliaryKind::department, opening_texts::department},
    KindOfLetters{"D", AuxiliaryKind::project, opening_texts::project},
    KindOfLetters{"B", AuxiliaryKind::unit, opening_texts::unitDealings},
};

bool holdsAll(std::string_view text, std::string_view letters) {
    return std::ranges::all_of(
        letters, [text](char letter) { return text.find(letter) != std::string_view::npos; });
}

}  // namespace

AuxiliaryKind auxiliaryKindOf(std::string_view letters) {
    const auto found = std::ranges::find_if(
        kinds, [letters](const KindOfLetters& each) { return holdsAll(letters, each.letters); });
    return found == kinds.end() ? AuxiliaryKind::none : found->kind;
}

const char* auxiliaryText(AuxiliaryKind kind) {
    const auto found = std::ranges::find(kinds, kind, &KindOfLetters::kind);
    return found == kinds.end() ? "" : found->text;
}

}  // namespace chengheng
