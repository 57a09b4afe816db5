#include "accounts/codes/proposed_code.h"

#include <algorithm>

#include "base/values/text.h"

namespace chengheng {
namespace {

bool isNumber(std::string_view text) {
    return !text.empty() &&
           std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

/// Adds one to a number of a fixed number of digits; false when they do not hold it.
bool advance(std::string& number) {
    for (auto digit = number.rbegin(); digit != number.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return true;
        }
        *digit = '0';
    }
    return false;
}

bool isTaken(std::span<const std::string> codes, std::string_view code) {
    return std::ranges::binary_search(codes, code);
}

/// The first free code after a number under a parent, then the first one before it. The number
/// of zeros alone is given to nobody.
std::string freeAfter(std::span<const std::string> codes, std::string_view parent,
                      std::string number) {
    const std::string zeros(number.size(), '0');
    for (const bool isFromStart : {false, true}) {
        if (isFromStart) number = zeros;
        while (advance(number)) {
            const std::string code = std::string(parent) + number;
            if (!isTaken(codes, code)) return code;
        }
    }
    return {};
}

}  // namespace

std::string proposedChild(const CodeLevels& levels, std::span<const std::string> codes,
                          std::string_view parent) {
    const int grade = levels.gradeOf(parent);
    const int length = levels.lengthOf(grade + 1) - levels.lengthOf(grade);
    if (grade == 0 || length <= 0) return {};
    std::string highest(static_cast<std::size_t>(length), '0');
    for (auto code = std::ranges::lower_bound(codes, parent);
         code != codes.end() && code->starts_with(parent); ++code) {
        const auto number = std::string_view(*code).substr(parent.size());
        if (levels.gradeOf(*code) == grade + 1 && isNumber(number)) highest = number;
    }
    return freeAfter(codes, parent, highest);
}

std::string proposedSibling(const CodeLevels& levels, std::span<const std::string> codes,
                            std::string_view code) {
    const std::string parent = levels.parentOf(code);
    const auto number = code.substr(parent.size());
    if (!levels.isWellFormed(code) || !isNumber(number)) return {};
    return freeAfter(codes, parent, std::string(number));
}

}  // namespace chengheng
