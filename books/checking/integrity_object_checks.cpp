#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/values/text.h"
#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_texts.h"
#include "books/logon/foreign_objects_text.h"
#include "data/layout/layout.h"
#include "data/tables/schema.h"
#include "data/transfer/foreign_objects.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

/// As every engine compares it: a server shortens names and writes them small.
std::string comparedName(std::string_view name) {
    constexpr std::size_t longestName = 63;
    return inSmallLetters(name.substr(0, longestName));
}

}  // namespace

Status checkObjects(CheckedBooks& books, FaultList& faults) {
    std::set<std::string> indexes;
    Status status = forEachRow(books.engine(), books.engine().dialect().otherObjects, {},
                               [&](const Cursor& row) {
                                   if (row.text(0) == "index")
                                       indexes.insert(comparedName(row.text(1)));
                                   return Status::done();
                               });
    std::vector<ForeignObject> objects;
    if (status) status = foreignObjects(books.engine(), objects);
    if (!status) return status;
    for (const ForeignObject& object : objects)
        faults.add(integrity_texts::foreignObject(nameOf(object)));
    for (const TableInfo& table : books.tables())
        for (const std::string& name : indexNames(table))
            if (!indexes.contains(comparedName(name)))
                faults.add(integrity_texts::indexMissing(table.name, name));
    return status;
}

}  // namespace chengheng
