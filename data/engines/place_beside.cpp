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
