#include "report/engine/cell_lines.h"

#include <algorithm>
#include <array>

#include "base/values/text.h"

namespace chengheng {
namespace {

bool isWordByte(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= 'a' && byte <= 'z') || byte == '.' || byte == ',' || byte == '-';
}

/// Without characters that have no shape on paper, nor blanks at the end; line ends stay where
/// they are wanted.
std::string printable(std::string_view text, bool keepsLineEnds) {
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    std::string result(text.substr(0, last == std::string_view::npos ? 0 : last + 1));
    for (char& byte : result) {
        const bool isControl = static_cast<unsigned char>(byte) < 0x20U || byte == 0x7F;
        if (isControl && !(keepsLineEnds && byte == '\n')) byte = ' ';
    }
    return result;
}

bool isPlain(std::string_view text) {
    return std::ranges::none_of(
        text, [](char byte) { return static_cast<unsigned char>(byte) < 0x20U || byte == 0x7F; });
}

bool isInsideCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// A line begins with none of these, as Chinese is set.
bool beginsWithClosingSign(std::string_view text) {
    constexpr std::array<std::string_view, 13> signs{"、", "，", "。", "；", "：", "？", "！",
                                                     "）", "》", "】", "”",  "’",  ")"};
    return std::ranges::any_of(signs,
                               [&](std::string_view sign) { return text.starts_with(sign); });
}

bool mayBreakAt(std::string_view text, std::size_t place) {
    if (isInsideCharacter(text[place]) || beginsWithClosingSign(text.substr(place))) return false;
    return !isWordByte(text[place - 1]) || !isWordByte(text[place]);
}

/// The place at or before `end` where a line may end: not inside a word that began on it, nor
/// before a closing sign.
std::size_t breakBefore(std::string_view text, std::size_t end) {
    if (end >= text.size()) return end;
    std::size_t place = end;
    while (place > 0 && !mayBreakAt(text, place)) --place;
    return place > 0 ? place : end;
}

/// The blanks before a text. What they set in keeps to it in further lines, where they leave
/// half of the width.
std::string indentOf(std::string_view text) {
    constexpr std::string_view wideBlank = "\u3000";
    std::string_view rest = text;
    while (rest.starts_with(' ') || rest.starts_with(wideBlank))
        rest.remove_prefix(rest.starts_with(' ') ? 1 : wideBlank.size());
    return std::string(text.substr(0, text.size() - rest.size()));
}

/// What is left after a line ended at its width: the blanks at that place are gone, and so is
/// a line end just there.
std::string_view nextLine(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with('\n')) text.remove_prefix(1);
    return text;
}

}  // namespace

CellSetter::CellSetter(const ITextMeasure& measure, FontRole role, double scale)
    : m_measure(measure),
      m_role(role),
      m_scale(scale),
      m_widest(std::max(width("国"), width("W"))) {}

bool CellSetter::fits(std::string_view text, double width) const {
    // Most texts are far from filling their column, which counting tells without measuring.
    if (static_cast<double>(characterCount(text)) * m_widest <= width) return true;
    return this->width(text) <= width;
}

std::size_t CellSetter::fittingLength(std::string_view text, double width) const {
    std::size_t least = 0;
    std::size_t most = characterCount(text);
    while (least < most) {
        const std::size_t tried = (least + most + 1) / 2;
        if (fits(firstCharacters(text, tried), width))
            least = tried;
        else
            most = tried - 1;
    }
    return firstCharacters(text, std::max<std::size_t>(least, 1)).size();
}

std::string CellSetter::cut(std::string_view text, double width) const {
    const double room = width - this->width(ellipsis);
    std::size_t length = room > 0 ? fittingLength(text, room) : 0;
    if (!fits(text.substr(0, length), room)) length = 0;
    return std::string(withoutTrailingBlanks(text.substr(0, length))) + ellipsis;
}

std::vector<std::string> CellSetter::lines(std::string_view text, double width,
                                           std::size_t mostLines) const {
    const std::string shown = printable(text, mostLines > 1);
    std::string indent = indentOf(shown);
    if (this->width(indent) > width / 2) indent.clear();
    std::string_view rest = shown;
    std::vector<std::string> found;
    std::string before;  // of a line that goes on the one above
    do {
        const std::size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        const double room = width - this->width(before);
        const bool isWhole = fits(line, room);
        const bool endsText = isWhole && end == std::string_view::npos;
        if (found.size() + 1 == mostLines && !endsText) {
            // The ellipsis stands even where the line itself fits, since more follows it.
            found.push_back(before + (isWhole && fits(std::string(line) + ellipsis, room)
                                          ? std::string(line) + ellipsis
                                          : cut(line, room)));
            return found;
        }
        std::size_t length = line.size();
        if (!isWhole) length = breakBefore(line, fittingLength(line, room));
        found.push_back(before + std::string(withoutTrailingBlanks(line.substr(0, length))));
        rest.remove_prefix(isWhole && !endsText ? length + 1 : length);
        if (!isWhole) rest = nextLine(rest);
        before = isWhole ? std::string() : indent;
        if (endsText) break;
    } while (!rest.empty());
    return found;
}

std::size_t CellSetter::lineCount(std::string_view text, double width,
                                  std::size_t mostLines) const {
    if (mostLines <= 1 || (isPlain(text) && fits(text, width))) return 1;
    return lines(text, width, mostLines).size();
}

}  // namespace chengheng
