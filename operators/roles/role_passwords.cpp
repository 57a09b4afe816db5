#include "operators/roles/role_passwords.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/system/owned_files.h"
#include "base/values/text.h"
#include "operators/roles/role_texts.h"
#include "session/failure_texts.h"
#include "session/rights/passwords.h"

namespace chengheng {
namespace {

namespace texts = role_texts;

constexpr std::size_t longestFile = 1024 * 1024;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

Refusal refused(std::string text) { return inputRefusal(std::move(text), ""); }

const OperatorRecord* find(std::span<const OperatorRecord> operators, std::string_view name) {
    const auto found = std::ranges::find_if(
        operators, [name](const OperatorRecord& each) { return each.user.sUserName == name; });
    return found == operators.end() ? nullptr : &*found;
}

}  // namespace

std::optional<Refusal> readRolePasswords(std::string_view text,
                                         std::vector<RolePassword>& passwords) {
    passwords.clear();
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    for (int line = 1; !text.empty(); ++line) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view words = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (words.ends_with('\r')) words.remove_suffix(1);
        if (withoutBlanksAround(words).empty()) continue;
        const std::size_t tab = words.find('\t');
        if (tab == std::string_view::npos || words.find('\0') != std::string_view::npos)
            return refused(fmt::format(texts::lineUnreadable, line));
        const std::string_view name = withoutBlanksAround(words.substr(0, tab));
        const std::string_view password = words.substr(tab + 1);
        if (password.empty())
            return refused(fmt::format(texts::passwordEmpty, line, printableLine(name)));
        if (std::ranges::find(passwords, name, &RolePassword::operatorName) != passwords.end())
            return refused(fmt::format(texts::operatorTwice, line, printableLine(name)));
        passwords.push_back({line, std::string(name), std::string(password)});
    }
    return std::nullopt;
}

std::optional<Refusal> readRolePasswordFile(const std::string& path,
                                            std::vector<RolePassword>& passwords) {
    std::string text;
    const Status status = readFile(path, longestFile, text);
    if (status) return readRolePasswords(text, passwords);
    return failureRefusal(status.failure == Failure::missing
                              ? fmt::format(texts::fileMissing, path)
                              : fmt::format(texts::fileUnreadable, path));
}

std::optional<Refusal> rolePasswordRefusal(std::span<const RolePassword> passwords,
                                           std::span<const OperatorRecord> operators) {
    for (const RolePassword& each : passwords) {
        const OperatorRecord* const record = find(operators, each.operatorName);
        const std::string name = printableLine(each.operatorName);
        if (record == nullptr) return refused(fmt::format(texts::operatorUnknown, each.line, name));
        if (!isPasswordOf(record->user.sPassword, each.password))
            return refused(fmt::format(texts::passwordDiffers, each.line, name));
    }
    return std::nullopt;
}

}  // namespace chengheng
