#include "sheets/xlsx/xlsx_package.h"

#include <fmt/format.h>
#include <zip.h>

#include <array>

#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

std::string wordsOf(zip_error_t& error) {
    std::string words = zip_error_strerror(&error);
    zip_error_fini(&error);
    return words;
}

std::string wordsOf(int code) {
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    return wordsOf(error);
}

SheetFailure damagedPart(const std::string& name, const char* detail) {
    return damagedWorkbook(name + ": " + detail);
}

/// A part while it is read.
class Part {
  public:
    Part(zip_t* archive, const std::string& name)
        : m_file(zip_fopen(archive, name.c_str(), ZIP_FL_NOCASE)) {}
    ~Part() {
        if (m_file != nullptr) zip_fclose(m_file);
    }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    bool isOpen() const { return m_file != nullptr; }
    zip_int64_t read(std::array<char, 65536>& room) {
        return zip_fread(m_file, room.data(), room.size());
    }
    const char* fault() { return zip_file_strerror(m_file); }

  private:
    zip_file_t* m_file;
};

}  // namespace

SheetFailure damagedWorkbook(std::string_view detail) {
    return SheetFailure{.reason = fmt::format(sheet_texts::workbookDamaged, detail)};
}

XlsxPackage::~XlsxPackage() { zip_discard(m_archive); }

std::optional<SheetFailure> XlsxPackage::open(std::string_view bytes) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
    if (source == nullptr) return damagedWorkbook(wordsOf(error));
    m_archive = zip_open_from_source(source, ZIP_RDONLY, &error);
    if (m_archive != nullptr) return std::nullopt;
    zip_source_free(source);
    return damagedWorkbook(wordsOf(error));
}

bool XlsxPackage::hasPart(const std::string& name) const {
    return zip_name_locate(m_archive, name.c_str(), ZIP_FL_NOCASE) >= 0;
}

std::optional<SheetFailure> XlsxPackage::read(const std::string& name, XmlHandler& handler) {
    Part part(m_archive, name);
    if (!part.isOpen())
        return damagedPart(name, wordsOf(zip_error_code_zip(zip_get_error(m_archive))).c_str());
    XmlStream stream(handler);
    std::array<char, 65536> room;
    while (true) {
        const zip_int64_t got = part.read(room);
        if (got < 0) return damagedPart(name, part.fault());
        const auto size = static_cast<std::size_t>(got);
        m_unpacked += size;
        if (m_unpacked > m_mostUnpacked)
            return SheetFailure{.reason = fmt::format(sheet_texts::unpackedTooLong,
                                                      m_mostUnpacked / sheet_limits::megabyte)};
        if (size == 0 ? !stream.finish() : !stream.feed({room.data(), size})) break;
        if (size == 0) return std::nullopt;
    }
    return handler.failure() ? handler.failure() : damagedPart(name, stream.fault().c_str());
}

}  // namespace chengheng
