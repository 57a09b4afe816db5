// Directories with many units: importing them from a file, and reading them for their window and
// for a picker.

#include <filesystem>
#include <fstream>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "auxiliary/entries/dimension_lookup.h"
#include "bench/sample_books.h"
#include "bench/silent_messages.h"
#include "bench/timing.h"
#include "directories/directory_form.h"
#include "directories/directory_store.h"
#include "directories/transfer/directory_import.h"
#include "session/host_globals.h"

namespace {

using bench::require;
using chengheng::DirectoryKind;

constexpr int accounts = 100;
constexpr int units = 50'000;
constexpr int classes = 20;

/// A unit as a program that knows nothing but the engine would keep it.
struct RawUnit {
    int id, classId;
    std::string code, name;
    int kind;
};

sqlite3_stmt* prepare(sqlite3* raw, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(raw, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    return statement;
}

const char* text(sqlite3_stmt* statement, int column) {
    return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
}

class DirectoriesBench {
  public:
    DirectoriesBench() {
        m_books.run(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(classes) +
            ") INSERT INTO EnterClass SELECT i, printf('%02d', i), printf('分类%02d', i) FROM n");
        require(m_books.database().DBSelect("books") != 0, "selecting");
        writeFile();
    }
    ~DirectoriesBench() { std::filesystem::remove(m_file); }
    DirectoriesBench(const DirectoriesBench&) = delete;
    DirectoriesBench& operator=(const DirectoriesBench&) = delete;

    void run() {
        planning();
        importing();
        reading();
        showing();
        choosing();
    }

  private:
    static std::string numbered(int number) {
        std::string digits = std::to_string(number);
        return digits.insert(0, 5 - digits.size(), '0');
    }

    void writeFile() {
        std::ofstream file(m_file);
        file << "编码,名称,单位分类,性质\n";
        for (int unit = 1; unit <= units; ++unit)
            file << 'U' << numbered(unit) << ",客户" << numbered(unit) << "有限公司,分类"
                 << numbered(unit % classes + 1).substr(3) << ",客户\n";
    }

    void reset() {
        m_books.run("DELETE FROM Enter");
        m_books.run("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'Enter'");
    }

    /// What a program does that knows the file: its rows, held against each other.
    std::vector<RawUnit> readFile() {
        std::unordered_map<std::string, int> ids;
        sqlite3_stmt* read = prepare(m_books.raw(), "SELECT lId, sClsName FROM EnterClass");
        while (sqlite3_step(read) == SQLITE_ROW)
            ids.emplace(text(read, 1), sqlite3_column_int(read, 0));
        sqlite3_finalize(read);
        std::ifstream file(m_file);
        std::string line;
        std::getline(file, line);
        std::unordered_set<std::string> codes;
        std::unordered_set<std::string> names;
        std::vector<RawUnit> found;
        while (std::getline(file, line)) {
            const std::size_t name = line.find(',') + 1;
            const std::size_t ofClass = line.find(',', name) + 1;
            const std::size_t kind = line.find(',', ofClass) + 1;
            RawUnit unit{static_cast<int>(found.size()) + 1,
                         ids.at(line.substr(ofClass, kind - 1 - ofClass)), line.substr(0, name - 1),
                         line.substr(name, ofClass - 1 - name),
                         line.substr(kind) == "客户" ? 1 : 0};
            require(codes.insert(unit.code).second && names.insert(unit.name).second, "a unit");
            found.push_back(std::move(unit));
        }
        require(found.size() == units, "the floor's file");
        return found;
    }

    void writeRaw(const std::vector<RawUnit>& rows) {
        sqlite3_stmt* insert = prepare(m_books.raw(), "INSERT INTO Enter VALUES (?, ?, ?, ?, ?)");
        m_books.run("BEGIN IMMEDIATE");
        for (const RawUnit& unit : rows) {
            sqlite3_bind_int(insert, 1, unit.id);
            sqlite3_bind_int(insert, 2, unit.classId);
            sqlite3_bind_text(insert, 3, unit.code.c_str(), -1, SQLITE_STATIC);
            sqlite3_bind_text(insert, 4, unit.name.c_str(), -1, SQLITE_STATIC);
            sqlite3_bind_int(insert, 5, unit.kind);
            require(sqlite3_step(insert) == SQLITE_DONE, "the floor's insert");
            sqlite3_reset(insert);
        }
        m_books.run("UPDATE ABIdTable SET lLastId = 50000 WHERE sTable = 'Enter'");
        m_books.run("COMMIT");
        sqlite3_finalize(insert);
    }

    chengheng::DirectoryPlan plan(chengheng::DirectoryImport& import) {
        auto plan = import.plan(m_file);
        require(plan && plan->added.size() == units && plan->isAcceptable(), "planning");
        return std::move(*plan);
    }

    void planning() {
        reset();
        bench::Pair pair;
        pair.floor = [this] { readFile(); };
        pair.ours = [this] {
            chengheng::DirectoryImport import(m_messages, m_directory);
            plan(import);
        };
        bench::reportTimes("file of units read and planned, 50000", pair, 5);
    }

    void importing() {
        const std::vector<RawUnit> rows = readFile();
        reset();
        chengheng::DirectoryImport import(m_messages, m_directory);
        const chengheng::DirectoryPlan planned = plan(import);
        bench::Pair pair;
        pair.reset = [this] { reset(); };
        pair.floor = [&] { writeRaw(rows); };
        pair.ours = [&] {
            require(import.apply(planned) == chengheng::Outcome::done, "importing");
        };
        bench::reportTimes("planned units written, 50000", pair, 1.5);
    }

    void readRaw() {
        sqlite3_stmt* read = prepare(m_books.raw(),
                                     "SELECT lId, lClassId, sEnterCode, sEnterName, byKind "
                                     "FROM Enter ORDER BY sEnterCode, lId");
        std::vector<RawUnit> found;
        while (sqlite3_step(read) == SQLITE_ROW)
            found.push_back({sqlite3_column_int(read, 0), sqlite3_column_int(read, 1),
                             text(read, 2), text(read, 3), sqlite3_column_int(read, 4)});
        sqlite3_finalize(read);
        require(found.size() == units, "the floor's read");
    }

    void reading() {
        bench::Pair pair;
        pair.floor = [this] { readRaw(); };
        pair.ours = [this] {
            std::vector<chengheng::DirectoryRecord> records;
            require(readDirectory(m_books.database(), DirectoryKind::unit, records).isDone() &&
                        records.size() == units,
                    "reading");
        };
        bench::reportTimes("units read, 50000", pair, 1.5);
    }

    void showing() {
        bench::Pair pair;
        pair.floor = [this] { readRaw(); };
        pair.ours = [this] {
            chengheng::DirectoryForm form(m_messages, m_directory);
            form.open();
            require(form.leaves().rowCount() == units, "showing");
        };
        bench::reportTimes("units read for their window, 50000", pair, 3);
    }

    void choosing() {
        bench::Pair pair;
        pair.floor = [this] { readRaw(); };
        pair.ours = [this] {
            std::vector<chengheng::DimensionChoice> choices;
            require(
                readChoices(m_books.database(), chengheng::Dimension::unit, {}, choices).isDone() &&
                    choices.size() == units,
                "choosing");
        };
        bench::reportTimes("units read for a picker, 50000", pair, 1.5);
    }

    const chengheng::Directory& m_directory = chengheng::directoryOf(DirectoryKind::unit);
    const std::string m_file = std::filesystem::temp_directory_path() / "chengheng-units.csv";
    bench::SampleBooks m_books{accounts};
    chengheng::HostSession m_session{{.database = &m_books.database(), .databaseName = "books"}};
    bench::SilentMessages m_messages;
};

}  // namespace

int main() { DirectoriesBench().run(); }
