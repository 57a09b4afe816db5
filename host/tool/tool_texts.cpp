#include "host/tool/tool_texts.h"

#include <array>
#include <utility>

namespace chengheng::tool_texts {
namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 6> usageFaults{{
    {"RequiredError", "命令行不完整"},
    {"ExtrasError", "命令行里有多余或不认识的内容"},
    {"ArgumentMismatch", "选项的值太多或太少"},
    {"ConversionError", "选项的值不对"},
    {"ValidationError", "选项的值不对"},
    {"ExcludesError", "有的选项不能一起使用"},
}};

}  // namespace

std::string wrongUsage(std::string_view errorName, std::string_view detail) {
    std::string_view fault = "命令行有误";
    for (const auto& [name, text] : usageFaults)
        if (name == errorName) fault = text;
    return std::string(fault) + ":" + std::string(detail) + "。用 --help 查看用法。";
}

}  // namespace chengheng::tool_texts
