#include "tests/support/made_workbook.h"

#include <zip.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/support/engine_cases.h"

namespace chengheng {
namespace {

constexpr const char* heading = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr const char* mainSpace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
constexpr const char* typeSpace =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

std::string element(const std::string& name, const std::string& content) {
    return heading + ("<" + name + " xmlns=\"") + mainSpace + "\" xmlns:r=\"" + typeSpace + "\">" +
           content + "</" + name + ">";
}

std::string relationship(const std::string& id, const std::string& kind,
                         const std::string& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + typeSpace + "/" + kind + "\" Target=\"" +
           target + "\"/>";
}

std::string relationships(const std::string& content) {
    return heading + ("<Relationships>" + content) + "</Relationships>";
}

}  // namespace

std::string packedFile(const std::vector<std::pair<std::string, std::string>>& parts) {
    const std::string path = freshFolder() + "/packed";
    zip_t* const archive = zip_open(path.c_str(), ZIP_CREATE, nullptr);
    if (archive == nullptr) throw std::runtime_error("no archive at " + path);
    for (const auto& [name, content] : parts) {
        zip_source_t* const source = zip_source_buffer(archive, content.data(), content.size(), 0);
        if (zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8) < 0)
            throw std::runtime_error("no room for " + name);
    }
    if (zip_close(archive) != 0) throw std::runtime_error(zip_strerror(archive));
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string unpackedPart(const std::string& path, const std::string& name) {
    zip_t* const archive = zip_open(path.c_str(), ZIP_RDONLY, nullptr);
    if (archive == nullptr) throw std::runtime_error("no archive at " + path);
    std::string content;
    if (zip_file_t* const part = zip_fopen(archive, name.c_str(), 0); part != nullptr) {
        std::array<char, 4096> room;
        for (zip_int64_t got = 1; got > 0;
             content.append(room.data(), static_cast<std::size_t>(got)))
            got = std::max(zip_fread(part, room.data(), room.size()), zip_int64_t{0});
        zip_fclose(part);
    }
    zip_discard(archive);
    return content;
}

std::vector<std::pair<std::string, std::string>> MadeWorkbook::parts() const {
    return {
        {"_rels/.rels", relationships(relationship("rId1", "officeDocument", "xl/workbook.xml"))},
        {"xl/workbook.xml", element("workbook", settings + "<sheets>" + sheets + "</sheets>")},
        {"xl/_rels/workbook.xml.rels",
         relationships(relationship("rId1", "worksheet", "worksheets/sheet1.xml") +
                       relationship("rId2", "worksheet", "/xl/worksheets/sheet2.xml") +
                       relationship("rId3", "chartsheet", "chartsheets/sheet1.xml") +
                       relationship("rId4", "sharedStrings", "sharedStrings.xml") +
                       relationship("rId5", "styles", "styles.xml"))},
        {"xl/worksheets/sheet1.xml", element("worksheet", "<sheetData>" + rows + "</sheetData>")},
        {"xl/worksheets/sheet2.xml",
         element("worksheet", "<sheetData><row><c t=\"str\"><v>second</v></c></row></sheetData>")},
        {"xl/sharedStrings.xml", element("sst", strings)},
        {"xl/styles.xml", element("styleSheet", "<numFmts>" + formats + "</numFmts><cellXfs>" +
                                                    looks + "</cellXfs>")},
    };
}

std::string MadeWorkbook::bytes() const { return packedFile(parts()); }

}  // namespace chengheng
