#include "data/engines/place_beside.h"

#include <filesystem>

#include "data/engines/open_engine.h"
#include "data/engines/postgres/postgres_address.h"

namespace chengheng {

std::string placeBeside(const std::string& location, const std::string& suffix) {
    if (isServerAddress(location)) {
        PostgresAddress address;
        if (!readPostgresAddress(location, address)) return {};
        address.schema = schemaBeside(address.schema, suffix);
        return addressText(address);
    }
    std::error_code unseen;
    const std::filesystem::path real = std::filesystem::canonical(location, unseen);
    const std::filesystem::path file = unseen ? std::filesystem::path(location) : real;
    return file.parent_path() / (file.stem().string() + suffix + file.extension().string());
}

bool isPlaceFree(const std::string& location) {
    if (!isServerAddress(location)) {
        std::error_code unseen;
        return !std::filesystem::exists(std::filesystem::symlink_status(location, unseen));
    }
    std::unique_ptr<Engine> engine;
    const Status status = openEngine(location, OpenMode::existing, engine);
    bool hasBooks = true;
    if (status) hasBooks = !engine->hasTable("BooksFormat", hasBooks) || hasBooks;
    return status.failure == Failure::missing || !hasBooks;
}

}  // namespace chengheng
