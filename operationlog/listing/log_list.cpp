#include "operationlog/listing/log_list.h"

#include <fmt/format.h>

#include <array>

#include "data/access/CNbCwDB.h"
#include "data/connection/database.h"
#include "operationlog/listing/log_list_texts.h"
#include "operationlog/log_names.h"
#include "operationlog/log_reading.h"
#include "report/output/list_fields.h"
#include "report/output/print_templates.h"
#include "session/host_globals.h"

namespace chengheng {
namespace {

constexpr std::array fields{
    ListField<LogEntry>{
        "lId", Alignment::right,
        [](const LogEntry& entry) { return ReportCell(fmt::to_string(entry.number)); }},
    ListField<LogEntry>{"sTime", Alignment::left,
                        [](const LogEntry& entry) { return ReportCell(shownLogTime(entry.time)); }},
    ListField<LogEntry>{"sUser", Alignment::left,
                        [](const LogEntry& entry) { return ReportCell(entry.operatorName); }},
    ListField<LogEntry>{"sStation", Alignment::left,
                        [](const LogEntry& entry) { return ReportCell(entry.workstation); }},
    ListField<LogEntry>{
        "lFunction", Alignment::left,
        [](const LogEntry& entry) { return ReportCell(shownFunction(entry.function)); }},
    ListField<LogEntry>{"sWords", Alignment::left,
                        [](const LogEntry& entry) { return ReportCell(entry.words); }},
    ListField<LogEntry>{
        "lRows", Alignment::right,
        [](const LogEntry& entry) { return ReportCell(fmt::to_string(entry.rows)); }},
    ListField<LogEntry>{"sProgram", Alignment::left,
                        [](const LogEntry& entry) { return ReportCell(entry.program); }},
};

Status readAll(Database& books, const LogFilter& filter, std::vector<LogEntry>& entries) {
    bool isThere = false;
    const Status status = findLog(books.engine(), isThere);
    if (!status || !isThere) return status;
    // One more tells that there are too many.
    return LogPages(books.engine(), filter).read(mostListedEntries + 1, entries);
}

bool fill(Report& report, const LogFilter& filter) {
    std::vector<LogEntry> entries;
    const Status status =
        g_pDB->onSelected([&](Database& books) { return readAll(books, filter, entries); });
    if (!status || entries.size() > mostListedEntries) return false;
    if (const std::string words = filterText(filter); !words.empty())
        report.lines.push_back({.left = words});
    addRows<LogEntry>(report, fields, entries);
    return true;
}

void add(std::string part, std::string& text) {
    if (!text.empty()) text += log_list_texts::between;
    text += part;
}

std::string momentText(const std::string& moment) {
    return moment.empty() ? log_list_texts::openTime : shownLogTime(moment);
}

}  // namespace

std::string filterText(const LogFilter& filter) {
    std::string text;
    if (!filter.operatorName.empty())
        add(fmt::format(log_list_texts::operatorName, filter.operatorName), text);
    if (!filter.from.empty() || !filter.to.empty())
        add(fmt::format(log_list_texts::times, momentText(filter.from), momentText(filter.to)),
            text);
    if (filter.function) {
        const std::string name = shownFunction(*filter.function);
        add(fmt::format(log_list_texts::function, name.empty() ? log_list_texts::noFunction : name),
            text);
    }
    if (!filter.text.empty()) add(fmt::format(log_list_texts::text, filter.text), text);
    if (!filter.account.empty()) add(fmt::format(log_list_texts::account, filter.account), text);
    return text;
}

PrintedList logList(const LogFilter& filter) {
    return {.templateNumber = operationLogTemplate,
            .source = ColumnSource::field,
            .fill = [filter](Report& report) { return fill(report, filter); },
            .otherReason = log_list_texts::tooMany};
}

}  // namespace chengheng
