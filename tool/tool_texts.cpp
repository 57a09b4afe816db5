#include "tool/tool_texts.h"

#include <fmt/format.h>

#include <array>

namespace chengheng::tool_texts {
namespace {

struct UsageFault {
    std::string_view error;  ///< the parser's name for it; empty: any
    std::string_view words;  ///< the parser's, between what stands before and behind them
    fmt::format_string<std::string_view&, std::string_view&> text;
};

constexpr std::array faults{
    UsageFault{"", "A subcommand is required", "命令行缺少命令"},
    UsageFault{"RequiredError", " is required", "命令行缺少 {0}"},
    UsageFault{"ArgumentMismatch", ": 1 required ", "选项 {0} 后面缺少它的值"},
    UsageFault{"ArgumentMismatch", ": At Most ", "选项 {0} 只能给出一次"},
    UsageFault{"RequiresError", " requires ", "{0} 要和 {1} 一起给出"},
    UsageFault{"ConversionError", "Could not convert: ", "选项的值不对({1})"},
    UsageFault{"ValidationError", "", "{1}"},
    UsageFault{"", "", "命令行有误"},
};

}  // namespace

std::string usageFault(std::string_view error, std::string_view detail) {
    for (const UsageFault& fault : faults) {
        const std::size_t at = detail.find(fault.words);
        if (at == std::string_view::npos) continue;
        if (!fault.error.empty() && fault.error != error) continue;
        std::string_view before = detail.substr(0, at);
        std::string_view behind = detail.substr(at + fault.words.size());
        return fmt::format(fault.text, before, behind);
    }
    return {};
}

}  // namespace chengheng::tool_texts
