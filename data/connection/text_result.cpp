#include "data/connection/text_result.h"

#include <array>
#include <charconv>
#include <cstring>
#include <new>

#include "base/values/numbers.h"

namespace chengheng {
namespace {

constexpr std::size_t blockSize = 256 * 1024;
/// Room for any number's shortest text.
constexpr std::size_t numberSize = 352;
constexpr int smallNumbers = 256;

/// "0" to "255": most number cells of the books are one of these, and share one text.
char* smallNumberText(int number) {
    static auto texts = [] {
        std::array<std::array<char, 4>, smallNumbers> made{};
        for (int value = 0; value < smallNumbers; ++value) {
            auto& text = made[static_cast<std::size_t>(value)];
            *std::to_chars(text.data(), text.data() + 3, value).ptr = '\0';
        }
        return made;
    }();
    return texts[static_cast<std::size_t>(number)].data();
}

}  // namespace

char* TextResult::room(std::size_t size) {
    if (size > m_freeSize) {
        const std::size_t block = std::max(size, blockSize);
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(block));
        m_free = m_blocks.back().get();
        m_freeSize = block;
    }
    return m_free;
}

void TextResult::addPointer(char* cell) {
    if (m_cellCount == m_cellRoom) {
        const std::size_t more = m_cellRoom == 0 ? 64 : m_cellRoom + m_cellRoom / 2;
        void* grown = std::realloc(m_cells, more * sizeof(char*));
        if (grown == nullptr) throw std::bad_alloc();
        m_cells = static_cast<char**>(grown);
        m_cellRoom = more;
    }
    m_cells[m_cellCount++] = cell;
}

void TextResult::addCell(const Cursor& cursor, int column) {
    const auto keep = [this](char* end) {
        *end++ = '\0';
        addPointer(m_free);
        m_freeSize -= static_cast<std::size_t>(end - m_free);
        m_free = end;
    };
    const auto addInteger = [&](std::int64_t number) {
        if (number >= 0 && number < smallNumbers)
            return addPointer(smallNumberText(static_cast<int>(number)));
        char* first = room(numberSize);
        keep(std::to_chars(first, first + numberSize, number).ptr);
    };
    switch (cursor.kind(column)) {
        case ValueKind::null:
            addPointer(nullptr);
            break;
        case ValueKind::integer:
            addInteger(cursor.integer(column));
            break;
        case ValueKind::real: {
            const double number = cursor.real(column);
            if (number == 0) return addPointer(smallNumberText(0));
            char* first = room(numberSize);
            keep(writeShortest(first, first + numberSize, number));
            break;
        }
        case ValueKind::text: {
            const std::string_view text = cursor.text(column);
            char* first = room(text.size() + 1);
            std::memcpy(first, text.data(), text.size());
            keep(first + text.size());
            break;
        }
    }
}

Status TextResult::read(Cursor& cursor) {
    m_columns = cursor.columns();
    while (true) {
        const Cursor::Step step = cursor.next();
        if (step == Cursor::Step::failed) return cursor.status();
        if (step == Cursor::Step::end) return Status::done();
        for (int column = 0; column < m_columns; ++column) addCell(cursor, column);
        ++m_rows;
    }
}

TextRow* TextResult::textRows() {
    m_textRows.resize(static_cast<std::size_t>(m_rows));
    for (std::size_t row = 0; row < m_textRows.size(); ++row)
        m_textRows[row] = {m_cells + row * static_cast<std::size_t>(m_columns), m_columns};
    return m_textRows.data();
}

}  // namespace chengheng
