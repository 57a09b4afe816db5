#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "sheets/sheet_failure.h"
#include "sheets/sheet_limits.h"
#include "sheets/xlsx/xml_stream.h"

struct zip;

namespace chengheng {

/// The parts of an XLSX file: XML texts, packed. They are unpacked as they are read, never
/// more than the limit allows.
class XlsxPackage {
  public:
    explicit XlsxPackage(std::size_t mostUnpacked = sheet_limits::unpackedSize)
        : m_mostUnpacked(mostUnpacked) {}
    ~XlsxPackage();
    XlsxPackage(const XlsxPackage&) = delete;
    XlsxPackage& operator=(const XlsxPackage&) = delete;

    /// Opens the content of a file, which must outlive this.
    std::optional<SheetFailure> open(std::string_view bytes);
    bool hasPart(const std::string& name) const;
    /// Reads a part, checks that it is unharmed, and tells the handler what it holds.
    std::optional<SheetFailure> read(const std::string& name, XmlHandler& handler);

  private:
    zip* m_archive = nullptr;
    std::size_t m_mostUnpacked;
    std::size_t m_unpacked = 0;
};

/// The failure of a file that is cut, harmed or none of its kind.
SheetFailure damagedWorkbook(std::string_view detail);

}  // namespace chengheng
