#include "tests/support/engine_cases.h"

#include <unistd.h>

#include <filesystem>
#include <ostream>
#include <stdexcept>

#include "tests/support/private_postgres.h"

namespace chengheng {
namespace {

/// The folder of this test program, removed when it ends. A forked child leaves by _exit
/// and so leaves it to its parent.
class TestFolder {
  public:
    TestFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "chengheng-test-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for tests");
        m_path = pattern;
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::filesystem::path next() { return m_path / std::to_string(++m_count); }

  private:
    std::filesystem::path m_path;
    int m_count = 0;
};

}  // namespace

void PrintTo(const EngineCase& engineCase, std::ostream* stream) { *stream << engineCase.name; }

std::vector<EngineCase> allEngineCases() {
    std::vector<EngineCase> cases = sharedEngineCases();
    cases.insert(cases.begin(), EngineCase{"sqliteMemory"});
    return cases;
}

std::vector<EngineCase> sharedEngineCases() {
    std::vector<EngineCase> cases{EngineCase{"sqliteFile"}};
    if (hasTestServer()) cases.push_back(EngineCase{"postgres"});
    return cases;
}

std::string freshFolder() {
    static TestFolder folder;
    const std::filesystem::path fresh = folder.next();
    std::filesystem::create_directories(fresh);
    return fresh;
}

std::string freshLocation(const EngineCase& engineCase) {
    if (engineCase.name == "sqliteMemory") return ":memory:";
    if (engineCase.name == "sqliteFile") return freshFolder() + "/Nbzw.db";
    if (engineCase.name == "postgres") return freshSchema();
    throw std::invalid_argument("no such kind of database: " + engineCase.name);
}

std::unique_ptr<Engine> openForTest(const std::string& location, OpenMode mode) {
    std::unique_ptr<Engine> engine;
    const Status status = openEngine(location, mode, engine);
    if (!status) throw std::runtime_error(location + " does not open: " + status.detail);
    return engine;
}

std::string engineCaseName(const testing::TestParamInfo<EngineCase>& info) {
    return info.param.name;
}

}  // namespace chengheng
