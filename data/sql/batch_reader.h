#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/values/status.h"
#include "data/sql/value.h"
#include "data/sql/words.h"

namespace chengheng {

/// What a statement of the module's dialect asks for.
enum class StatementKind {
    select,
    insert,
    update,
    remove,
    begin,   ///< BEGIN TRANSACTION name
    commit,  ///< COMMIT TRANSACTION name
};

/// One statement of a batch. Everything in it stays valid until the reader's next step,
/// texts in `values` as long as the reader and the batch live.
struct ReadStatement {
    StatementKind kind = StatementKind::select;
    /// The statement with its values taken out, blanks folded and letters in lower case. In
    /// the place of a value stands a mark of its kind: # an integer, ~ a real, ? a text. Two
    /// statements of one shape differ only in `values`.
    std::string_view shape;
    std::span<const Value> values;
    /// False for shapes not worth keeping, such as those with a list of values after IN.
    bool isWorthKeeping = true;
};

/// Splits a text in the module's dialect (INSERT without INTO, DELETE without FROM, several
/// statements joined by line ends) into statements and lifts their literals. A line that
/// begins with a statement's first word starts a new statement unless the one before it is
/// visibly unfinished. Blanks, line ends and comments mean nothing else; quoted text may hold
/// anything but NUL and what is not UTF-8. What cannot be read ends the reading with a
/// failure.
///
/// Lifted are the values of an INSERT and those compared or assigned after SET and WHERE,
/// where an engine can tell the type from the column. Values in IN lists, in function calls,
/// in sums and outside those clauses stay, as do reals after WHERE: against a column of
/// integers an engine reads them as reals only where they stand.
class BatchReader {
  public:
    /// The batch is borrowed and must outlive the reader.
    explicit BatchReader(std::string_view batch);
    BatchReader(const BatchReader&) = delete;
    BatchReader& operator=(const BatchReader&) = delete;

    /// Reads the next statement; false at the end of the batch or at a failure.
    bool next(ReadStatement& statement);
    const Status& status() const { return m_status; }

  private:
    /// What the token read last means for the one that follows.
    enum class Last : std::uint8_t {
        keyword,     ///< a word after which a statement is not finished
        name,        ///< a word or a quoted name
        closed,      ///< a closing parenthesis, a star
        dot,         ///< what follows is a column, whatever its name
        literal,     ///< a value left in place
        lifted,      ///< a value taken out
        comparison,  ///< the value that follows is compared or assigned
        sign,        ///< any other operator
        opened,      ///< an opening parenthesis
        comma,
    };
    /// Which part of a statement, as far as it decides about values.
    enum class Clause : std::uint8_t {
        constant,   ///< values here belong to the statement's form: select list, ORDER BY ...
        other,      ///< values here are data but stay in place
        assigned,   ///< after SET
        condition,  ///< after WHERE
        rows,       ///< after VALUES, between the rows
        row,        ///< inside the parentheses of a row
    };
    struct Level {
        Clause clause = Clause::other;
        bool isBetween = false;        ///< the AND of a BETWEEN is to come
        const char* opened = nullptr;  ///< its parenthesis
    };
    /// How tokens must be kept apart in the shape.
    enum class Glue : std::uint8_t { none, word, sign };
    static constexpr std::size_t mostLevels = 64;

    // Those that read a token give false where the statement ends or cannot be read.
    bool fail(const char* place, std::string_view reason);
    void skipBlanks();
    bool skipComment();
    std::string takeWord();
    bool readFirstWord();
    bool readAsBefore();
    bool readMark();
    bool readToken();
    bool readWord();
    void useKeyword(Word word);
    bool useStarter(Word word, const char* start);
    bool readNumber(const char* start);
    bool readText();
    const char* findClosingQuote(char quote, bool& hasDoubled);
    bool readQuotedName();
    bool readSymbol();
    bool readOpening();
    void beginRow();
    void readPlainNumbers();
    bool readClosing();
    bool readOperator();
    bool putOperator(std::size_t length, Last last);
    bool addLiteral(const char* start, const Value& value);
    bool isLifting(const Value& value) const;
    bool isOpenEnded() const;
    bool finish(ReadStatement& statement);

    void reserve(std::size_t length);
    void put(std::string_view token, Glue first, Glue last);
    void unlift();
    Level& level() { return m_levels[m_depth]; }
    const Level& level() const { return m_levels[m_depth]; }

    const char* m_begin;
    const char* m_end;
    const char* m_at;
    std::string m_room;  ///< for the shape; m_length of it is in use
    std::size_t m_length = 0;
    std::vector<Value> m_values;
    std::forward_list<std::string> m_texts;  ///< those whose quotes were doubled
    std::array<Level, mostLevels> m_levels;
    std::size_t m_depth = 0;
    StatementKind m_kind = StatementKind::select;
    Last m_last = Last::keyword;
    Glue m_glue = Glue::none;
    bool m_isLineStart = true;
    bool m_isComplete = false;  ///< has what its kind cannot do without
    bool m_isWorthKeeping = true;
    const char* m_start = nullptr;         ///< of the statement
    std::string_view m_rowHead;            ///< an INSERT as far as its first row, read before
    std::string m_rowHeadShape;            ///< the shape of that much
    std::string_view m_liftedText;         ///< the value lifted last, as it was written
    std::size_t m_lengthBeforeLifted = 0;  ///< of the shape
    Glue m_glueBeforeLifted = Glue::none;
    Status m_status;
};

}  // namespace chengheng
