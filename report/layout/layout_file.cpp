#include "report/layout/layout_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <vector>

#include "base/system/owned_files.h"
#include "base/values/text.h"
#include "base/values/utf8.h"
#include "report/layout/layout_settings.h"
#include "report/layout/layout_texts.h"
#include "report/layout/print_refusal.h"

namespace chengheng {
namespace {

constexpr std::string_view versionWord = "rpn 1";
constexpr std::size_t largestFile = 64 * 1024;

/// Reads a file line by line; each line's reason, if any, ends the reading.
class LayoutReader {
  public:
    explicit LayoutReader(ReportLayout& layout) : m_layout(layout) {}

    std::string readLine(std::string_view line) {
        line = withoutBlanksAround(line);
        if (line.empty() || line.front() == '#') return {};
        if (!m_hasVersion) return readVersion(line);
        if (line.front() == '[') return readSection(line);
        return readSetting(line);
    }
    bool hasVersion() const { return m_hasVersion; }

  private:
    std::string readVersion(std::string_view line) {
        m_hasVersion = line == versionWord;
        if (m_hasVersion) return {};
        if (line.starts_with("rpn ")) return fmt::format(layout_texts::newerVersion, line);
        return fmt::format(layout_texts::noVersion, line);
    }

    std::string readSection(std::string_view line) {
        if (line.back() != ']') return fmt::format(layout_texts::sectionOpen, line);
        const std::string_view name = withoutBlanksAround(line.substr(1, line.size() - 2));
        if (!isLayoutSection(name)) return fmt::format(layout_texts::unknownSection, name);
        if (!m_sections.insert(std::string(name)).second)
            return fmt::format(layout_texts::sectionTwice, name);
        m_section = name;
        m_settings.clear();
        return {};
    }

    std::string readSetting(std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) return fmt::format(layout_texts::noEquals, line);
        const std::string_view name = withoutBlanksAround(line.substr(0, equals));
        if (m_section.empty()) return fmt::format(layout_texts::noSection, name);
        const LayoutSetting* setting = layoutSetting(m_section, name);
        if (setting == nullptr) return fmt::format(layout_texts::unknownSetting, m_section, name);
        if (!m_settings.insert(std::string(name)).second)
            return fmt::format(layout_texts::settingTwice, name);
        return setting->set(m_layout, withoutBlanksAround(line.substr(equals + 1)));
    }

    ReportLayout& m_layout;
    bool m_hasVersion = false;
    std::string m_section;
    std::set<std::string> m_sections;
    std::set<std::string> m_settings;
};

}  // namespace

std::optional<LayoutFault> parseLayout(std::string_view text, ReportLayout& layout) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    ReportLayout read;
    LayoutReader reader(read);
    int number = 0;
    while (!text.empty()) {
        ++number;
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (!isUtf8(line)) return LayoutFault{number, layout_texts::notUtf8};
        if (std::string why = reader.readLine(line); !why.empty())
            return LayoutFault{number, std::move(why)};
    }
    if (!reader.hasVersion()) return LayoutFault{std::max(number, 1), layout_texts::noVersion};
    if (!hasRoomForTable(read)) return LayoutFault{number, layout_texts::noRoom};
    layout = std::move(read);
    return std::nullopt;
}

std::optional<Refusal> readLayoutFile(const std::string& path, ReportLayout& layout) {
    std::string text;
    const Status status = readFile(path, largestFile, text);
    if (status.failure == Failure::missing)
        return printRefusal(fmt::format(layout_texts::missingFile, path));
    if (!status)
        return printRefusal(fmt::format(layout_texts::unreadableFile, path, status.detail));
    const auto fault = parseLayout(text, layout);
    if (!fault) return std::nullopt;
    return printRefusal(fmt::format(layout_texts::faultyFile, path, fault->line, fault->reason));
}

}  // namespace chengheng
