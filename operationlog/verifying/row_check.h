#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/log/row_bytes.h"

namespace chengheng {

/// A row of the books that is not what the last entry about it says.
struct RowFault {
    enum class Kind {
        gone,      ///< it is not there
        cameBack,  ///< it was taken out and is there
        differs,   ///< a column holds something else
        untold,    ///< the rows that the entry tells of cannot be read
    };

    Kind kind = Kind::differs;
    std::string table;
    std::int64_t id = 0;
    std::int64_t entry = 0;  ///< the number of the last one about it
    std::string column = {};
    LoggedCell told = {};
    LoggedCell found = {};

    bool operator==(const RowFault&) const = default;
};

struct RowFindings {
    std::int64_t rows = 0;         ///< how many rows of the books were compared
    std::int64_t count = 0;        ///< of all faults
    std::vector<RowFault> faults;  ///< the first of them
};

/// Compares the rows of the books with what the log says of them last. What the log never holds is
/// not compared.
Status checkRows(Engine& engine, RowFindings& findings);

}  // namespace chengheng
