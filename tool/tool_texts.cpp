#include "tool/tool_texts.h"

#include <fmt/format.h>

#include <array>

namespace chengheng::tool_texts {
namespace {

struct UsageFault {
    std::string_view error;   ///< the parser's name for it; empty: any
    std::string_view before;  ///< the parser's words around what it is about
    std::string_view after;
    fmt::format_string<std::string_view&> text;
};

constexpr std::array faults{
    UsageFault{"", "A subcommand is required", "", "命令行缺少命令{}"},
    UsageFault{"RequiredError", "", " is required", "命令行缺少 {}"},
    UsageFault{"", "The following argument was not expected: ", "", "命令行里多出了“{}”"},
    UsageFault{"", "The following arguments were not expected: ", "", "命令行里多出了“{}”"},
    UsageFault{"ArgumentMismatch", "", "", "选项的值太多或太少({})"},
    UsageFault{"ConversionError", "", "", "选项的值不对({})"},
    UsageFault{"ValidationError", "", "", "选项的值不对({})"},
    UsageFault{"", "", "", "命令行有误({})"},
};

bool isThis(const UsageFault& fault, std::string_view error, std::string_view detail) {
    return (fault.error.empty() || fault.error == error) && detail.starts_with(fault.before) &&
           detail.ends_with(fault.after);
}

}  // namespace

std::string wrongUsage(std::string_view error, std::string_view detail) {
    for (const UsageFault& fault : faults) {
        if (!isThis(fault, error, detail)) continue;
        detail.remove_prefix(fault.before.size());
        detail.remove_suffix(fault.after.size());
        return fmt::format(fault.text, detail) + "。\n用 --help 查看用法。";
    }
    return {};
}

}  // namespace chengheng::tool_texts
