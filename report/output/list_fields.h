#pragma once

#include <algorithm>
#include <ranges>
#include <span>
#include <string_view>
#include <vector>

#include "report/layout/report.h"

namespace chengheng {

/// What a list shows of a record: the field as print templates name it, how it is aligned, and
/// its cell.
template <class Record>
struct ListField {
    std::string_view name;
    Alignment alignment;
    ReportCell (*cell)(const Record& record);
    bool isKey = false;  ///< tells the records apart; where none does, the first field does
};

/// A row for each record. A column that names a field takes that one, one that names none the
/// field at its position; a column that no field belongs to stays empty. Where a template names
/// nothing that the list has, all columns go by position.
template <class Record>
void addRows(Report& report, std::span<const ListField<Record>> fields,
             const std::ranges::input_range auto& records) {
    const auto isKnown = [&fields](const ReportColumn& column) {
        return std::ranges::count(fields, column.field, &ListField<Record>::name) > 0;
    };
    const bool hasNames = std::ranges::any_of(report.columns, isKnown);
    std::vector<const ListField<Record>*> fillers;
    for (ReportColumn& column : report.columns) {
        const auto named = std::ranges::find(fields, column.field, &ListField<Record>::name);
        const std::size_t place = fillers.size();
        const ListField<Record>* filler = nullptr;
        if (named != fields.end()) filler = &*named;
        if ((column.field.empty() || !hasNames) && place < fields.size()) filler = &fields[place];
        if (filler != nullptr) column.alignment = filler->alignment;
        fillers.push_back(filler);
    }
    const auto marked = std::ranges::find(fields, true, &ListField<Record>::isKey);
    const ListField<Record>* const key = marked == fields.end() ? fields.data() : &*marked;
    const auto place = std::ranges::find(fillers, key);
    if (place != fillers.end())
        report.keyColumn = static_cast<std::size_t>(place - fillers.begin());
    for (const Record& record : records)
        for (const ListField<Record>* filler : fillers)
            report.cells.push_back(filler == nullptr ? ReportCell() : filler->cell(record));
}

}  // namespace chengheng
