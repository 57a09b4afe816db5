#include "books/demo/demo_books.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>

#include "base/system/staged_file.h"
#include "books/copying/transfer_texts.h"
#include "books/demo/demo_parts.h"
#include "books/making/books_creation.h"
#include "books/making/making_texts.h"
#include "data/access/unit_of_work.h"
#include "data/engines/open_engine.h"
#include "data/engines/remove_database.h"
#include "data/layout/layout.h"
#include "session/failure_texts.h"
#include "session/who_writes.h"

namespace chengheng {
namespace {

constexpr const char* databaseName = "demo";
constexpr std::int32_t onlySet = 1;

/// In the order in which later ones refer to earlier ones.
constexpr std::array steps{writeDemoCurrencies,  writeDemoAccounts,     writeDemoDirectories,
                           writeDemoProjects,    writeDemoVoucherTypes, writeDemoOperators,
                           writeDemoDefinitions, writeDemoOpenings};

std::int16_t yearOf(DemoYear year) {
    return static_cast<std::int16_t>(year == DemoYear::finished ? demo::year - 1 : demo::year);
}

NewBooks demoFacts(DemoYear year) {
    return {.name = demo::setName,
            .company = demo::company,
            .year = yearOf(year),
            .levelPattern = demo::levelPattern,
            .hasForeignCurrency = true,
            .chart = ChartTemplate::smallEnterprise,
            .supervisor = demo::supervisor};
}

/// Everything the books hold, in one unit of work.
Status fill(CNbCwDB& database, const DemoWish& wish) {
    const std::string hash = hashPassword(demo::password, wish.cost);
    if (hash.empty()) return Status::of(Failure::full, "no memory to hash a password");
    UnitOfWork unit(database, {.function = 0, .text = [] { return making_texts::logDemo; }});
    Status status = unit.status();
    if (status) status = fillNewBooks(database, demoFacts(wish.year), onlySet, hash);
    DemoBooks books(database, wish.cost, yearOf(wish.year));
    for (const auto step : steps)
        if (status) status = step(books);
    if (status)
        status =
            wish.year == DemoYear::finished ? writeDemoTurnover(books) : writeDemoVouchers(books);
    // A step may have worked as one of the operators that it made.
    database.keepLog(logAuthor());
    return status ? unit.commit() : status;
}

Status fillNew(std::unique_ptr<Engine> engine, const std::string& location, const DemoWish& wish) {
    if (Status made = createLayout(*engine); !made) return made;
    CNbCwDB database;
    database.keepLog(logAuthor());
    database.adopt(std::move(engine), shownLocation(location).c_str(), databaseName);
    return database.DBSelect(databaseName) != 0 ? fill(database, wish) : database.lastStatus();
}

Refusal existingRefusal(const std::string& location) {
    return existsRefusal(fmt::format(making_texts::placeExists, shownLocation(location)), "");
}

/// Makes the books where nothing is, and removes what comes to nothing. The place may be
/// another one than the location that is told.
std::optional<Refusal> makeAt(const std::string& place, const std::string& location,
                              const DemoWish& wish) {
    std::unique_ptr<Engine> engine;
    Status status = openEngine(place, OpenMode::create, engine);
    if (status.failure == Failure::refused) return existingRefusal(location);
    if (!status) return failureRefusal(failureText(status, location));
    status = fillNew(std::move(engine), location, wish);
    if (status) return std::nullopt;
    // The failure told is the one that came first.
    static_cast<void>(removeDatabase(place).isDone());
    return failureRefusal(failureText(status, location));
}

std::optional<Refusal> makeFile(const std::string& path, const DemoWish& wish) {
    const std::string folder = std::filesystem::path(path).parent_path();
    if (const Status made = makeOwnedFolder(folder); !made)
        return failureRefusal(failureText(made, path));
    std::error_code unseen;
    if (std::filesystem::exists(path, unseen)) return existingRefusal(path);
    StagedFile staged(path, Overwrite::refuse);
    if (staged.status().failure == Failure::refused) return existingRefusal(path);
    if (!staged.status()) return failureRefusal(failureText(staged.status(), path));
    if (std::optional<Refusal> refusal = makeAt(staged.path(), path, wish)) return refusal;
    const Status placed = staged.place();
    if (placed.failure == Failure::refused) return existingRefusal(path);
    return placed ? std::optional<Refusal>() : failureRefusal(failureText(placed, path));
}

}  // namespace

std::optional<Refusal> makeDemoBooks(const std::string& location, const DemoWish& wish) {
    return isServerAddress(location) ? makeAt(location, location, wish) : makeFile(location, wish);
}

}  // namespace chengheng
