#include "tool/json_text.h"

#include <fmt/format.h>

namespace chengheng {

std::string jsonText(const Json& json) {
    const std::string text = json.dump(2, ' ', false, Json::error_handler_t::replace);
    std::string escaped;
    escaped.reserve(text.size());
    // The writer leaves those beyond the first 32 as they are; they can stand in texts only.
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isLate = text[at] == '\xC2' && static_cast<unsigned char>(text[at + 1]) < 0xA0U;
        if (isLate) ++at;
        if (isLate || text[at] == '\x7F')
            escaped += fmt::format("\\u{:04x}", static_cast<unsigned char>(text[at]));
        else
            escaped += text[at];
    }
    return escaped;
}

}  // namespace chengheng
