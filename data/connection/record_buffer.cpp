#include "data/connection/record_buffer.h"

#include <algorithm>
#include <cstring>

namespace chengheng {
namespace {

constexpr std::size_t firstBlock = 4;
constexpr std::size_t largestBlock = 4096;

}  // namespace

void* RecordBuffer::pointers() {
    // As bytes: whoever asked for the list reads them as pointers to its own type of record.
    m_pointers = std::make_unique_for_overwrite<std::byte[]>(m_count * sizeof(void*));
    std::byte* at = m_pointers.get();
    std::size_t left = m_count;
    for (const Block& block : m_blocks) {
        auto* record = static_cast<std::byte*>(block.records.get());
        for (std::size_t used = std::min(left, block.size); used > 0; --used, --left) {
            void* const pointer = record;
            std::memcpy(at, &pointer, sizeof pointer);
            at += sizeof pointer;
            record += m_type.size;
        }
    }
    return m_pointers.get();
}

void RecordBuffer::clear() {
    m_blocks.clear();
    m_pointers.reset();
    m_used = m_room = m_count = 0;
}

void RecordBuffer::addBlock() {
    m_room = m_blocks.empty() ? firstBlock : std::min(m_blocks.back().size * 4, largestBlock);
    m_blocks.push_back({{m_type.make(m_room), m_type.drop}, m_room});
    m_used = 0;
}

}  // namespace chengheng
