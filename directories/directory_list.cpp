#include "directories/directory_list.h"

#include <array>
#include <unordered_map>

#include "data/access/host_database.h"
#include "directories/directory_rules.h"
#include "directories/directory_store.h"
#include "directories/directory_texts.h"
#include "report/output/list_fields.h"

namespace chengheng {
namespace {

/// A record with the name of its group.
struct ListedRecord {
    DirectoryRecord record;
    std::string group;
};

constexpr std::array fields{
    ListField<ListedRecord>{
        directoryCodeField, Alignment::left,
        [](const ListedRecord& listed) { return ReportCell(listed.record.code); }, true},
    ListField<ListedRecord>{
        directoryNameField, Alignment::left,
        [](const ListedRecord& listed) { return ReportCell(listed.record.name); }},
    ListField<ListedRecord>{directoryGroupField, Alignment::left,
                            [](const ListedRecord& listed) { return ReportCell(listed.group); }},
    ListField<ListedRecord>{directoryKindField, Alignment::left,
                            [](const ListedRecord& listed) {
                                return ReportCell(directory_texts::unitKinds.at(
                                    static_cast<std::size_t>(listed.record.unitKind)));
                            }},
};

bool fill(const Directory& directory, Report& report) {
    std::vector<DirectoryRecord> groups;
    std::vector<DirectoryRecord> records;
    if (directory.groups && !readDirectory(*g_pDB, *directory.groups, groups)) return false;
    if (!readDirectory(*g_pDB, directory.kind, records)) return false;
    std::unordered_map<std::int32_t, std::string> names;
    for (const DirectoryRecord& group : groups) names.emplace(group.id, group.name);
    std::vector<ListedRecord> listed;
    listed.reserve(records.size());
    for (DirectoryRecord& record : records) {
        const std::string& group = names[record.group];
        listed.push_back({std::move(record), group});
    }
    addRows<ListedRecord>(report, fields, listed);
    return true;
}

}  // namespace

PrintedList directoryList(const Directory& directory) {
    return {directory.printTemplate, ColumnSource::field,
            [&directory](Report& report) { return fill(directory, report); }};
}

}  // namespace chengheng
