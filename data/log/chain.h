#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chengheng {

/// A BLAKE2b hash that grows with what it is given, as 64 small hexadecimal digits. A copy goes on
/// from the same point.
class ChainHash {
  public:
    ChainHash();
    /// Adds a text with its length, so that no two different lists of texts give the same hash.
    void add(std::string_view text);
    void add(std::int64_t number) { add(std::to_string(number)); }
    std::string text() const;

  private:
    alignas(64) unsigned char m_state[384];
};

/// An entry of the operation log; its changes are in parts of their own.
struct LogEntry {
    std::int64_t number = 0;  ///< running, from 1, without gaps
    std::string time;         ///< local, with its offset from UTC: "2026-11-23T18:04:05.123+08:00"
    std::int32_t operatorId = 0;
    std::string operatorName;
    std::string workstation;
    std::int64_t process = 0;
    std::string program;        ///< with its version
    std::int32_t function = 0;  ///< of the rights list; 0: none
    std::string words;          ///< what is done
    std::string unit;           ///< names its parts
    std::int32_t parts = 0;
    std::int64_t rows = 0;
    std::string partsHash;  ///< over its parts in their order
    std::string hash;       ///< over all of it and the hash before

    bool operator==(const LogEntry&) const = default;
};

/// A name for the parts of one unit of work that nobody else has, however many workstations write
/// at once.
std::string newUnitName();

/// What the first entry of a log has in place of a hash before it.
inline constexpr std::string_view noHashBefore =
    "0000000000000000000000000000000000000000000000000000000000000000";

/// The hash that an entry behind another one must have.
std::string entryHash(std::string_view hashBefore, const LogEntry& entry);

}  // namespace chengheng
