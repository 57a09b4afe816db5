#include "screen/report/pdf_texts.h"

#include <fmt/format.h>

#include <QRawFont>
#include <QString>
#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "screen/report/pdf_text_maps.h"

namespace chengheng {
namespace {

struct CodeRange {
    unsigned first;
    unsigned last;
};

/// Codes that look like characters people type, and these characters.
constexpr CodeRange lookAlikes[] = {{0x9, 0x9}, {0x2E80, 0x2FDF}, {0x3038, 0x303A}};
constexpr CodeRange typedCharacters[] = {{0x20, 0x20}, {0x4E00, 0x9FFF}};

QList<quint32> shapesOf(const QRawFont& font, const CodeRange& range) {
    QString text;
    for (unsigned code = range.first; code <= range.last; ++code)
        text += QChar(static_cast<char16_t>(code));
    return font.glyphIndexesForString(text);
}

std::optional<unsigned> hexNumber(std::string_view digits) {
    unsigned number = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number, 16);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return number;
}

/// The numbers in angle brackets of a line, four digits each; nothing for any other line.
std::optional<std::vector<unsigned>> bracketedNumbers(std::string_view line) {
    constexpr std::size_t digits = 4;
    std::vector<unsigned> numbers;
    for (std::size_t open = line.find('<'); open != std::string_view::npos;
         open = line.find('<', open + 1)) {
        const std::size_t close = line.find('>', open);
        if (close != open + 1 + digits) return std::nullopt;
        const auto number = hexNumber(line.substr(open + 1, digits));
        if (!number) return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

/// "<first> <last> <character>" or "<first> <last> [<character> <character> ...]", in the
/// second form.
std::string readableRange(std::string_view line, const ReadableCodes& codes) {
    const auto numbers = bracketedNumbers(line);
    if (!numbers || numbers->size() < 3 || numbers->at(1) < numbers->front())
        return std::string(line);
    const bool isList = line.find('[') != std::string_view::npos;
    const std::size_t count = numbers->at(1) - numbers->front() + 1;
    if (isList && numbers->size() != count + 2) return std::string(line);
    std::string text = fmt::format("<{:04X}> <{:04X}> [", numbers->front(), numbers->at(1));
    for (std::size_t at = 0; at < count; ++at) {
        const unsigned code =
            isList ? numbers->at(at + 2) : numbers->at(2) + static_cast<unsigned>(at);
        const auto found = codes.find(code);
        text += fmt::format("<{:04X}> ", found == codes.end() ? code : found->second);
    }
    return text + "]";
}

}  // namespace

ReadableCodes readableCodes(std::span<const QFont> fonts) {
    ReadableCodes codes;
    for (const QFont& font : fonts) {
        const QRawFont raw = QRawFont::fromFont(font, QFontDatabase::SimplifiedChinese);
        std::map<quint32, unsigned> typed;
        for (const CodeRange& range : typedCharacters) {
            const auto shapes = shapesOf(raw, range);
            for (qsizetype at = 0; at < shapes.size(); ++at)
                typed.try_emplace(shapes[at], range.first + static_cast<unsigned>(at));
        }
        typed.erase(0);  // the shape of what the font does not have
        for (const CodeRange& range : lookAlikes) {
            const auto shapes = shapesOf(raw, range);
            for (qsizetype at = 0; at < shapes.size(); ++at)
                if (const auto found = typed.find(shapes[at]); found != typed.end())
                    codes.try_emplace(range.first + static_cast<unsigned>(at), found->second);
        }
    }
    return codes;
}

std::string withReadableCodes(std::string_view textMap, const ReadableCodes& codes) {
    std::string result;
    bool isInRanges = false;
    while (!textMap.empty()) {
        const std::size_t end = std::min(textMap.find('\n'), textMap.size());
        const std::string_view line = textMap.substr(0, end);
        if (line.starts_with("endbfrange")) isInRanges = false;
        result += isInRanges ? readableRange(line, codes) : std::string(line);
        result += '\n';
        if (line.ends_with("beginbfrange")) isInRanges = true;
        textMap.remove_prefix(std::min(end + 1, textMap.size()));
    }
    return result;
}

Status makeTextsReadable(std::string& pdf, const ReadableCodes& codes) {
    const std::string fault = changeTextMaps(
        pdf, [&codes](std::string_view map) { return withReadableCodes(map, codes); });
    return fault.empty() ? Status::done() : Status::of(Failure::damaged, fault);
}

}  // namespace chengheng
