#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

namespace chengheng {

/// A piece of a statement that formatSql made, or a name known to be safe; the only thing a
/// %s outside quotes takes.
struct SqlFragment {
    std::string_view text;
};

/// Formats a statement or condition printf-style. The only way to a statement with values:
///
///   formatSql("lCodeId = %d AND sCode LIKE '%s%%'", id, code)
///
/// "%d" and "%ld" take integers; "%lf" a double, written with six decimals and always a
/// point; "'%s'" a text, its quotes doubled, and in a LIKE pattern its %, _ and \ escaped;
/// "%s" outside quotes an SqlFragment; "%%" is a percent sign. Number and kinds of the
/// arguments are checked when the program is compiled.
template <class... Arguments>
class SqlFormat;

}  // namespace chengheng
