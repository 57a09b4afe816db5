#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

namespace chengheng {

/// Which cells of a table somebody has seen, in four bytes a row.
class SeenCells {
  public:
    static constexpr std::size_t mostColumns = 31;

    bool isSeen(std::int64_t id, std::size_t column) const {
        const std::uint32_t marks = marksOf(id);
        return (marks & (wholeRow | std::uint32_t{1} << column)) != 0;
    }
    bool isRowSeen(std::int64_t id) const { return (marksOf(id) & wholeRow) != 0; }
    bool isAnythingSeen(std::int64_t id) const { return marksOf(id) != 0; }
    void see(std::int64_t id, std::size_t column) { at(id) |= std::uint32_t{1} << column; }
    void seeRow(std::int64_t id) { at(id) |= wholeRow; }

  private:
    static constexpr std::uint32_t wholeRow = std::uint32_t{1} << mostColumns;
    static constexpr std::int64_t blockBits = 9;
    static constexpr std::size_t blockSize = std::size_t{1} << blockBits;
    using Block = std::array<std::uint32_t, blockSize>;

    static std::size_t placeOf(std::int64_t id) { return static_cast<std::size_t>(id) % blockSize; }
    std::uint32_t marksOf(std::int64_t id) const {
        const auto block = m_blocks.find(id >> blockBits);
        return block == m_blocks.end() ? 0 : (*block->second)[placeOf(id)];
    }
    std::uint32_t& at(std::int64_t id) {
        std::unique_ptr<Block>& block = m_blocks[id >> blockBits];
        if (block == nullptr) block = std::make_unique<Block>();
        return (*block)[placeOf(id)];
    }

    std::unordered_map<std::int64_t, std::unique_ptr<Block>> m_blocks;
};

}  // namespace chengheng
