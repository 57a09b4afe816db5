#include "data/engines/place_beside.h"

#include <filesystem>

#include "base/system/system_error.h"
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

std::string placeOfYear(const std::string& location, int year, int other) {
    const std::string from = std::to_string(year);
    const std::string to = std::to_string(other);
    if (isServerAddress(location)) {
        PostgresAddress address;
        if (!readPostgresAddress(location, address)) return {};
        if (address.schema.ends_with(from))
            address.schema.replace(address.schema.size() - from.size(), from.size(), to);
        else
            address.schema = schemaBeside(address.schema, "_" + to);
        return addressText(address);
    }
    const std::filesystem::path file(location);
    const std::filesystem::path folder = file.parent_path();
    if (folder.filename() != from) return {};
    return folder.parent_path() / to / file.filename();
}

Status readIsPlaceFree(const std::string& location, bool& isFree) {
    isFree = false;
    if (!isServerAddress(location)) {
        std::error_code error;
        const auto found = std::filesystem::symlink_status(location, error);
        isFree = found.type() == std::filesystem::file_type::not_found;
        const bool isKnown = isFree || !error;
        return isKnown ? Status::done() : systemFailure(error.value(), location);
    }
    std::unique_ptr<Engine> engine;
    const Status status = openEngine(location, OpenMode::existing, engine);
    isFree = status.failure == Failure::missing;
    return isFree ? Status::done() : status;
}

}  // namespace chengheng
