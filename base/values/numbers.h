#pragma once

#include <cstddef>
#include <string>

// Numbers as people see them: every function here works on the shortest decimal that reads
// back as the same double, so that 2.675 is 2.675 and not the binary value just below it.
// Nothing depends on the locale; "-0" is never written.

/// Rounds in place to a number of decimals, half away from zero: 2.675 to 2.68, -2.675 to
/// -2.68. Negative decimals round to tens, hundreds, ... A value that already has no more
/// decimals, an infinity, a NaN and a result no double can hold leave it as it is.
void Round(double& value, int decimals);

/// The shortest text of a number: "100000", "0.1", "-1234.56".
std::string ftoa(double value);

/// A number rounded to exactly so many decimals: ftoa(2.675, 2) is "2.68", ftoa(-0.001, 2) is
/// "0.00". Negative decimals count as 0.
std::string ftoa(double value, int decimals);

/// The same with thousands separators: "1,234,567.80".
std::string ftoaWithSap(double value, int decimals);

namespace chengheng {

/// Room that the longest text of writeShortest needs.
inline constexpr std::size_t shortestTextRoom = 32;

/// Writes the shortest decimal that reads back as exactly this double and returns its end.
/// Plain notation from 0.0000001 up to 10^21, beyond that "1.5e+22"; both zeros are "0"; a NaN
/// is "nan", the infinities "inf" and "-inf". The room [first, last) must be shortestTextRoom
/// at least. No final NUL is written.
char* writeShortest(char* first, char* last, double value);

/// The same as a string; the text of a number in a cell of a query.
std::string shortestText(double value);

}  // namespace chengheng
