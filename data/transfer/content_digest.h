#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/tables/schema.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {

/// What a table holds, in a few numbers: two tables with the same rows, in whatever order
/// and on whatever engine, have the same digest, and any difference gives another one but
/// for a chance of about 1 in 2^128. It guards against accidents, not against forgers.
struct TableDigest {
    std::string table;
    std::int64_t rows = 0;
    std::array<std::uint64_t, 2> sums{};  ///< of the rows' own digests, modulo 2^64

    bool operator==(const TableDigest&) const = default;
};

Status digestTable(Engine& engine, const TableInfo& table, TableDigest& digest);

/// The digests of all stored tables, project items included, in a fixed order.
Status digestContent(Engine& engine, std::vector<TableDigest>& digests);

/// The same of the tables and columns that the layout of a number has.
Status digestContent(Engine& engine, int layout, std::vector<TableDigest>& digests,
                     const TableChoice& choice = {});

/// Takes those of the operation log anew, where something was entered in it since.
Status digestLogAgain(Engine& engine, std::vector<TableDigest>& digests);

}  // namespace chengheng
