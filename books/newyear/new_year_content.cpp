#include "books/newyear/new_year_content.h"

#include <algorithm>

#include "books/newyear/new_year_rates.h"
#include "books/newyear/new_year_sql.h"
#include "books/newyear/new_year_tables.h"
#include "data/connection/log_store.h"
#include "data/layout/layout.h"
#include "data/transfer/content_copy.h"
#include "session/record_change.h"
#include "session/who_writes.h"

namespace chengheng {
namespace {

constexpr std::size_t rowsAtOnce = 500;

struct KindOfRate {
    RateKind kind;
    const char* table;
    const char* read;
    const char* add;
};

constexpr std::array kindsOfRates{
    KindOfRate{RateKind::fixed, "ExchgFix", new_year_sql::fixedRates, new_year_sql::addFixedRate},
    KindOfRate{RateKind::floating, "ExchgFlt", new_year_sql::floatingRates,
               new_year_sql::addFloatingRate}};

Status runWith(Engine& engine, const char* sql, std::span<const Value> values) {
    std::unique_ptr<PreparedStatement> statement;
    const Status status = engine.prepare(sql, static_cast<int>(values.size()), statement);
    const Command command{statement.get(), values};
    return status ? engine.execute({&command, 1}) : status;
}

/// Brings the books of one year to those of the next, step by step, until one fails.
class NextYearFilling {
  public:
    NextYearFilling(BooksSource& source, Engine& target, const YearChange& change,
                    const NewYearProgress& progress)
        : m_source(source), m_target(target), m_change(change), m_progress(progress) {}

    Status fill(std::vector<TableDigest>& made) {
        Status status = readCurrencies();
        if (status) status = takeOver();
        if (status) status = raiseOlderRows();
        if (status) status = writeParameters();
        for (const KindOfRate& kind : kindsOfRates)
            if (status) status = writeRates(kind);
        if (status) status = resetCounters();
        if (status) status = digestContent(m_target, made);
        if (status && !std::ranges::all_of(
                          made, [this](const auto& digest) { return holdsWhatItShould(digest); }))
            status = Status::of(Failure::wrongValue, "the new year is not as it was written");
        if (status)
            status = noteInLog(m_target, logAuthor(),
                               {.function = static_cast<std::int32_t>(WriteRight::newYear),
                                .text = m_change.words});
        if (status) status = digestLogAgain(m_target, made);
        return status ? tell(0) : status;
    }

  private:
    Status readCurrencies() {
        const Status status =
            forEachRow(m_source.engine(), new_year_sql::currencies, {}, [this](const Cursor& row) {
                m_currencies.push_back(static_cast<int>(row.integer(0)));
                return Status::done();
            });
        for (const TableDigest& digest : m_source.digests())
            m_total += static_cast<std::size_t>(digest.rows);
        for (const KindOfRate& kind : kindsOfRates) m_total += rowsOf(kind.table);
        return status;
    }

    Status takeOver() {
        const auto copied = [this](std::size_t rows) {
            m_done = rows;
            return tell(0).isDone();
        };
        if (Status status = tell(0); !status) return status;
        Status status = replaceContent(m_source.engine(), m_target, {isTakenOver, copied});
        std::vector<TableDigest> taken;
        if (status) status = digestContent(m_target, m_source.layout(), taken, isTakenOver);
        if (status && taken != m_source.digests())
            status = Status::of(Failure::wrongValue, "the copy is not what was copied");
        return status;
    }

    Status raiseOlderRows() {
        return m_source.layout() < booksFormatVersion ? raiseRows(m_target, m_source.layout())
                                                      : Status::done();
    }

    Status writeParameters() {
        const Date start{static_cast<std::int16_t>(m_change.to), 1, 1};
        const std::string day = isoText(start);
        const std::array values{Value::of(std::int64_t{m_change.to}),
                                Value::of(std::string_view(day))};
        return runWith(m_target, new_year_sql::setParameters, values);
    }

    Status readFirstRates(const KindOfRate& kind, std::map<int, double>& first) {
        std::vector<EndingRate> ending;
        const Status status =
            forEachRow(m_source.engine(), kind.read, {}, [&ending](const Cursor& row) {
                const auto day = parseDate(row.text(1));
                if (day)
                    ending.push_back(
                        {static_cast<int>(row.integer(0)), *day, row.real(2), row.real(3)});
                return Status::done();
            });
        first = lastRates(ending, m_change.from);
        return status;
    }

    Status writeRates(const KindOfRate& kind) {
        std::map<int, double> first;
        Status status = m_change.bringsLastRates ? readFirstRates(kind, first) : Status::done();
        const auto rows = ratesOfYear(kind.kind, m_currencies, m_change.to, first);
        std::unique_ptr<PreparedStatement> insert;
        constexpr int width = 5;
        if (status) status = m_target.prepare(kind.add, width, insert);
        for (std::size_t at = 0; status && at < rows.size(); at += rowsAtOnce) {
            const auto some = std::span(rows).subspan(at, std::min(rowsAtOnce, rows.size() - at));
            status = writeRows(*insert, some);
            if (status) status = tell(some.size());
        }
        return status;
    }

    Status writeRows(PreparedStatement& insert, std::span<const NewRate> rows) {
        constexpr std::size_t width = 5;
        std::vector<std::string> days;
        days.reserve(rows.size());
        std::vector<Value> values;
        values.reserve(rows.size() * width);
        for (const NewRate& row : rows) {
            days.push_back(isoText(row.day));
            values.insert(values.end(),
                          {Value::of(std::int64_t{row.id}), Value::of(std::int64_t{row.currency}),
                           Value::of(std::string_view(days.back())),
                           Value::of(std::int64_t{row.day.month}), Value::of(row.rate)});
        }
        std::vector<Command> commands;
        for (std::size_t at = 0; at < values.size(); at += width)
            commands.push_back({&insert, std::span(values).subspan(at, width)});
        return m_target.execute(commands);
    }

    Status resetCounters() {
        Status status;
        for (const TableInfo& table : allTables()) {
            if (!status || table.idRow.empty() || isTakenOver(table.name)) continue;
            const std::array values{Value::of(static_cast<std::int64_t>(rowsOf(table.name))),
                                    Value::of(std::string_view(table.idRow))};
            status = runWith(m_target, new_year_sql::setCounter, values);
        }
        return status;
    }

    /// How many rows a table gets that is not copied.
    std::size_t rowsOf(std::string_view table) const {
        for (const KindOfRate& kind : kindsOfRates)
            if (table == kind.table)
                return m_currencies.size() * rateDays(kind.kind, m_change.to).size();
        return 0;
    }

    bool holdsWhatItShould(const TableDigest& digest) const {
        return isTakenOver(digest.table) ||
               static_cast<std::size_t>(digest.rows) == rowsOf(digest.table);
    }

    Status tell(std::size_t rows) {
        m_done += rows;
        const bool goesOn = !m_progress || m_progress(m_done, m_total);
        return goesOn ? Status::done() : Status::of(Failure::cancelled);
    }

    BooksSource& m_source;
    Engine& m_target;
    const YearChange& m_change;
    const NewYearProgress& m_progress;
    std::vector<int> m_currencies;
    std::size_t m_done = 0;
    std::size_t m_total = 0;
};

}  // namespace

Status fillNextYear(BooksSource& source, Engine& target, const YearChange& change,
                    const NewYearProgress& progress, std::vector<TableDigest>& made) {
    return NextYearFilling(source, target, change, progress).fill(made);
}

}  // namespace chengheng
