#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace chengheng {

/// The one buffer of a table: records in blocks that never move, so that filling it copies
/// nothing, and the array of pointers that a list read hands out.
template <class Record>
class RecordBuffer {
  public:
    /// A new record with its default values.
    Record& append() {
        if (m_used == m_room) addBlock();
        ++m_count;
        return m_blocks.back().records[m_used++];
    }
    std::size_t count() const { return m_count; }

    /// Pointers to all records in order; valid until the buffer is cleared.
    Record** pointers() {
        m_pointers.clear();
        m_pointers.reserve(m_count);
        std::size_t left = m_count;
        for (Block& block : m_blocks) {
            const std::size_t used = std::min(left, block.size);
            for (std::size_t at = 0; at < used; ++at) m_pointers.push_back(&block.records[at]);
            left -= used;
        }
        return m_pointers.data();
    }

    void clear() {
        m_blocks.clear();
        std::vector<Record*>().swap(m_pointers);
        m_used = m_room = m_count = 0;
    }

  private:
    struct Block {
        std::unique_ptr<Record[]> records;
        std::size_t size;
    };

    static constexpr std::size_t firstBlock = 4;
    static constexpr std::size_t largestBlock = 4096;

    void addBlock() {
        m_room = m_blocks.empty() ? firstBlock : std::min(m_blocks.back().size * 4, largestBlock);
        m_blocks.push_back({std::make_unique<Record[]>(m_room), m_room});
        m_used = 0;
    }

    std::vector<Block> m_blocks;
    std::vector<Record*> m_pointers;
    std::size_t m_used = 0;  ///< records taken of the last block
    std::size_t m_room = 0;  ///< its size
    std::size_t m_count = 0;
};

}  // namespace chengheng
