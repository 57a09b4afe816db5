#include "tests/fuzz/fuzz_targets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string_view>

namespace {

namespace files = std::filesystem;

constexpr int mutationCount = 1000;
constexpr std::size_t longestInput = 65536;

/// What readers treat in a way of its own.
constexpr std::array<std::string_view, 22> pieces{
    "\"", ",", ";", "\t", "\n", "\r\n", "'",  "--", "/*",           "{",        "}",
    "<",  ">", "&", "=",  "0",  "-1",   "1e", "𠮷", "\xEF\xBB\xBF", "\xFF\xFE", "\x80"};

std::vector<std::string> corpusOf(const std::string& target) {
    std::vector<std::string> inputs;
    for (const auto& entry : files::directory_iterator(CHENGHENG_FUZZ_CORPUS "/" + target)) {
        std::ifstream file(entry.path(), std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    std::ranges::sort(inputs);  // a folder is listed in any order
    return inputs;
}

/// Changes inputs in small ways, the same ones in every run.
class Mutations {
  public:
    explicit Mutations(const std::vector<std::string>& corpus) : m_corpus(corpus) {}

    std::string next() {
        std::string input = m_corpus[below(m_corpus.size())];
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) change(input);
        input.resize(std::min(input.size(), longestInput));
        return input;
    }

  private:
    std::size_t below(std::size_t count) { return count == 0 ? 0 : m_random() % count; }

    void change(std::string& input) {
        const std::size_t at = below(input.size() + 1);
        const std::size_t length = below(std::min<std::size_t>(input.size() - at, 32) + 1);
        switch (below(6)) {
            case 0:
                input.erase(at, length);
                break;
            case 1:
                input.insert(at, input.substr(at, length));
                break;
            case 2:
                input.insert(at, pieces.at(below(pieces.size())));
                break;
            case 3:
                input.insert(at, 1, static_cast<char>(below(256)));
                break;
            case 4:
                if (at < input.size()) input[at] = static_cast<char>(below(256));
                break;
            default:
                splice(input, at);
        }
    }
    /// Ends it as another one ends.
    void splice(std::string& input, std::size_t at) {
        const std::string& other = m_corpus[below(m_corpus.size())];
        input.replace(at, input.size() - at, other, below(other.size() + 1), std::string::npos);
    }

    const std::vector<std::string>& m_corpus;
    std::mt19937 m_random{1};
};

class FuzzTargets : public testing::TestWithParam<FuzzTarget> {
  protected:
    /// The input lies in a file, so that it is still there when the target ends the program.
    void run(const std::string& input) const {
        std::ofstream(m_path, std::ios::binary) << input;
        // Of just its size, so that reading past its end is noticed.
        const std::vector<std::uint8_t> bytes(input.begin(), input.end());
        EXPECT_EQ(GetParam().run(bytes.data(), bytes.size()), 0);
    }
    void SetUp() override { std::cout << "the input at work: " << m_path << std::endl; }
    void TearDown() override { files::remove(m_path); }

    const std::string m_path =
        (files::temp_directory_path() / ("fuzz_input_" + GetParam().name)).string() + "_" +
        std::to_string(std::random_device()());
};

TEST_P(FuzzTargets, HoldOnTheirCorpusAndAThousandMutationsOfIt) {
    const std::vector<std::string> corpus = corpusOf(GetParam().name);
    ASSERT_FALSE(corpus.empty());
    for (const std::string& input : corpus) run(input);
    run("");
    Mutations mutations(corpus);
    for (int count = 0; count < mutationCount; ++count) run(mutations.next());
}

INSTANTIATE_TEST_SUITE_P(Of, FuzzTargets, testing::ValuesIn(fuzzTargets()),
                         [](const auto& target) { return target.param.name; });

}  // namespace
