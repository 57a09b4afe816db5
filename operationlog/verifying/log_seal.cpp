#include "operationlog/verifying/log_seal.h"

#include <fmt/format.h>

#include <array>
#include <charconv>

#include "base/values/text.h"
#include "data/transfer/stored_tables.h"
#include "operationlog/verifying/verifying_sql.h"
#include "operationlog/verifying/verifying_texts.h"

namespace chengheng {
namespace {

constexpr std::size_t hashLength = noHashBefore.size();
// A name may be long; whatever is longer is no seal.
constexpr std::size_t longestSeal = 64 * 1024;

/// The rest of the line that begins so, taken off the text; nothing when the line is another one.
std::optional<std::string_view> takeLine(std::string_view& text, std::string_view heading) {
    if (!text.starts_with(heading)) return std::nullopt;
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    std::string_view line = text.substr(heading.size(), end - heading.size());
    if (line.ends_with('\r')) line.remove_suffix(1);
    text.remove_prefix(end + 1);
    return line;
}

bool readNumber(std::string_view text, std::int64_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number > 0;
}

}  // namespace

Status readSeal(Engine& engine, LogSeal& seal) {
    seal = {};
    Status status = forEachRow(engine, verifying_sql::booksName, {}, [&seal](const Cursor& row) {
        seal.books = printableLine(row.text(0));
        return Status::done();
    });
    if (status)
        status = forEachRow(engine, verifying_sql::lastEntry, {}, [&seal](const Cursor& row) {
            seal.end = {.number = row.integer(0),
                        .time = std::string(row.text(1)),
                        .hash = std::string(row.text(2))};
            return Status::done();
        });
    return status;
}

std::string sealText(const LogSeal& seal) {
    using namespace verifying_texts;
    return fmt::format("{}\n{}{}\n{}{}\n{}{}\n{}{}\n", sealHeading, sealBooks, seal.books,
                       sealNumber, seal.end.number, sealTime, seal.end.time, sealHash,
                       seal.end.hash);
}

std::optional<LogSeal> parseSeal(std::string_view text) {
    using namespace verifying_texts;
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (text.size() > longestSeal) return std::nullopt;
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
    const auto heading = takeLine(text, sealHeading);
    const auto books = heading && heading->empty() ? takeLine(text, sealBooks) : std::nullopt;
    const auto number = books ? takeLine(text, sealNumber) : std::nullopt;
    const auto time = number ? takeLine(text, sealTime) : std::nullopt;
    const auto hash = time ? takeLine(text, sealHash) : std::nullopt;
    LogSeal seal;
    if (!hash || hash->size() != hashLength || !readNumber(*number, seal.end.number))
        return std::nullopt;
    seal.books = *books;
    seal.end.time = *time;
    seal.end.hash = *hash;
    const bool isAll = text.find_first_not_of(" \t\r\n") == std::string_view::npos;
    return isAll ? std::optional(seal) : std::nullopt;
}

}  // namespace chengheng
