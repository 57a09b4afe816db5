#include "books/upgrading/upgrade_backup.h"

#include "base/system/staged_file.h"
#include "data/engines/open_engine.h"
#include "data/engines/place_beside.h"
#include "data/engines/remove_database.h"
#include "data/layout/layout.h"
#include "data/transfer/content_copy.h"

namespace chengheng {
namespace {

using Digests = std::vector<TableDigest>;

Status compare(Engine& copy, const Digests& content) {
    Digests digests;
    const Status status = digestContent(copy, digests);
    if (!status || digests == content) return status;
    return Status::of(Failure::wrongValue, "the copy is not what was copied");
}

/// Whether a finished copy opens as anybody will open it and holds what was copied.
Status prove(const std::string& place, int layout, const Digests& content) {
    std::unique_ptr<Engine> copy;
    int number = 0;
    Status status = openEngine(place, OpenMode::existing, copy);
    if (status) status = checkReadable(*copy, &number);
    if (status && number != layout) status = Status::of(Failure::wrongValue, "another layout");
    std::vector<std::string> faults;
    if (status) status = copy->verify(faults);
    if (status && !faults.empty()) status = Status::of(Failure::damaged, faults.front());
    return status ? compare(*copy, content) : status;
}

Status fill(Engine& books, Engine& target, int layout, const Digests& content) {
    Status status = target.begin();
    if (status) status = createTables(target, layout);
    if (status) status = replaceContent(books, target);
    if (status) status = compare(target, content);
    if (status) return target.commit();
    if (target.inTransaction()) {
        if (Status undone = target.rollback(); !undone) status.detail += "; " + undone.detail;
    }
    return status;
}

}  // namespace

Status findPlaceOfBackup(const std::string& location, int layout, std::string& place) {
    constexpr int mostBackups = 1000;
    const std::string suffix = "_format" + std::to_string(layout);
    for (int number = 1; number <= mostBackups; ++number) {
        place = placeBeside(location, number == 1 ? suffix : suffix + "_" + std::to_string(number));
        bool isFree = false;
        if (Status status = readIsPlaceFree(place, isFree); !status || isFree) return status;
    }
    return Status::of(Failure::refused, place);
}

Status UpgradeBackup::make(Engine& books, int layout, const Digests& content) {
    return isServerAddress(m_place) ? makeSchema(books, layout, content)
                                    : makeFile(books, layout, content);
}

Status UpgradeBackup::makeFile(Engine& books, int layout, const Digests& content) {
    StagedFile staged(m_place, Overwrite::refuse);
    Status status = staged.status();
    if (status)
        status = books.copyToFile(staged.path()).value_or(Status::of(Failure::refused, m_place));
    if (status) status = prove(staged.path(), layout, content);
    if (status) status = staged.place();
    m_isMade = status.isDone();
    return status;
}

Status UpgradeBackup::makeSchema(Engine& books, int layout, const Digests& content) {
    std::unique_ptr<Engine> target;
    Status status = openEngine(m_place, OpenMode::create, target);
    m_isMade = status.isDone();
    if (status) status = fill(books, *target, layout, content);
    target.reset();
    if (status) status = prove(m_place, layout, content);
    // One that may be whole stays, since the words say so.
    if (!status && status.failure != Failure::unconfirmed) discard();
    return status;
}

void UpgradeBackup::discard() {
    if (!m_isMade) return;
    m_isMade = false;
    // One that cannot be removed is in nobody's way: the next gets another name.
    static_cast<void>(removeDatabase(m_place).isDone());
}

}  // namespace chengheng
