#include "data/log/row_bytes.h"

#include <array>
#include <bit>
#include <cstring>

namespace chengheng {
namespace {

// A cell begins with what it is.
enum class Mark : char { null = '0', whole = 'w', real = 'r', zero = 'z', text = 't' };
constexpr char kindMarks[] = {'+', '~', '-'};

void addNumber(std::uint64_t number, std::string& bytes) {
    for (; number >= 0x80; number >>= 7) bytes += static_cast<char>(0x80 | (number & 0x7F));
    bytes += static_cast<char>(number);
}

/// Small numbers of either sign are short.
std::uint64_t folded(std::int64_t number) {
    const auto bits = static_cast<std::uint64_t>(number);
    return number < 0 ? ~(bits << 1) : bits << 1;
}
std::int64_t unfolded(std::uint64_t number) {
    const std::uint64_t bits = number >> 1;
    return static_cast<std::int64_t>((number & 1) != 0 ? ~bits : bits);
}

void addText(std::string_view text, std::string& bytes) {
    addNumber(text.size(), bytes);
    bytes += text;
}

/// Most amounts of a row are 0. Of others the lowest byte comes first, on every machine.
void addReal(double real, std::string& bytes) {
    auto bits = std::bit_cast<std::uint64_t>(real);
    if (bits == 0) {
        bytes += static_cast<char>(Mark::zero);
        return;
    }
    std::array<char, 9> marked{static_cast<char>(Mark::real)};
    for (std::size_t place = 1; place < marked.size(); ++place, bits >>= 8)
        marked[place] = static_cast<char>(bits & 0xFF);
    bytes.append(marked.data(), marked.size());
}

void addCell(const Value& value, std::string& bytes) {
    switch (value.kind) {
        case ValueKind::null:
            bytes += static_cast<char>(Mark::null);
            return;
        case ValueKind::integer:
            bytes += static_cast<char>(Mark::whole);
            addNumber(folded(value.integer), bytes);
            return;
        case ValueKind::real:
            addReal(value.real, bytes);
            return;
        case ValueKind::text:
            bytes += static_cast<char>(Mark::text);
            addText(value.text, bytes);
            return;
    }
}

bool isSame(const Value& one, const Value& other) {
    if (one.kind != other.kind) return false;
    if (one.kind == ValueKind::null) return true;
    return one.integer == other.integer && one.text == other.text &&
           std::bit_cast<std::uint64_t>(one.real) == std::bit_cast<std::uint64_t>(other.real);
}

class Reader {
  public:
    explicit Reader(std::string_view bytes) : m_left(bytes) {}

    bool isAtEnd() const { return m_left.empty(); }
    bool isWhole() const { return m_isWhole; }
    char sign() {
        const std::string_view one = take(1);
        return one.empty() ? '\0' : one.front();
    }
    std::uint64_t number() {
        std::uint64_t read = 0;
        for (unsigned shift = 0; shift < 64; shift += 7) {
            const auto byte = static_cast<unsigned char>(sign());
            read |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
            if ((byte & 0x80) == 0) return read;
        }
        m_isWhole = false;
        return 0;
    }
    std::string text() { return std::string(take(number())); }
    LoggedCell cell() {
        switch (static_cast<Mark>(sign())) {
            case Mark::null:
                return std::monostate();
            case Mark::whole:
                return unfolded(number());
            case Mark::real: {
                std::uint64_t bits = 0;
                unsigned place = 0;
                for (const char byte : take(8))
                    bits |= std::uint64_t{static_cast<unsigned char>(byte)} << (8 * place++);
                return std::bit_cast<double>(bits);
            }
            case Mark::zero:
                return 0.0;
            case Mark::text:
                return text();
        }
        m_isWhole = false;
        return {};
    }

  private:
    std::string_view take(std::uint64_t count) {
        if (count > m_left.size()) {
            m_isWhole = false;
            m_left = {};
            return {};
        }
        const std::string_view taken = m_left.substr(0, count);
        m_left.remove_prefix(count);
        return taken;
    }

    std::string_view m_left;
    bool m_isWhole = true;
};

bool readKind(char mark, ChangeKind& kind) {
    const void* const found = std::memchr(kindMarks, mark, sizeof kindMarks);
    if (found == nullptr) return false;
    kind = static_cast<ChangeKind>(static_cast<const char*>(found) - kindMarks);
    return true;
}

}  // namespace

std::string rowBytesHead(const std::vector<std::string>& columns) {
    std::string bytes;
    addNumber(columns.size(), bytes);
    for (const std::string& column : columns) addText(column, bytes);
    return bytes;
}

bool addRowBytes(const RowChange& change, std::string& bytes) {
    const bool isChanged = change.kind == ChangeKind::changed;
    const auto cells = change.before.empty() ? change.after : change.before;
    thread_local std::vector<std::size_t> differing;
    differing.clear();
    for (std::size_t at = 0; at < cells.size(); ++at)
        if (!isChanged || !isSame(change.before[at], change.after[at])) differing.push_back(at);
    if (differing.empty()) return false;
    bytes += kindMarks[static_cast<std::size_t>(change.kind)];
    addNumber(folded(cells.front().integer), bytes);
    addNumber(differing.size(), bytes);
    for (const std::size_t at : differing) {
        if (isChanged) addNumber(at, bytes);
        addCell(cells[at], bytes);
        if (isChanged) addCell(change.after[at], bytes);
    }
    return true;
}

bool readRowBytes(std::string_view bytes, std::vector<LoggedRow>& rows) {
    Reader reader(bytes);
    std::vector<std::string> names;
    for (std::uint64_t left = reader.number(); left > 0 && reader.isWhole(); --left)
        names.push_back(reader.text());
    while (reader.isWhole() && !reader.isAtEnd()) {
        LoggedRow row;
        if (!readKind(reader.sign(), row.kind)) return false;
        row.id = unfolded(reader.number());
        const std::uint64_t count = reader.number();
        for (std::uint64_t at = 0; at < count && reader.isWhole(); ++at) {
            const bool isChanged = row.kind == ChangeKind::changed;
            const std::uint64_t place = isChanged ? reader.number() : at;
            if (place >= names.size()) return false;
            LoggedColumn& column = row.columns.emplace_back();
            column.name = names[place];
            LoggedCell& only = row.kind == ChangeKind::inserted ? column.after : column.before;
            only = reader.cell();
            if (isChanged) column.after = reader.cell();
        }
        rows.push_back(std::move(row));
    }
    return reader.isWhole();
}

}  // namespace chengheng
