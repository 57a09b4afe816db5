#include "tests/support/schema_page.h"

#include <fmt/format.h>

#include <fstream>
#include <regex>

#include "data/tables/schema.h"

namespace chengheng {
namespace {

/// Reads headers and declarations line by line and remembers in which record or table it is.
class NoteReader {
  public:
    explicit NoteReader(RecordNotes& notes) : m_notes(notes) {}

    void read(const std::string& line) {
        static const std::regex recordLine("struct (_\\w+) \\{");
        static const std::regex tableLine("const RecordType& recordTypeOf<(_\\w+)>\\(\\) \\{");
        static const std::regex nameLine("(?:.*recordType<Record>\\(| +)\"(\\w+)\", \"\\w*\".*");
        static const std::regex fieldLine("    [\\w:<> ]+ (\\w+)(?: = \\S+)?;(?: *///< ?(.*))?");
        static const std::regex noteLine(" */// ?(?:< ?)?(.*)");
        std::smatch found;
        if (std::regex_match(line, found, recordLine)) {
            m_record = found[1];
            m_byRecord[m_record][""] = m_pending;
        } else if (std::regex_match(line, found, tableLine)) {
            m_record = found[1];
        } else if (std::regex_match(line, found, nameLine)) {
            nameTable(found[1]);
        } else if (std::regex_match(line, found, fieldLine)) {
            m_field = found[1];
            m_byRecord[m_record][m_field] = found[2];
        } else if (line.find("///<") != std::string::npos &&
                   std::regex_match(line, found, noteLine)) {
            m_byRecord[m_record][m_field] += " " + found[1].str();
        } else if (std::regex_match(line, found, noteLine)) {
            m_pending += (m_pending.empty() ? "" : " ") + found[1].str();
            return;
        }
        m_pending.clear();
    }

  private:
    void nameTable(const std::string& table) {
        for (const auto& [field, note] : m_byRecord[m_record])
            m_notes[field.empty() ? table : table + "." + field] = note;
    }

    RecordNotes& m_notes;
    std::map<std::string, std::map<std::string, std::string>> m_byRecord;
    std::string m_record, m_field, m_pending;
};

const char* typeName(ColumnType type) {
    switch (type) {
        case ColumnType::integer:
            return "integer";
        case ColumnType::nullableInteger:
            return "integer or unknown";
        case ColumnType::byte:
            return "byte";
        case ColumnType::flag:
            return "flag";
        case ColumnType::real:
            return "number";
        case ColumnType::single:
            return "single-precision number";
        case ColumnType::text:
            return "text";
        case ColumnType::date:
            return "date";
    }
    return "";
}

std::string noteOf(const RecordNotes& notes, const std::string& name) {
    const auto found = notes.find(name);
    return found == notes.end() ? "" : found->second;
}

std::string tableSection(const TableInfo& table, const RecordNotes& notes) {
    std::string text = fmt::format("\n## {}\n\n", table.name);
    if (const std::string note = noteOf(notes, table.name); !note.empty()) text += note + "\n\n";
    text += "| column | type | meaning |\n|---|---|---|\n";
    for (const ColumnInfo& column : table.columns)
        text += fmt::format("| `{}` | {} | {} |\n", column.name, typeName(column.type),
                            noteOf(notes, table.name + "." + column.name));
    for (const std::string& index : table.indexes) text += fmt::format("\nIndex on `{}`.\n", index);
    if (!table.idRow.empty())
        text += fmt::format("\nIds come from the row '{}' of `ABIdTable`.\n", table.idRow);
    return text;
}

const char* const introduction =
    R"(# The tables of a set of books

Made from the declarations in `data/tables/`; do not edit. A test compares this page with
them and says how to write it anew.

Columns stand in the order of positional inserts. Every column has a default, so that an
insert may name only some of them: numbers and flags 0, texts empty, dates 1899-12-31, an
integer that may be unknown NULL. `lId` is the primary key wherever it stands. Texts compare
byte by byte.

The prefix of a name tells its type: `l` integer (32 bits), `by` byte (0 to 255), `b` flag
(0 = no), `s` text, `m` money, `d` quantity or rate, `f` single-precision number, `dt` date.

Besides these, every project class has a table of its items, named `ProjItems` and the
class's code, with `lId`, `FIELD0` (code of the item) and `FIELD1` (its name, indexed).
)";

}  // namespace

RecordNotes readRecordNotes(const std::filesystem::path& folder) {
    RecordNotes notes;
    NoteReader reader(notes);
    // A record's header first: the declaration of its table gives the notes their names.
    for (const char* kind : {".h", ".cpp"}) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() != kind) continue;
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);) reader.read(line);
        }
    }
    return notes;
}

std::string schemaPage(const RecordNotes& notes) {
    std::string page = introduction;
    for (const TableInfo& table : allTables()) page += tableSection(table, notes);
    return page;
}

}  // namespace chengheng
