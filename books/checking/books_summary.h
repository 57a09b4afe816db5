#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/values/date.h"
#include "data/engine/engine.h"

namespace chengheng {

/// What a set of books is, at a glance.
struct BooksSummary {
    std::string name;
    std::string company;
    std::int32_t year = 0;
    Date start;
    std::string levelPattern;
    bool hasForeignCurrency = false;
    std::int64_t formatVersion = 0;
    EngineFacts engine;
    /// Who used the books and when last: operators by their log-on; without a name whoever wrote
    /// without logging on. Seconds since 1970.
    std::vector<std::pair<std::string, double>> uses;
    /// Rows per table, those of the project items included.
    std::vector<std::pair<std::string, std::int64_t>> tables;
};

/// Of one state of the books.
Status readBooksSummary(Engine& engine, BooksSummary& summary);

}  // namespace chengheng
