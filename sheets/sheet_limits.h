#pragma once

#include <cstddef>

/// How much a spreadsheet file may hold. Beyond that it is refused with a message, so that a
/// file made to exhaust the machine cannot.
namespace chengheng::sheet_limits {

inline constexpr std::size_t megabyte = 1U << 20U;

inline constexpr std::size_t fileSize = 64 * megabyte;
/// Of an XLSX file, all of its parts that are read, unpacked.
inline constexpr std::size_t unpackedSize = 512 * megabyte;
/// The bytes of all texts of a sheet.
inline constexpr std::size_t textSize = 256 * megabyte;
/// The cells of a sheet, with the absent ones before the last of a row.
inline constexpr std::size_t cells = 4'000'000;
inline constexpr std::size_t rows = 1'048'576;
inline constexpr std::size_t columns = 16'384;
/// Of one text in an XLSX file, in UTF-16 units.
inline constexpr std::size_t xlsxText = 32'767;

}  // namespace chengheng::sheet_limits
