#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace chengheng {

/// Faces of type on paper: 宋体 with serifs, 黑体 without.
enum class FontFamily : std::uint8_t { song, hei };

struct LayoutFont {
    FontFamily family = FontFamily::song;
    double points = 9;
    bool isBold = false;

    bool operator==(const LayoutFont&) const = default;
};

/// What of a page is set in which font. Figures are what stands at the right of its column:
/// their digits are to be of one width, which those of a face with serifs often are not.
enum class FontRole : std::uint8_t { title, heading, column, cell, figure, edge };
inline constexpr std::size_t fontRoleCount = 6;

/// A line of a page in three parts. The texts name facts in braces: {title}, {company},
/// {books}, {operator}, {date}, {page}, {pages}.
struct LayoutLine {
    std::string left = {};
    std::string middle = {};
    std::string right = {};
    double height = 0;
    double rule = 0;  ///< width of the line that parts it from the rest of the page

    bool isEmpty() const { return left.empty() && middle.empty() && right.empty(); }
    bool operator==(const LayoutLine&) const = default;
};

/// What becomes of a text that is longer than its column: cut with an ellipsis, or carried on
/// in further lines of the row.
enum class Overflow : std::uint8_t { ellipsis, wrap };

/// How the pages of a report look, as a layout file says. Lengths are in millimetres; a rule
/// of width 0 is not drawn.
struct ReportLayout {
    double paperWidth = 210;  ///< of the upright page
    double paperHeight = 297;
    bool isPortrait = true;
    double marginTop = 15;
    double marginRight = 15;
    double marginBottom = 15;
    double marginLeft = 15;
    /// A table wider than the page becomes smaller by so much at most, then it is cut into
    /// strips; a narrower one is widened by so much at most.
    double leastScale = 0.7;
    double mostStretch = 2;
    int repeatedColumns = 1;  ///< at the left of each further strip

    std::array<LayoutFont, fontRoleCount> fonts{{{FontFamily::hei, 16, true},
                                                 {FontFamily::song, 9, false},
                                                 {FontFamily::hei, 9, false},
                                                 {FontFamily::song, 9, false},
                                                 {FontFamily::hei, 9, false},
                                                 {FontFamily::song, 8, false}}};

    LayoutLine header{.height = 6};
    std::string titleText = "{title}";
    double titleHeight = 12;
    LayoutLine heading{.height = 5.5};  ///< above the report's own heading lines
    double columnHeight = 8;            ///< of the row of column headings
    double rowHeight = 6.5;
    double padding = 1.2;  ///< between a cell's text and its rules
    double frameRule = 0.35;
    double columnRule = 0.12;
    double rowRule = 0.12;
    Overflow overflow = Overflow::ellipsis;
    int mostLines = 3;  ///< of a row whose texts wrap
    LayoutLine footer{.height = 6};

    const LayoutFont& font(FontRole role) const { return fonts[static_cast<std::size_t>(role)]; }
    bool operator==(const ReportLayout&) const = default;
};

}  // namespace chengheng
