#include "accounts/codes/code_levels.h"

#include <algorithm>

#include "base/values/text.h"

namespace chengheng {
bool isLevelPattern(std::string_view pattern) {
    return !pattern.empty() && pattern.size() <= mostLevels &&
           std::ranges::all_of(pattern, [](char digit) { return isDigit(digit) && digit != '0'; });
}

CodeLevels::CodeLevels(std::string_view pattern) {
    if (!isLevelPattern(pattern)) return;
    for (const char digit : pattern) {
        const int above = lengthOf(m_count);
        ++m_count;
        m_lengths.at(m_count) = above + (digit - '0');
        m_grades.at(m_lengths.at(m_count)) = static_cast<std::int8_t>(m_count);
    }
}

int CodeLevels::lengthOf(int grade) const {
    return grade >= 1 && grade <= m_count ? m_lengths.at(grade) : 0;
}

int CodeLevels::gradeOfLength(int length) const {
    return length >= 0 && length <= longestCode ? m_grades[length] : 0;
}

int CodeLevels::gradeOf(std::string_view code) const {
    return gradeOfLength(static_cast<int>(characterCount(code)));
}

std::string CodeLevels::parentOf(std::string_view code) const {
    return std::string(firstCharacters(code, lengthOf(gradeOf(code) - 1)));
}

bool departsFromCategory(const CodeLevels& levels, std::string_view code, int categoryNumber) {
    if (levels.gradeOf(code) != 1) return false;
    return !isDigit(code.front()) || code.front() - '0' != categoryNumber;
}

std::string indentedName(std::string_view name, int grade) {
    const int levelsBelowFirst = grade >= 1 && grade <= mostLevels ? grade - 1 : 0;
    return std::string(2 * levelsBelowFirst, ' ').append(name);
}

}  // namespace chengheng
