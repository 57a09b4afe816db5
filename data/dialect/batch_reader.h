#pragma once

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/engines/value.h"
#include "data/status.h"

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
    /// The statement with its literals taken out, blanks folded and letters in lower case:
    /// two statements of one shape differ only in `values`.
    std::string_view shape;
    std::span<const Value> values;
    /// False for shapes not worth keeping, such as those with a list of values after IN.
    bool isWorthKeeping = true;
};

/// Splits a text in the module's dialect (INSERT without INTO, DELETE without FROM, several
/// statements joined by line ends) into statements and lifts their literals. A line that
/// begins with a statement's first word starts a new statement unless the one before it is
/// visibly unfinished. Blanks, line ends and comments mean nothing else; quoted text may hold
/// anything but NUL. What cannot be read ends the reading with a failure.
class BatchReader {
  public:
    /// The batch is borrowed and must outlive the reader.
    explicit BatchReader(std::string_view batch);

    /// Reads the next statement; false at the end of the batch or at a failure.
    bool next(ReadStatement& statement);
    const Status& status() const { return m_status; }

  private:
    std::string_view m_rest;
    std::string m_shape;
    std::vector<Value> m_values;
    std::deque<std::string> m_texts;
    Status m_status;
};

}  // namespace chengheng
