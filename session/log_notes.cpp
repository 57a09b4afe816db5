#include "session/log_notes.h"

#include <fmt/format.h>

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/connection/database.h"
#include "session/host_globals.h"
#include "session/session_texts.h"

namespace chengheng {

void noteInLog(std::int32_t function, const std::function<std::string()>& words) {
    if (g_pDB == nullptr || g_pDB->selectedName() != g_lpszNbZwDBName) return;
    Database* const books = g_pDB->selectedDatabase();
    // Within a unit of work the words would become those of the change.
    if (books == nullptr || books->log() == nullptr || books->isInUnit()) return;
    static_cast<void>(books->noteInLog({.function = function, .text = keptWords(words())}));
}

void tellThisUnit() {
    Database* const books = g_pDB == nullptr ? nullptr : g_pDB->selectedDatabase();
    if (books != nullptr && books->log() != nullptr && books->isInUnit())
        books->log()->note({});  // its words come with the commit
}

void noteOutput(const char* deed, const std::string& title, const std::string& path) {
    noteInLog(0, [&] {
        return path.empty() ? fmt::format(session_texts::loggedOutput, deed, title)
                            : fmt::format(session_texts::loggedFile, deed, title, path);
    });
}

}  // namespace chengheng
