#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace chengheng {

/// The words that decide how a statement is read. All others are names to the reader.
enum class Word : std::uint8_t {
    name,
    // first words of a statement
    beginWord,
    commitWord,
    deleteWord,
    insertWord,
    selectWord,
    updateWord,
    otherFirst,  ///< DROP, PRAGMA ...: first words that this dialect does not have
    // beginnings of a part
    from,
    set,
    values,
    where,
    having,
    tail,      ///< GROUP, ORDER, LIMIT, OFFSET
    setUnion,  ///< UNION, EXCEPT, INTERSECT
    // inside conditions
    conjunction,  ///< AND
    between,
    comparison,  ///< LIKE
    unfinished,  ///< any other word that needs something after it
};

/// A word of up to eight lower-case letters as a number.
constexpr std::uint64_t wordKey(std::string_view word) {
    std::uint64_t key = 0;
    for (const char letter : word) key = key << 8 | static_cast<unsigned char>(letter);
    return key;
}

/// The meaning of a word in lower case, `key` being the key of its last eight letters.
constexpr Word wordOf(std::uint64_t key, std::string_view word) {
    if (word.size() > 8) return word == "intersect" ? Word::setUnion : Word::name;
    switch (key) {
        case wordKey("begin"):
            return Word::beginWord;
        case wordKey("commit"):
            return Word::commitWord;
        case wordKey("delete"):
            return Word::deleteWord;
        case wordKey("insert"):
            return Word::insertWord;
        case wordKey("select"):
            return Word::selectWord;
        case wordKey("update"):
            return Word::updateWord;
        case wordKey("alter"):
        case wordKey("attach"):
        case wordKey("create"):
        case wordKey("detach"):
        case wordKey("drop"):
        case wordKey("pragma"):
        case wordKey("release"):
        case wordKey("rollback"):
        case wordKey("truncate"):
        case wordKey("vacuum"):
        case wordKey("with"):
            return Word::otherFirst;
        case wordKey("from"):
            return Word::from;
        case wordKey("set"):
            return Word::set;
        case wordKey("values"):
            return Word::values;
        case wordKey("where"):
            return Word::where;
        case wordKey("having"):
            return Word::having;
        case wordKey("group"):
        case wordKey("limit"):
        case wordKey("offset"):
        case wordKey("order"):
            return Word::tail;
        case wordKey("except"):
        case wordKey("union"):
            return Word::setUnion;
        case wordKey("and"):
            return Word::conjunction;
        case wordKey("between"):
            return Word::between;
        case wordKey("like"):
            return Word::comparison;
        case wordKey("all"):
        case wordKey("as"):
        case wordKey("by"):
        case wordKey("distinct"):
        case wordKey("escape"):
        case wordKey("in"):
        case wordKey("into"):
        case wordKey("is"):
        case wordKey("join"):
        case wordKey("not"):
        case wordKey("on"):
        case wordKey("or"):
            return Word::unfinished;
        default:
            return Word::name;
    }
}

}  // namespace chengheng
