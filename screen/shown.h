#pragma once

#include <QString>
#include <string>

namespace chengheng {

/// A UTF-8 text of the program or the books as Qt takes it.
inline QString shown(const char* text) { return QString::fromUtf8(text); }
inline QString shown(const std::string& text) { return QString::fromStdString(text); }

}  // namespace chengheng
