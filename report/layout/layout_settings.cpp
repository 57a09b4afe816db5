#include "report/layout/layout_settings.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

#include "report/layout/layout_texts.h"
#include "report/layout/page_facts.h"

namespace chengheng {
namespace {

template <class Number>
std::optional<Number> readNumber(std::string_view text, int least, int most) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    // A NaN lies in no range.
    const bool isRead = read.ec == std::errc() && read.ptr == end;
    if (!isRead || !(number >= least && number <= most)) return std::nullopt;
    return number;
}

std::string putNumber(double& place, std::string_view value, int least, int most) {
    const auto number = readNumber<double>(value, least, most);
    if (!number) return fmt::format(layout_texts::notNumber, value, least, most);
    place = *number;
    return {};
}

template <double ReportLayout::*member, int least, int most>
std::string setNumber(ReportLayout& layout, std::string_view value) {
    return putNumber(layout.*member, value, least, most);
}

template <double ReportLayout::*member, int least, int most>
std::string setPercent(ReportLayout& layout, std::string_view value) {
    double percent = 0;
    std::string why = putNumber(percent, value, least, most);
    if (why.empty()) layout.*member = percent / 100;
    return why;
}

template <int ReportLayout::*member, int least, int most>
std::string setCount(ReportLayout& layout, std::string_view value) {
    const auto number = readNumber<int>(value, least, most);
    if (!number) return fmt::format(layout_texts::notWholeNumber, value, least, most);
    layout.*member = *number;
    return {};
}

std::string putText(std::string& place, std::string_view value) {
    std::string why = factsFault(value);
    if (why.empty()) place = value;
    return why;
}

std::string setTitleText(ReportLayout& layout, std::string_view value) {
    return putText(layout.titleText, value);
}

template <LayoutLine ReportLayout::*line, std::string LayoutLine::*part>
std::string setPart(ReportLayout& layout, std::string_view value) {
    return putText(layout.*line.*part, value);
}

template <LayoutLine ReportLayout::*line, double LayoutLine::*part, int least, int most>
std::string setLength(ReportLayout& layout, std::string_view value) {
    return putNumber(layout.*line.*part, value, least, most);
}

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> found;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (end > 0) found.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return found;
}

std::string setMargins(ReportLayout& layout, std::string_view value) {
    constexpr int widest = 200;
    const std::array places{&layout.marginTop, &layout.marginRight, &layout.marginBottom,
                            &layout.marginLeft};
    const auto given = words(value);
    if (given.size() != places.size()) return fmt::format(layout_texts::notMargins, value);
    for (std::size_t at = 0; at < places.size(); ++at)
        if (std::string why = putNumber(*places[at], given[at], 0, widest); !why.empty())
            return why;
    return {};
}

struct NamedPaper {
    std::string_view name;
    double width;
    double height;
};
constexpr std::array papers{NamedPaper{"A3", 297, 420}, NamedPaper{"A4", 210, 297},
                            NamedPaper{"A5", 148, 210}, NamedPaper{"B5", 182, 257}};

std::string setPaper(ReportLayout& layout, std::string_view value) {
    constexpr int smallest = 50;
    constexpr int largest = 2000;
    const auto named = std::ranges::find(papers, value, &NamedPaper::name);
    if (named != papers.end()) {
        layout.paperWidth = named->width;
        layout.paperHeight = named->height;
        return {};
    }
    const auto given = words(value);
    if (given.size() != 3 || given[1] != "x") return fmt::format(layout_texts::notPaper, value);
    std::string why = putNumber(layout.paperWidth, given[0], smallest, largest);
    return why.empty() ? putNumber(layout.paperHeight, given[2], smallest, largest) : why;
}

std::string setUpright(ReportLayout& layout, std::string_view value) {
    if (value != "yes" && value != "no") return fmt::format(layout_texts::notYesOrNo, value);
    layout.isPortrait = value == "yes";
    return {};
}

std::string setOverflow(ReportLayout& layout, std::string_view value) {
    if (value != "ellipsis" && value != "wrap")
        return fmt::format(layout_texts::notOverflow, value);
    layout.overflow = value == "wrap" ? Overflow::wrap : Overflow::ellipsis;
    return {};
}

template <FontRole role>
std::string setFont(ReportLayout& layout, std::string_view value) {
    constexpr int smallest = 5;
    constexpr int largest = 72;
    const auto given = words(value);
    const bool isBold = given.size() == 3 && given[2] == "bold";
    const bool isShaped =
        (given.size() == 2 || isBold) && (given[0] == "song" || given[0] == "hei");
    const auto points = isShaped ? readNumber<double>(given[1], smallest, largest) : std::nullopt;
    if (!points) return fmt::format(layout_texts::notFont, value);
    layout.fonts[static_cast<std::size_t>(role)] = {
        given[0] == "song" ? FontFamily::song : FontFamily::hei, *points, isBold};
    return {};
}

