#pragma once

#include <QFont>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "base/values/status.h"

namespace chengheng {

// In Chinese fonts a character and the radical that looks like it (方 and U+2F45) are one
// shape. A PDF file names shapes and tells in text maps which characters they are; the toolkit
// writes the lower code there, the radical's, and nobody would find 方 in such a file.

/// For each code that shares its shape with a character people type, that character.
using ReadableCodes = std::map<unsigned, unsigned>;

ReadableCodes readableCodes(std::span<const QFont> fonts);

/// A text map with readable characters.
std::string withReadableCodes(std::string_view textMap, const ReadableCodes& codes);

/// Makes a PDF file, as bytes, anew with readable characters in its text maps.
Status makeTextsReadable(std::string& pdf, const ReadableCodes& codes);

}  // namespace chengheng
