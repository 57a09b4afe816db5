#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "base/values/status.h"

namespace chengheng {

/// Stores $1 as the last id of the table $2.
inline constexpr std::string_view writeCounterSql =
    "UPDATE ABIdTable SET lLastId = $1 WHERE sTable = $2";

/// Done when so many ids can follow the last one, else noIdLeft.
inline Status checkIdsLeft(int lastId, int count) {
    return lastId <= std::numeric_limits<int>::max() - count
               ? Status::done()
               : Status::of(Failure::noIdLeft, std::to_string(lastId));
}

/// The counters of ABIdTable as an open unit of work knows them. New values are held back
/// here and written once at its end: a row written again and again inside one transaction
/// grows slower with every version of it.
class IdCounters {
  public:
    struct Counter {
        std::string row;
        int value = 0;
        bool isHeldBack = false;  ///< not yet in the table
    };

    /// The known value of a row; null when the table must be asked.
    const Counter* find(std::string_view row) const {
        for (const Counter& counter : m_counters)
            if (counter.row == row) return &counter;
        return nullptr;
    }
    void learn(std::string_view row, int value) { put(row, value, false); }
    void holdBack(std::string_view row, int value) { put(row, value, true); }
    const std::vector<Counter>& all() const { return m_counters; }
    /// Nothing is known any more; what was held back has been written or given up.
    void forget() { m_counters.clear(); }

  private:
    void put(std::string_view row, int value, bool isHeldBack) {
        for (Counter& counter : m_counters) {
            if (counter.row == row) {
                counter.value = value;
                counter.isHeldBack = isHeldBack;
                return;
            }
        }
        m_counters.push_back({std::string(row), value, isHeldBack});
    }

    std::vector<Counter> m_counters;
};

}  // namespace chengheng
