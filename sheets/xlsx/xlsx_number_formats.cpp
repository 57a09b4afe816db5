#include "sheets/xlsx/xlsx_number_formats.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <map>

#include "base/values/numbers.h"
#include "base/values/text.h"
#include "sheets/sheet_limits.h"

namespace chengheng {
namespace {

constexpr std::size_t npos = std::string_view::npos;

/// Formats that every workbook knows without stating them: only those of dates and times.
struct KnownFormats {
    int first;
    int last;
    NumberLook look;
};

constexpr NumberLook dateLook{.hasDate = true};
constexpr NumberLook timeLook{.hasTime = true};
constexpr NumberLook momentLook{.hasDate = true, .hasTime = true};
constexpr std::array knownFormats{KnownFormats{14, 17, dateLook},   KnownFormats{18, 21, timeLook},
                                  KnownFormats{22, 22, momentLook}, KnownFormats{27, 31, dateLook},
                                  KnownFormats{32, 35, timeLook},   KnownFormats{36, 36, dateLook},
                                  KnownFormats{45, 45, timeLook},   KnownFormats{47, 47, timeLook},
                                  KnownFormats{50, 54, dateLook},   KnownFormats{55, 56, timeLook},
                                  KnownFormats{57, 58, dateLook}};

/// The signs of a format's first section in small letters, without what is shown as it is.
std::string signsOf(std::string_view format) {
    std::string signs;
    for (std::size_t at = 0; at < format.size() && format[at] != ';'; ++at) {
        const char letter = lowerAscii(format[at]);
        if (letter == '"') {
            at = format.find('"', at + 1);
            if (at == npos) break;
        } else if (letter == '[') {
            // A length of time, [h]:mm, is a number; other brackets hold colours and languages.
            const std::size_t end = format.find(']', at);
            if (end == npos) break;
            const char inside = lowerAscii(format[at + 1]);
            if (inside == 'h' || inside == 'm' || inside == 's') return "";
            at = end;
        } else if (letter == '\\' || letter == '_' || letter == '*') {
            ++at;
        } else {
            signs += letter;
        }
    }
    return signs;
}

void removeAll(std::string& text, std::string_view word) {
    for (std::size_t at = text.find(word); at != npos; at = text.find(word, at))
        text.erase(at, word.size());
}

/// Reads the styles of a workbook.
class StylesHandler : public XmlHandler {
  public:
    void start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "cellXfs") m_isInCells = true;
        if (name == "numFmt")
            m_formats[numberOf(attributes["numFmtId"])] = lookOfFormat(attributes["formatCode"]);
        if (name == "xf" && m_isInCells) m_looks.push_back(look(numberOf(attributes["numFmtId"])));
        if (m_looks.size() > sheet_limits::cells || m_formats.size() > sheet_limits::cells)
            fail(damagedWorkbook("too many styles"));
    }
    void end(std::string_view name) override {
        if (name == "cellXfs") m_isInCells = false;
    }
    void text(std::string_view) override {}

    std::vector<NumberLook> takeLooks() { return std::move(m_looks); }

  private:
    static int numberOf(std::string_view text) {
        int number = 0;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }
    NumberLook look(int format) const {
        if (const auto own = m_formats.find(format); own != m_formats.end()) return own->second;
        const auto* const known = std::ranges::find_if(knownFormats, [&](const auto& each) {
            return each.first <= format && format <= each.last;
        });
        return known == knownFormats.end() ? NumberLook() : known->look;
    }

    bool m_isInCells = false;
    std::map<int, NumberLook> m_formats;
    std::vector<NumberLook> m_looks;
};

/// The calendar of spreadsheets has a 29th of February 1900. Before it their numbers are one
/// less than later ones would have them.
constexpr std::int64_t dayThatWasNot = 60;

std::string dateText(std::int64_t day, bool countsFrom1904) {
    using namespace std::chrono;
    const sys_days first = countsFrom1904        ? sys_days(year(1904) / 1 / 1)
                           : day < dayThatWasNot ? sys_days(year(1899) / 12 / 31)
                                                 : sys_days(year(1899) / 12 / 30);
    const year_month_day date(first + days(day));
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
}

std::string timeText(std::int64_t second) {
    constexpr std::int64_t perMinute = 60;
    return fmt::format("{:02}:{:02}:{:02}", second / perMinute / perMinute,
                       second / perMinute % perMinute, second % perMinute);
}

/// A date, a time or both; nothing when there is no such date.
std::string momentText(double number, const NumberLook& look, bool countsFrom1904) {
    constexpr std::int64_t perDay = 86'400;
    constexpr double beyondLastDay = 2'958'466;
    constexpr std::int64_t daysTo1904 = 1462;
    if (number < 0 || number >= beyondLastDay - (countsFrom1904 ? daysTo1904 : 0)) return {};
    const auto seconds = static_cast<std::int64_t>(std::floor(number * perDay + 0.5));
    const std::int64_t day = look.hasTime ? seconds / perDay : static_cast<std::int64_t>(number);
    if (look.hasTime && !look.hasDate && day == 0) return timeText(seconds);
    if (!countsFrom1904 && (day == 0 || day == dayThatWasNot)) return {};
    const std::string date = dateText(day, countsFrom1904);
    return look.hasTime ? date + " " + timeText(seconds % perDay) : date;
}

}  // namespace

NumberLook lookOfFormat(std::string_view format) {
    NumberLook look;
    std::string signs = signsOf(format);
    removeAll(signs, "general");
    removeAll(signs, "am/pm");
    removeAll(signs, "a/p");
    look.hasTime = signs.find_first_of("hs") != npos;
    look.hasDate = signs.find_first_of("yd") != npos || (signs.find('m') != npos && !look.hasTime);
    constexpr std::size_t mostDigits = 15;  // no number of a spreadsheet has more
    const bool isZeros = !signs.empty() && signs.find_first_not_of('0') == npos;
    if (isZeros && signs.size() <= mostDigits) look.leastDigits = signs.size();
    return look;
}

std::optional<SheetFailure> XlsxNumberFormats::read(XlsxPackage& package, const std::string& part) {
    StylesHandler styles;
    if (std::optional<SheetFailure> failure = package.read(part, styles)) return failure;
    m_looks = styles.takeLooks();
    return std::nullopt;
}

NumberLook XlsxNumberFormats::look(std::size_t style) const {
    return style < m_looks.size() ? m_looks[style] : NumberLook();
}

Cell shownNumber(double number, const NumberLook& look, bool countsFrom1904) {
    if (look.hasDate || look.hasTime) {
        std::string moment = momentText(number, look, countsFrom1904);
        return moment.empty() ? Cell::of(number) : Cell::of(std::move(moment));
    }
    const std::string digits = shortestText(number);
    const bool isCode = digits.find_first_not_of("0123456789") == npos;
    if (!isCode || digits.size() >= look.leastDigits) return Cell::of(number);
    return Cell::of(number, std::string(look.leastDigits - digits.size(), '0') + digits);
}

}  // namespace chengheng
