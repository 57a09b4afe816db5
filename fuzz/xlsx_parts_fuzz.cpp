// Packs any texts as the parts of an XLSX file and reads it. The input holds, each ended by a
// byte 1: the cells, the strings, the styles, the workbook, its relationships.

#include <array>
#include <utility>

#include "fuzz/fuzz_sheet.h"
#include "sheets/xlsx/xlsx_reading.h"

namespace {

using namespace chengheng;

constexpr const char* topRelationships =
    "<a><Relationship Type=\"/officeDocument\" Target=\"w.xml\"/></a>";
constexpr const char* usualWorkbook = "<workbook><sheet name=\"a\" id=\"s\"/></workbook>";
constexpr const char* usualRelationships =
    "<a><Relationship Id=\"s\" Type=\"/worksheet\" Target=\"s.xml\"/>"
    "<Relationship Type=\"/sharedStrings\" Target=\"t.xml\"/>"
    "<Relationship Type=\"/styles\" Target=\"f.xml\"/></a>";

std::uint32_t checksum(std::string_view bytes) {
    std::uint32_t sum = ~0U;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) sum = sum >> 1U ^ ((sum & 1U) * 0xEDB88320U);
    }
    return ~sum;
}

/// Numbers of the given sizes in bytes, lowest byte first.
std::string numbers(std::initializer_list<std::pair<std::size_t, int>> fields) {
    std::string text;
    for (auto [number, size] : fields)
        for (; size > 0; --size, number >>= 8U) text += static_cast<char>(number & 0xFFU);
    return text;
}

/// A packed file whose parts are not compressed.
class Packing {
  public:
    void add(std::string_view name, std::string_view content) {
        const std::string facts =
            numbers({{20, 2}, {0, 2}, {0, 2}, {0, 4}, {checksum(content), 4}}) +
            numbers({{content.size(), 4}, {content.size(), 4}, {name.size(), 2}, {0, 2}});
        m_directory += "PK\1\2" + numbers({{20, 2}}) + facts;
        m_directory += numbers({{0, 2}, {0, 2}, {0, 2}, {0, 4}, {m_parts.size(), 4}});
        m_directory += name;
        m_parts += "PK\3\4" + facts;
        (m_parts += name) += content;
        ++m_count;
    }
    std::string bytes() const {
        return m_parts + m_directory + "PK\5\6" +
               numbers({{0, 2}, {0, 2}, {m_count, 2}, {m_count, 2}}) +
               numbers({{m_directory.size(), 4}, {m_parts.size(), 4}, {0, 2}});
    }

  private:
    std::string m_parts;
    std::string m_directory;
    std::size_t m_count = 0;
};

std::string_view takePart(std::string_view& text) {
    const std::string_view part = text.substr(0, text.find('\1'));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    std::string_view text = input.text();
    constexpr std::array names{"s.xml", "t.xml", "f.xml", "w.xml", "_rels/w.xml.rels"};
    constexpr std::array usual{"<a/>", "<a/>", "<a/>", usualWorkbook, usualRelationships};
    Packing packing;
    packing.add("_rels/.rels", topRelationships);
    for (std::size_t part = 0; part < names.size(); ++part) {
        const std::string_view content = takePart(text);
        packing.add(names.at(part), content.empty() ? usual.at(part) : content);
    }
    Sheet sheet;
    checkRead(readXlsx(packing.bytes(), sheet), sheet);
    return 0;
}
