#include "tool/commands.h"

#include <ostream>

#include "books/logon/books_session.h"
#include "books/logon/temporary_name.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"
#include "session/failure_texts.h"

namespace chengheng {

std::string foundBooks(Tool& tool, const std::string& location) {
    std::string place = locationOfBooks(location);
    if (const auto text = giveNameBack(place)) tool.err << *text << '\n';
    return place;
}

std::unique_ptr<Engine> openBooks(Tool& tool, const std::string& location, BooksUse use) {
    std::unique_ptr<Engine> engine;
    const std::string place = foundBooks(tool, location);
    const OpenMode mode = use == BooksUse::changing ? OpenMode::existing : OpenMode::readable;
    Status status = openEngine(place, mode, engine);
    if (status) status = use == BooksUse::changing ? checkLayout(*engine) : checkReadable(*engine);
    if (status) return engine;
    tellFailure(tool, status, location);
    return nullptr;
}

ExitCode exitCodeOf(Outcome outcome) {
    switch (outcome) {
        case Outcome::done:
            return ExitCode::done;
        case Outcome::refused:
            return ExitCode::wrongInput;
        case Outcome::stale:
        case Outcome::failed:
            break;
    }
    return ExitCode::failed;
}

ExitCode tellFailure(Tool& tool, const Status& status, const std::string& location) {
    tool.err << failureText(status, location) << '\n';
    return ExitCode::failed;
}

ExitCode tellRefusal(Tool& tool, const Refusal& refusal) {
    tool.err << refusal.notice.text << '\n';
    switch (refusal.kind) {
        case RefusalKind::wrongInput:
        case RefusalKind::newPassword:
            return ExitCode::wrongInput;
        case RefusalKind::alreadyThere:
            return ExitCode::targetExists;
        case RefusalKind::outdated:
        case RefusalKind::failed:
        case RefusalKind::unconfirmed:
        case RefusalKind::serverPassword:
            break;
    }
    return ExitCode::failed;
}

}  // namespace chengheng
