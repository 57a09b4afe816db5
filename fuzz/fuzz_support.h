#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace chengheng {

/// Ends the run when something does not hold, which the fuzzer reports with its input.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// A copy of an input of just its size, so that reading past its end is noticed.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_bytes(data, data + size) {}
    std::string_view text() const { return {m_bytes.data(), m_bytes.size()}; }

  private:
    std::vector<char> m_bytes;
};

/// A folder for readers that want a file; gone when the program ends.
class FuzzFolder {
  public:
    FuzzFolder() {
        std::string pattern = std::filesystem::temp_directory_path().string() + "/fuzz.XXXXXX";
        require(mkdtemp(pattern.data()) != nullptr, "there is room for a file");
        m_path = pattern;
    }
    ~FuzzFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    FuzzFolder(const FuzzFolder&) = delete;
    FuzzFolder& operator=(const FuzzFolder&) = delete;

    const std::string& path() const { return m_path; }
    /// Puts a file there and tells its path.
    std::string put(const std::string& name, std::string_view content) const {
        std::string path = m_path + "/" + name;
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

  private:
    std::string m_path;
};

}  // namespace chengheng
