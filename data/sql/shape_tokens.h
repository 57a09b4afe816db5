#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace chengheng {

enum class TokenKind : std::uint8_t {
    word,
    quotedName,
    mark,  ///< where a value was: #, ~ or ?
    text,  ///< in its quotes
    number,
    symbol,
};

/// A token of a shape; the text lies in the shape.
struct Token {
    TokenKind kind;
    std::string_view text;

    bool is(std::string_view wanted) const {
        return kind != TokenKind::text && kind != TokenKind::quotedName && text == wanted;
    }
};

/// Takes a shape that a BatchReader produced apart.
std::vector<Token> shapeTokens(std::string_view shape);

}  // namespace chengheng
