#include "tests/support/older_books.h"

#include <fstream>
#include <stdexcept>

#include "data/layout/layout.h"
#include "tests/support/engine_cases.h"
#include "tests/support/small_books.h"

namespace chengheng {
namespace {

std::string fileOf(int number, const std::string& kind) {
    return CHENGHENG_SOURCE_FOLDER "/tests/older_books/format_" + std::to_string(number) + "_" +
           kind + ".sql";
}

std::string textOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("no file " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::string olderTablesFile(const Engine& engine, int number) {
    const bool isServer = !engine.dialect().rowLock.empty();
    return fileOf(number, isServer ? "postgres" : "sqlite");
}

void fillOlderBooks(Engine& engine, int number) {
    runScript(engine, textOf(olderTablesFile(engine, number)));
    runScript(engine, textOf(fileOf(number, "rows")));
}

int layoutAt(const std::string& location) {
    int number = 0;
    const auto engine = openForTest(location, OpenMode::existing);
    if (const Status status = readLayoutNumber(*engine, number); !status)
        throw std::runtime_error(status.detail);
    return number;
}

}  // namespace chengheng
