#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace chengheng {

/// An account has a level (grade) from 1, the top, to this.
inline constexpr int mostLevels = 6;

/// Whether a text is a level-length pattern: 1 to 6 digits from 1 to 9. A level of no
/// characters would be no level, so a 0 is refused like a letter.
bool isLevelPattern(std::string_view pattern);

/// How the codes of a set of books are built.
///
/// The codes form a tree by prefix: a child's code is its parent's code followed by the
/// characters of its own level. The pattern says how many characters each level adds. With
/// 4222 a code of 4 characters is a top-level account, 1001; one of 6 its child, 100101; one
/// of 8 a grandchild, 10010101; a code of 5 characters stands nowhere in the tree.
///
/// A text that is no pattern gives levels in which every code is malformed.
class CodeLevels {
  public:
    explicit CodeLevels(std::string_view pattern);

    /// Number of levels; 0 when the pattern was none.
    int count() const { return m_count; }
    /// Characters of a whole code of a level: with 4222, 4, 6, 8, 10. Level 0 has none, nor
    /// has any other level the books do not know.
    int lengthOf(int grade) const;

    /// Those lengths from level 1 on.
    std::span<const int> lengths() const { return std::span(m_lengths).subspan(1, m_count); }

    /// The level of a code of so many characters; 0 when no level has codes of that length.
    int gradeOfLength(int length) const;
    int gradeOf(std::string_view code) const;
    bool isWellFormed(std::string_view code) const { return gradeOf(code) != 0; }

    /// The code of the account above; empty for a top-level or malformed code.
    std::string parentOf(std::string_view code) const;

  private:
    static constexpr int longestCode = 9 * mostLevels;

    /// By grade; the 0 at the front is what stands before level 1.
    std::array<int, mostLevels + 1> m_lengths{};
    /// By length; 0 where no level has codes of that length.
    std::array<std::int8_t, longestCode + 1> m_grades{};
    int m_count = 0;
};

/// Whether the first character of a top-level code departs from the number of its category
/// (1 is the first of the list). Only a warning hangs on it: the bookkeeper may insist. Codes
/// below the top never depart.
bool departsFromCategory(const CodeLevels& levels, std::string_view code, int categoryNumber);

/// An account's name as the chart lists it: two blanks before it for each level below the
/// first. A grade that is no level indents nothing.
std::string indentedName(std::string_view name, int grade);

}  // namespace chengheng
