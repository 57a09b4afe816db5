#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Texts are UTF-8. A character is what UTF-8 encodes as one: a Chinese character counts as 1,
// a byte that begins none belongs to the character before it.

namespace chengheng {

std::size_t characterCount(std::string_view text);

/// The first so many characters; the whole text when it has no more.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Whether a blank stands anywhere: a space, a tab or the wide space of Chinese typing.
bool hasBlank(std::string_view text);

/// Whether it holds visible characters of ASCII and nothing else; not when it is empty.
bool isVisibleAscii(std::string_view text);

/// Whether it is one of 0 to 9.
constexpr bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

/// The text as a terminal may be given it: control characters other than line ends and tabs
/// become pictures of themselves, so that no name steers it. Lines end with LF.
std::string printableText(std::string_view text);
/// The same of a name that is to stay on its line.
std::string printableLine(std::string_view text);

/// The small form of a letter A to Z; every other byte as it is.
char lowerAscii(char letter);
/// A text with the letters A to Z small, as engines compare names.
std::string inSmallLetters(std::string_view text);
/// Whether the texts differ at most in the case of letters A to Z.
bool isSameInAnyCase(std::string_view one, std::string_view other);
/// Whether the text holds the other one, letters A to Z in any case.
bool containsInAnyCase(std::string_view text, std::string_view wanted);

/// The text without the blanks at its end.
std::string_view withoutTrailingBlanks(std::string_view text);
/// The text without the blanks at its front.
std::string_view withoutLeadingBlanks(std::string_view text);
/// The text without the blanks at both ends.
std::string_view withoutBlanksAround(std::string_view text);

}  // namespace chengheng
