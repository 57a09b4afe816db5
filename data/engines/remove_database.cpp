#include "data/engines/remove_database.h"

#include <array>
#include <filesystem>

#include "base/system/system_error.h"
#include "data/engines/open_engine.h"

namespace chengheng {
namespace {

constexpr std::array companions{"-wal", "-shm", "-journal", ".locks", ""};

constexpr const char* dropSchema =
    "DO $$ BEGIN EXECUTE format('DROP SCHEMA %I CASCADE', current_schema()); END $$";

Status removeFiles(const std::string& location) {
    Status status;
    for (const char* companion : companions) {
        std::error_code error;
        std::filesystem::remove(location + companion, error);
        if (error) status = systemFailure(error.value(), location + companion);
    }
    return status;
}

Status removeSchema(const std::string& location) {
    std::unique_ptr<Engine> engine;
    const Status status = openEngine(location, OpenMode::existing, engine);
    return status ? removeSchemaOf(*engine) : status;
}

}  // namespace

Status removeSchemaOf(Engine& engine) { return engine.script(dropSchema); }

Status removeDatabase(const std::string& location) {
    if (location == ":memory:") return Status::done();
    return isServerAddress(location) ? removeSchema(location) : removeFiles(location);
}

}  // namespace chengheng
