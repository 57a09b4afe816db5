#include "books/copying/books_transfer.h"

#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "base/system/staged_file.h"
#include "books/copying/books_source.h"
#include "books/copying/note_in_books.h"
#include "books/copying/transfer_sql.h"
#include "books/copying/transfer_texts.h"
#include "data/connection/log_store.h"
#include "data/engines/open_engine.h"
#include "data/engines/remove_database.h"
#include "data/layout/layout.h"
#include "data/transfer/content_copy.h"
#include "data/transfer/stored_tables.h"
#include "session/failure_texts.h"
#include "session/who_writes.h"

namespace chengheng {
namespace {

using Digests = std::vector<TableDigest>;
namespace files = std::filesystem;

Refusal failure(const Status& status, const std::string& location) {
    return failureRefusalOf(status, location);
}

Refusal difference(const std::string& location) {
    return failureRefusal(fmt::format(transfer_texts::copyDiffers, shownLocation(location)));
}

/// What a log says, with a place.
using Words = fmt::format_string<const std::string&>;

enum class Tables { present, missing };

/// What the log says of books that another's content has taken the place of.
Status wordsOfReplaced(Engine& target, std::string& words) {
    return forEachRow(target, transfer_sql::endOfLog, {}, [&words](const Cursor& end) {
        words = fmt::format(transfer_texts::logReplaced, words, end.integer(0), end.text(1));
        return Status::done();
    });
}

/// Where books are brought, and what their log says of it; a backup's nothing.
struct Place {
    std::string location;
    std::string words = {};
};

/// Brings the source's content into the target and compares the two, in one transaction. What came
/// from books of an older layout is raised to this one. The log of the source goes on with how it
/// came here; `made` is what the target then holds.
std::optional<Refusal> fill(BooksSource& source, Engine& target, const Place& place, Tables tables,
                            Digests& made) {
    const std::string& location = place.location;
    std::string words = place.words;
    Status status = target.begin();
    if (!status) return failure(status, location);
    status = tables == Tables::missing ? createTables(target) : wordsOfReplaced(target, words);
    if (status) status = replaceContent(source.engine(), target);
    if (status) status = digestContent(target, made);
    const bool isEqual = made == source.digests();
    if (status && isEqual && source.layout() < booksFormatVersion) {
        status = raiseRows(target, source.layout());
        if (status) status = digestContent(target, made);
    }
    if (status && isEqual && !words.empty()) {
        status = noteInLog(target, logAuthor(), {.text = words});
        if (status) status = digestLogAgain(target, made);
    }
    if (status && isEqual) {
        status = target.commit();
        return status ? std::optional<Refusal>() : failure(status, location);
    }
    if (Status undone = target.rollback(); !undone && !status)
        status.detail += "; " + undone.detail;
    return status ? difference(source.location()) : failure(status, location);
}

/// Makes the tables and the content of a new database; leaves an empty one when it fails.
std::optional<Refusal> makeCopy(BooksSource& source, const Place& place, Digests& made) {
    std::unique_ptr<Engine> target;
    const Status status = openEngine(place.location, OpenMode::create, target);
    return status ? fill(source, *target, place, Tables::missing, made)
                  : failure(status, place.location);
}

/// The same on a server that has no such schema yet; what comes to nothing is removed.
std::optional<Refusal> makeSchema(BooksSource& source, const Place& place) {
    Digests made;
    std::optional<Refusal> refusal = makeCopy(source, place, made);
    // The failure told is the one that came first; what may be there stays, as it says.
    if (refusal && refusal->kind != RefusalKind::unconfirmed)
        static_cast<void>(removeDatabase(place.location).isDone());
    return refusal;
}

/// Looks once more whether a finished copy holds what it should.
std::optional<Refusal> provenCopy(const BooksSource& source, const Digests& made,
                                  const std::string& path, const std::string& file) {
    Digests digests;
    if (auto refusal = digestFinished(path, file, digests)) return refusal;
    return digests == made ? std::optional<Refusal>() : difference(source.location());
}

/// Whether a program has the file open. Opening and closing it takes away the log that one
/// which broke off left behind.
bool isInUse(const std::string& file) {
    std::unique_ptr<Engine> engine;
    const Status status = openEngine(file, OpenMode::existing, engine);
    engine.reset();
    std::error_code unseen;
    return status.failure == Failure::busy || files::exists(file + "-wal", unseen) ||
           files::exists(file + "-journal", unseen);
}

/// Why a file is no target. Books are one when they may be replaced, what lies beside them never.
Refusal targetRefusal(const Status& status, const std::string& file, Overwrite overwrite) {
    std::error_code unseen;
    const bool isFileThere = overwrite == Overwrite::refuse && files::exists(file, unseen);
    if (status.failure == Failure::refused || (status.failure == Failure::foreign && isFileThere))
        return existsRefusal(fmt::format(transfer_texts::fileExists, file), "");
    if (status.failure == Failure::foreign)
        return existsRefusal(fmt::format(transfer_texts::besideBooks, file), "");
    if (status.failure == Failure::missing)
        return inputRefusal(fmt::format(transfer_texts::folderMissing, file), "");
    return failure(status, file);
}

/// How a file of books comes about: a backup as the engine copies it, which is quicker, unless
/// something that is not ours lies in it; new books from their rows.
enum class CopyForm { asItIs, rows };

/// Writes the source into a file that appears only when it is whole and proven.
std::optional<Refusal> writeFile(BooksSource& source, const Place& place, Overwrite overwrite,
                                 CopyForm form) {
    const std::string& file = place.location;
    StagedFile staged(file, overwrite);
    if (!staged.status()) return targetRefusal(staged.status(), file, overwrite);
    std::optional<Status> copied;
    if (form == CopyForm::asItIs && source.objects().empty())
        copied = source.engine().copyToFile(staged.path());
    if (copied && !*copied) return failure(*copied, file);
    Digests made = source.digests();
    if (!copied) {
        if (std::optional<Refusal> refusal = makeCopy(source, {staged.path(), place.words}, made))
            return refusal;
    }
    if (std::optional<Refusal> refusal = provenCopy(source, made, staged.path(), file))
        return refusal;
    std::error_code unseen;
    const OutputTarget& target = staged.target();
    const bool isReplaced = !target.isStream && files::exists(target.path, unseen);
    if (overwrite == Overwrite::replaceBooks && isReplaced && isInUse(target.path))
        return failureRefusal(fmt::format(transfer_texts::fileInUse, file));
    const Status status = staged.place();
    return status ? std::optional<Refusal>() : targetRefusal(status, file, overwrite);
}

std::optional<Refusal> replaceBooks(BooksSource& source, Engine& target, const Place& place) {
    const std::string& location = place.location;
    const std::string tables = allTableNames();
    LockService& locks = target.locks();
    const Status locked = locks.lock(tables, LockMode::exclusive, false);
    if (locked.failure == Failure::busy) {
        const LockHolder& holder = locks.lastHolder();
        const std::string shown = shownLocation(location);
        return failureRefusal(holder.operatorName.empty() && holder.station.empty()
                                  ? fmt::format(transfer_texts::booksInUseBySomebody, shown)
                                  : fmt::format(transfer_texts::booksInUse, shown,
                                                holder.operatorName, holder.station));
    }
    if (!locked) return failure(locked, location);
    Digests made;
    std::optional<Refusal> refusal = fill(source, target, place, Tables::present, made);
    locks.unlock(tables, LockMode::exclusive);
    return refusal;
}

std::optional<Refusal> transfer(BooksSource& source, const Place& place, Overwrite overwrite) {
    const std::string& target = place.location;
    std::unique_ptr<Engine> existing;
    Status status = openEngine(target, OpenMode::existing, existing);
    if (status.failure == Failure::missing) {
        if (isServerAddress(target)) return makeSchema(source, place);
        return writeFile(source, place, Overwrite::refuse, CopyForm::rows);
    }
    Digests made;
    if (status && isEmptySchema(*existing, target)) return makeCopy(source, place, made);
    if (status) status = checkLayout(*existing);
    if (!status) return failure(status, target);
    if (overwrite == Overwrite::refuse)
        return existsRefusal(fmt::format(transfer_texts::booksExist, shownLocation(target)), "");
    return replaceBooks(source, *existing, place);
}

/// Enters in the log of the source that there is a copy of it now. What is written stands whether
/// that can be or not.
void noteCopy(const std::string& location, Words words, const std::string& copy,
              TransferRemarks* remarks) {
    const std::string shown = shownLocation(copy);
    const Status status = noteInBooks(location, fmt::format(words, shown));
    if (!status && remarks != nullptr)
        remarks->notLogged = fmt::format(transfer_texts::notLogged, shown, shownLocation(location),
                                         failureText(status, location));
}

std::optional<Refusal> copyContent(const std::string& location, const std::string& target,
                                   Overwrite overwrite, Words words, TransferRemarks* remarks) {
    if (isSameLocation(location, target))
        return inputRefusal(fmt::format(transfer_texts::sameBooks, shownLocation(target)), "");
    BooksSource source(location);
    if (std::optional<Refusal> refusal = source.open()) return refusal;
    if (remarks != nullptr) remarks->leftOut = source.objects();
    const std::string from = shownLocation(location);
    return transfer(source, {target, fmt::format(words, from)}, overwrite);
}

}  // namespace

std::optional<Refusal> backUpBooks(const std::string& location, const std::string& file,
                                   Overwrite overwrite, TransferRemarks* remarks) {
    if (isServerAddress(file))
        return inputRefusal(fmt::format(transfer_texts::backupToServer, shownLocation(file)), "");
    if (isSameLocation(location, file))
        return inputRefusal(fmt::format(transfer_texts::sameBooks, shownLocation(file)), "");
    OutputTarget target;
    if (const Status found = findTarget(file, overwrite, target); !found)
        return targetRefusal(found, file, overwrite);
    {
        BooksSource source(location);
        if (std::optional<Refusal> refusal = source.open()) return refusal;
        if (remarks != nullptr) remarks->leftOut = source.objects();
        if (auto refusal = writeFile(source, {file}, overwrite, CopyForm::asItIs)) return refusal;
    }
    noteCopy(location, transfer_texts::logBackup, file, remarks);
    return std::nullopt;
}

std::optional<Refusal> restoreBooks(const std::string& file, const std::string& target,
                                    Overwrite overwrite, TransferRemarks* remarks) {
    if (isServerAddress(file))
        return inputRefusal(
            fmt::format(transfer_texts::backupFromServerAddress, shownLocation(file)), "");
    return copyContent(file, target, overwrite, transfer_texts::logRestore, remarks);
}

std::optional<Refusal> copyBooks(const std::string& location, const std::string& target,
                                 Overwrite overwrite, TransferRemarks* remarks) {
    if (auto refusal = copyContent(location, target, overwrite, transfer_texts::logCopyOf, remarks))
        return refusal;
    noteCopy(location, transfer_texts::logCopyTo, target, remarks);
    return std::nullopt;
}

}  // namespace chengheng
