#pragma once

#include <string>
#include <utility>
#include <vector>

namespace chengheng {

/// The bytes of a packed file with these parts: name and content.
std::string packedFile(const std::vector<std::pair<std::string, std::string>>& parts);

/// What a part of a packed file holds; empty when it has none of that name.
std::string unpackedPart(const std::string& path, const std::string& name);

/// What an XLSX file made by hand holds; the rest of it is made around.
struct MadeWorkbook {
    std::string rows;             ///< what stands in sheetData
    std::string strings = {};     ///< the items of the shared strings
    std::string formats = {};     ///< the number formats of the styles
    std::string looks = "<xf/>";  ///< what cells refer to by their style
    std::string settings = {};    ///< what stands before the sheets of the workbook
    std::string sheets = "<sheet name=\"科目\" sheetId=\"1\" r:id=\"rId1\"/>";

    std::string bytes() const;
    std::vector<std::pair<std::string, std::string>> parts() const;
};

}  // namespace chengheng
