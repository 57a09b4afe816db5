#include "data/sql/shape_tokens.h"

#include <algorithm>

#include "data/sql/characters.h"

namespace chengheng {
namespace {

std::size_t quotedLength(std::string_view text) {
    const char quote = text[0];
    std::size_t at = 1;
    while (at < text.size()) {
        if (text[at] != quote)
            ++at;
        else if (text.substr(at + 1, 1) == text.substr(0, 1))
            at += 2;
        else
            return at + 1;
    }
    return text.size();
}

std::size_t numberLength(std::string_view text) {
    std::size_t length = 0;
    char before = ' ';
    for (const char letter : text) {
        const bool isExponentSign = before == 'e' && (letter == '+' || letter == '-');
        if (!isWordPart(letter) && letter != '.' && !isExponentSign) break;
        before = lowerOf(letter);
        ++length;
    }
    return length;
}

std::size_t wordLength(std::string_view text) {
    const auto end = std::ranges::find_if_not(text, isWordPart);
    return static_cast<std::size_t>(end - text.begin());
}

bool isNumberStart(std::string_view text) {
    const auto isDigitAt = [text](std::size_t at) {
        return at < text.size() && characterOf(text[at]) == Character::digit;
    };
    return isDigitAt(0) || (text[0] == '.' && isDigitAt(1));
}

Token firstToken(std::string_view text, bool isAfterName) {
    const char letter = text[0];
    const auto take = [text](TokenKind kind, std::size_t length) {
        return Token{kind, text.substr(0, length)};
    };
    if (letter == '\'') return take(TokenKind::text, quotedLength(text));
    if (letter == '"') return take(TokenKind::quotedName, quotedLength(text));
    if (letter == '#' || letter == '~' || letter == '?') return take(TokenKind::mark, 1);
    if (isNumberStart(text) && !(letter == '.' && isAfterName))
        return take(TokenKind::number, numberLength(text));
    if (isWordPart(letter)) return take(TokenKind::word, wordLength(text));
    for (const std::string_view two : {"<>", "<=", ">=", "!=", "||"})
        if (text.starts_with(two)) return take(TokenKind::symbol, 2);
    return take(TokenKind::symbol, 1);
}

}  // namespace

std::vector<Token> shapeTokens(std::string_view shape) {
    std::vector<Token> tokens;
    while (!shape.empty()) {
        if (shape[0] == ' ') {
            shape.remove_prefix(1);
            continue;
        }
        const bool isAfterName = !tokens.empty() && (tokens.back().kind == TokenKind::word ||
                                                     tokens.back().kind == TokenKind::quotedName);
        tokens.push_back(firstToken(shape, isAfterName));
        shape.remove_prefix(tokens.back().text.size());
    }
    return tokens;
}

}  // namespace chengheng
