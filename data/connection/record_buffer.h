#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "data/tables/record_type.h"

namespace chengheng {

/// The one buffer of a table: records in blocks that never move, so that filling it copies
/// nothing, and the array of pointers that a list read hands out.
class RecordBuffer {
  public:
    explicit RecordBuffer(const RecordType& type) : m_type(type) {}

    /// A new record with its default values.
    void* append() {
        if (m_used == m_room) addBlock();
        ++m_count;
        return static_cast<std::byte*>(m_blocks.back().records.get()) + m_type.size * m_used++;
    }
    std::size_t count() const { return m_count; }

    /// An array of pointers to all records in order, each a `Record*`; valid until the buffer is
    /// cleared.
    void* pointers();

    void clear();

  private:
    struct Block {
        std::unique_ptr<void, void (*)(void*)> records;
        std::size_t size;
    };

    void addBlock();

    const RecordType& m_type;
    std::vector<Block> m_blocks;
    std::unique_ptr<std::byte[]> m_pointers;
    std::size_t m_used = 0;  ///< records taken of the last block
    std::size_t m_room = 0;  ///< its size
    std::size_t m_count = 0;
};

}  // namespace chengheng
