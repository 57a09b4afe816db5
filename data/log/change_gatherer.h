#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data/engine/row_change.h"
#include "data/log/chain.h"

namespace chengheng {

/// Rows of one table, packed; a piece of what an entry of the log tells.
struct LogPart {
    std::int32_t number = 0;  ///< within its entry, from 1
    std::string table;
    std::int64_t lowestId = 0;
    std::int64_t highestId = 0;
    std::int64_t lowestAccount = 0;  ///< of the accounts that the rows belong to
    std::int64_t highestAccount = -1;
    std::int32_t rows = 0;
    std::string packed;
};

/// Adds a part to the hash over the parts of its entry.
void addPart(ChainHash& hash, const LogPart& part);

/// Collects what a unit of work changes, in parts of bounded size, and follows it back to where
/// it was when something of it is undone.
class ChangeGatherer final : public ChangeWatcher {
  public:
    /// All but the log itself, the counters of ids and who is logged on.
    bool watches(std::string_view table) const override;
    void take(const RowChange& change) override;
    void missed() override { m_now.isWhole = false; }

    bool isEmpty() const { return m_now.rows == 0; }
    /// Whether all that was changed could be taken.
    bool isWhole() const { return m_now.isWhole; }
    std::int64_t rows() const { return m_now.rows; }
    std::int32_t parts() const { return m_now.parts; }
    /// Over the parts taken out so far.
    std::string partsHash() const { return m_now.hash.text(); }
    /// The tables that were changed, in the order of their names, with how many rows.
    std::map<std::string, std::int64_t> tables() const;

    /// Remembers this point. Parts are taken out before.
    void mark();
    /// Forgets the last point.
    void release();
    /// Goes back to the last point, which is forgotten.
    void backToMark();
    /// Begins anew.
    void clear();

    /// The parts that are full, for the log; all that is left when it is the end.
    std::vector<LogPart> takeParts(bool isEnd);

  private:
    struct Rows {
        std::string bytes = {};  ///< empty or a head with rows behind it
        std::int32_t rows = 0;
        std::int64_t lowestId = 0;
        std::int64_t highestId = 0;
        std::int64_t lowestAccount = 0;
        std::int64_t highestAccount = -1;
        std::int64_t all = 0;         ///< those of earlier parts, too
        std::size_t accountCell = 0;  ///< where the account of a row stands; beyond its cells: none
        std::size_t secretCell = 0;   ///< what nobody may see; likewise

        /// The same without its bytes.
        Rows counts() const;
        void addAccounts(const RowChange& change);
    };
    struct Totals {
        std::int64_t rows = 0;
        std::int32_t parts = 0;
        ChainHash hash;
        bool isWhole = true;
    };
    struct Mark {
        Totals totals;
        std::map<std::string, Rows> tables;  ///< without bytes, until a part takes them away
        std::map<std::string, std::size_t> sizes;
    };

    std::pair<const std::string, Rows>& rowsOf(std::string_view written);
    static Rows beginRows(const std::string& table, std::size_t cells);
    /// Valid until the next one.
    RowChange withoutSecret(const RowChange& change, std::size_t place);
    void pack(const std::string& table, Rows& rows);
    void keepForMarks(const std::string& table, const Rows& rows);

    Totals m_now;
    std::map<std::string, Rows> m_tables;
    std::pair<const std::string, Rows>* m_last = nullptr;  ///< of the table written like this
    std::string m_lastWritten;
    std::vector<LogPart> m_ready;
    std::vector<Mark> m_marks;
    std::vector<Value> m_before;
    std::vector<Value> m_after;
};

}  // namespace chengheng