using Layout = ReportLayout;
using Line = LayoutLine;

constexpr std::array settings{
    LayoutSetting{"page", "paper", setPaper},
    LayoutSetting{"page", "upright", setUpright},
    LayoutSetting{"page", "margins", setMargins},
    LayoutSetting{"page", "shrink", setPercent<&Layout::leastScale, 30, 100>},
    LayoutSetting{"page", "stretch", setPercent<&Layout::mostStretch, 100, 500>},
    LayoutSetting{"page", "repeat", setCount<&Layout::repeatedColumns, 0, 5>},
    LayoutSetting{"fonts", "title", setFont<FontRole::title>},
    LayoutSetting{"fonts", "heading", setFont<FontRole::heading>},
    LayoutSetting{"fonts", "column", setFont<FontRole::column>},
    LayoutSetting{"fonts", "cell", setFont<FontRole::cell>},
    LayoutSetting{"fonts", "figure", setFont<FontRole::figure>},
    LayoutSetting{"fonts", "edge", setFont<FontRole::edge>},
    LayoutSetting{"header", "left", setPart<&Layout::header, &Line::left>},
    LayoutSetting{"header", "middle", setPart<&Layout::header, &Line::middle>},
    LayoutSetting{"header", "right", setPart<&Layout::header, &Line::right>},
    LayoutSetting{"header", "height", setLength<&Layout::header, &Line::height, 0, 100>},
    LayoutSetting{"header", "rule", setLength<&Layout::header, &Line::rule, 0, 5>},
    LayoutSetting{"title", "text", setTitleText},
    LayoutSetting{"title", "height", setNumber<&Layout::titleHeight, 0, 100>},
    LayoutSetting{"heading", "left", setPart<&Layout::heading, &Line::left>},
    LayoutSetting{"heading", "middle", setPart<&Layout::heading, &Line::middle>},
    LayoutSetting{"heading", "right", setPart<&Layout::heading, &Line::right>},
    LayoutSetting{"heading", "height", setLength<&Layout::heading, &Line::height, 0, 100>},
    LayoutSetting{"heading", "rule", setLength<&Layout::heading, &Line::rule, 0, 5>},
    LayoutSetting{"table", "column-height", setNumber<&Layout::columnHeight, 3, 100>},
    LayoutSetting{"table", "row-height", setNumber<&Layout::rowHeight, 3, 100>},
    LayoutSetting{"table", "padding", setNumber<&Layout::padding, 0, 10>},
    LayoutSetting{"table", "frame", setNumber<&Layout::frameRule, 0, 5>},
    LayoutSetting{"table", "column-rule", setNumber<&Layout::columnRule, 0, 5>},
    LayoutSetting{"table", "row-rule", setNumber<&Layout::rowRule, 0, 5>},
    LayoutSetting{"table", "overflow", setOverflow},
    LayoutSetting{"table", "most-lines", setCount<&Layout::mostLines, 1, 100>},
    LayoutSetting{"footer", "left", setPart<&Layout::footer, &Line::left>},
    LayoutSetting{"footer", "middle", setPart<&Layout::footer, &Line::middle>},
    LayoutSetting{"footer", "right", setPart<&Layout::footer, &Line::right>},
    LayoutSetting{"footer", "height", setLength<&Layout::footer, &Line::height, 0, 100>},
    LayoutSetting{"footer", "rule", setLength<&Layout::footer, &Line::rule, 0, 5>},
};

}  // namespace

bool isLayoutSection(std::string_view name) {
    return std::ranges::find(settings, name, &LayoutSetting::section) != settings.end();
}

const LayoutSetting* layoutSetting(std::string_view section, std::string_view name) {
    const auto found = std::ranges::find_if(settings, [&](const LayoutSetting& setting) {
        return setting.section == section && setting.name == name;
    });
    return found == settings.end() ? nullptr : &*found;
}

bool hasRoomForTable(const ReportLayout& layout) {
    constexpr double leastTableWidth = 30;
    const double shorter = std::min(layout.paperWidth, layout.paperHeight);
    const double beside = layout.marginLeft + layout.marginRight;
    const double above = layout.marginTop + layout.header.height + layout.titleHeight +
                         layout.heading.height + layout.columnHeight;
    const double below = layout.footer.height + layout.marginBottom;
    return shorter - beside >= leastTableWidth && shorter - above - below >= layout.rowHeight;
}

}  // namespace chengheng
