#include "books/copying/note_in_books.h"

#include "data/connection/log_store.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"
#include "session/who_writes.h"

namespace chengheng {

Status noteInBooks(const std::string& location, const std::string& words) {
    std::unique_ptr<Engine> books;
    int layout = 0;
    Status status = openEngine(location, OpenMode::readable, books);
    if (status) status = checkReadable(*books, &layout);
    if (!status || layout < booksFormatVersion || books->isReadOnly()) return status;
    status = books->begin();
    if (status) status = noteInLog(*books, logAuthor(), {.text = words});
    if (status) status = books->commit();
    if (!status && books->inTransaction()) static_cast<void>(books->rollback().isDone());
    const bool takesNone =
        status.failure == Failure::readOnly || status.failure == Failure::notPermitted;
    return takesNone ? Status::done() : status;
}

}  // namespace chengheng
