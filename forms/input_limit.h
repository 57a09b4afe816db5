#pragma once

#include <string>

namespace chengheng {

/// A text in a field, cut where the cursor stands.
struct FieldText {
    std::string before;
    std::string after;
};

/// How many characters too many were put in before the cursor, where so many are allowed in
/// all; those are taken off there again, so that what stood in the field stays whole.
std::size_t cutToLimit(FieldText& text, std::size_t allowed);

/// Takes out what no field of one line can show: line ends, tabs and their like.
std::string withoutControlCharacters(std::string text);

}  // namespace chengheng
