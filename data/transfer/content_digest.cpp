#include "data/transfer/content_digest.h"

#include <bit>
#include <string_view>

#include "data/layout/layout.h"

namespace chengheng {
namespace {

/// Two independent 64-bit digests of one row. Every cell goes in with its length or a mark,
/// so that moving a letter from one cell to the next is a difference.
class RowDigest {
  public:
    void addNumber(std::uint64_t number) {
        for (std::size_t lane = 0; lane < m_lanes.size(); ++lane)
            m_lanes[lane] = mixed((m_lanes[lane] ^ number) + steps[lane]);
    }
    void addText(std::string_view text) {
        addNumber(text.size());
        std::uint64_t word = 0;
        int filled = 0;
        for (const char letter : text) {
            word = word << 8 | static_cast<unsigned char>(letter);
            if (++filled % 8 == 0) addNumber(word);
        }
        if (filled % 8 != 0) addNumber(word);
    }
    const std::array<std::uint64_t, 2>& lanes() const { return m_lanes; }

  private:
    static constexpr std::array<std::uint64_t, 2> steps{0x9E3779B97F4A7C15, 0xD1B54A32D192ED03};

    /// A permutation of the 64-bit numbers in which every bit of the input touches all bits.
    static std::uint64_t mixed(std::uint64_t number) {
        number = (number ^ number >> 30) * 0xBF58476D1CE4E5B9;
        number = (number ^ number >> 27) * 0x94D049BB133111EB;
        return number ^ number >> 31;
    }

    std::array<std::uint64_t, 2> m_lanes{0x243F6A8885A308D3, 0x13198A2E03707344};
};

constexpr std::uint64_t nullMark = 0x6E756C6C;
constexpr std::uint64_t valueMark = 0x76616C;

/// Numbers by the column's type, whatever type an engine gives the value: both zeros and the
/// single-precision neighbours of a double are one value.
void addCell(RowDigest& digest, const Cursor& row, int at, ColumnType type) {
    if (row.kind(at) == ValueKind::null) return digest.addNumber(nullMark);
    digest.addNumber(valueMark);
    switch (type) {
        case ColumnType::real:
            return digest.addNumber(std::bit_cast<std::uint64_t>(row.real(at) + 0.0));
        case ColumnType::single:
            return digest.addNumber(
                std::bit_cast<std::uint32_t>(static_cast<float>(row.real(at)) + 0.0F));
        case ColumnType::text:
        case ColumnType::date:
            return digest.addText(row.text(at));
        default:
            return digest.addNumber(static_cast<std::uint64_t>(row.integer(at)));
    }
}

}  // namespace

Status digestTable(Engine& engine, const TableInfo& table, TableDigest& digest) {
    digest = {table.name, 0, {}};
    const auto addRow = [&](const Cursor& row) {
        RowDigest rowDigest;
        int at = 0;
        for (const ColumnInfo& column : table.columns) addCell(rowDigest, row, at++, column.type);
        for (std::size_t lane = 0; lane < digest.sums.size(); ++lane)
            digest.sums[lane] += rowDigest.lanes()[lane];
        ++digest.rows;
        return Status::done();
    };
    return forEachRow(engine, "SELECT " + columnNames(table) + " FROM " + table.name, {}, addRow);
}

Status digestContent(Engine& engine, std::vector<TableDigest>& digests) {
    int number = 0;
    const Status status = readLayoutNumber(engine, number);
    return status ? digestContent(engine, number, digests) : status;
}

Status digestContent(Engine& engine, int layout, std::vector<TableDigest>& digests,
                     const TableChoice& choice) {
    digests.clear();
    std::vector<TableInfo> tables;
    Status status = storedTables(engine, layout, tables, choice);
    for (const TableInfo& table : tables) {
        if (!status) break;
        status = digestTable(engine, table, digests.emplace_back());
    }
    return status;
}

Status digestLogAgain(Engine& engine, std::vector<TableDigest>& digests) {
    std::vector<TableDigest> logged;
    const auto isOfLog = [](std::string_view table) { return table.starts_with("OperationLog"); };
    const Status status = digestContent(engine, booksFormatVersion, logged, isOfLog);
    for (TableDigest& digest : digests)
        for (const TableDigest& anew : logged)
            if (digest.table == anew.table) digest = anew;
    return status;
}

}  // namespace chengheng
