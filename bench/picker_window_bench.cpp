// The window that a unit is picked from, among 50,000, measured against the bare read of them.

#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "auxiliary/entries/dimension_lookup.h"
#include "bench/raw_codes.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "screen/application.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/picker_window.h"
#include "session/host_globals.h"

namespace {

using bench::require;
using chengheng::PickerRow;
using chengheng::PickerWindow;

constexpr int accounts = 100;
constexpr int units = 50'000;
/// What opening may take beyond the read, in milliseconds.
constexpr double allowance = 100;

class PickerBench {
  public:
    PickerBench() {
        m_books.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                    std::to_string(units) +
                    ") INSERT INTO Enter SELECT i, 1, printf('U%05d', i), "
                    "printf('客户%05d有限公司', i), 1 FROM n");
        require(m_books.database().DBSelect("books") != 0, "selecting");
        m_raw = bench::prepare(m_books.raw(),
                               "SELECT lId, sEnterCode, sEnterName FROM Enter "
                               "ORDER BY sEnterCode, lId");
    }
    ~PickerBench() { sqlite3_finalize(m_raw); }
    PickerBench(const PickerBench&) = delete;
    PickerBench& operator=(const PickerBench&) = delete;

    void run() {
        bench::Pair pair;
        pair.floor = [this] { readRaw(); };
        pair.reset = [this] { m_picker.reset(); };
        pair.ours = [this] { open(); };
        bench::reportTimes("picker over 50000 units open and painted", pair,
                           1 + allowance / readingTime());
        // The first search reads the initials of all names.
        pair.reset = [this] {
            m_picker.reset();
            open();
        };
        pair.ours = [this] { find("kh49", 1000); };
        bench::reportTimes("units found there by initials, first search, painted", pair,
                           1 + allowance / readingTime());
        pair.reset = [this] { find("", units); };
        pair.ours = [this] { find("客户4999", 10); };
        bench::reportTimes("units found there by name, painted", pair,
                           1 + allowance / readingTime());
    }

  private:
    void readRaw() {
        std::vector<PickerRow> found;
        while (sqlite3_step(m_raw) == SQLITE_ROW) found.push_back({text(1), text(2)});
        sqlite3_reset(m_raw);
        require(found.size() == units, "the floor's read");
    }
    std::string text(int column) {
        return reinterpret_cast<const char*>(sqlite3_column_text(m_raw, column));
    }
    /// Of the floor, in milliseconds.
    double readingTime() {
        double least = 1e9;
        for (int time = 0; time < 5; ++time) {
            const auto begin = std::chrono::steady_clock::now();
            readRaw();
            const std::chrono::duration<double, std::milli> taken =
                std::chrono::steady_clock::now() - begin;
            least = std::min(least, taken.count());
        }
        return least;
    }

    CVCF1& grid() const { return *m_picker->findChild<CVCF1*>(); }
    void paint() {
        QCoreApplication::processEvents();
        require(!m_picker->grab().isNull(), "painting the picker");
    }
    void open() {
        std::vector<chengheng::DimensionChoice> choices;
        require(readChoices(m_books.database(), chengheng::Dimension::unit, {}, choices).isDone(),
                "reading the choices");
        std::vector<PickerRow> rows;
        rows.reserve(choices.size());
        for (const auto& choice : choices) rows.push_back({choice.code, choice.name});
        m_picker.emplace(QStringLiteral("单位"), std::move(rows), nullptr);
        m_picker->show();
        paint();
        require(grid().model()->rowCount() == units, "listing the units");
    }
    void find(const char* wanted, int count) {
        m_picker->findChild<QLineEdit*>()->setText(QString::fromUtf8(wanted));
        paint();
        require(grid().model()->rowCount() == count, "finding units");
    }

    bench::SampleBooks m_books{accounts};
    chengheng::HostSession m_session{{.database = &m_books.database(), .databaseName = "books"}};
    sqlite3_stmt* m_raw = nullptr;
    std::optional<PickerWindow> m_picker;
};

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    chengheng::prepareApplication(application);
    PickerBench().run();
}
