#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

/// What tools/mutate builds into the functions it has mutants of: they are compiled once with
/// all their variants, and each process is told by its environment which of them to run.
namespace mutation {

class Process {
  public:
    Process() {
        if (const char* number = std::getenv("CHENGHENG_MUTANT")) m_mutant = std::atoi(number);
        const char* log = std::getenv("CHENGHENG_MUTANT_LOG");
        const char* output = std::getenv("CHENGHENG_MUTANT_OUTPUT");
        if (log == nullptr || output == nullptr) return;
        m_output = output;
        m_log = open(log, O_WRONLY | O_APPEND | O_CLOEXEC);
    }

    /// The number of the mutant; 0 when everything is as it is written.
    int mutant() const { return m_mutant; }

    /// Where a log is asked for, notes that a function was reached, and when: by the length
    /// that the test program's output had, which tells the test.
    void note(int function) {
        if (m_log < 0) return;
        struct stat output {};
        if (stat(m_output.c_str(), &output) != 0) return;
        const std::lock_guard lock(m_mutex);
        const auto [noted, isNew] = m_noted.try_emplace(function, output.st_size);
        if (!isNew && noted->second == output.st_size) return;
        noted->second = output.st_size;
        const std::string line =
            std::to_string(output.st_size) + ' ' + std::to_string(function) + '\n';
        std::string_view rest = line;
        if (!append(rest) && !appendBeyondLimit(rest)) std::abort();
    }

  private:
    /// Takes what it has written off the text; false when something is left.
    bool append(std::string_view& text) const {
        const ssize_t written = write(m_log, text.data(), text.size());
        if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
        return text.empty();
    }
    /// A test that plays a full disk lets no file of the process grow for a while.
    bool appendBeyondLimit(std::string_view& text) const {
        struct rlimit before {};
        if (getrlimit(RLIMIT_FSIZE, &before) != 0) return false;
        struct rlimit most = before;
        most.rlim_cur = before.rlim_max;
        if (setrlimit(RLIMIT_FSIZE, &most) != 0) return false;
        const bool isWhole = append(text);
        return setrlimit(RLIMIT_FSIZE, &before) == 0 && isWhole;
    }

    int m_mutant = 0;
    int m_log = -1;
    std::string m_output;
    std::mutex m_mutex;
    std::map<int, off_t> m_noted;
};

inline Process& process() {
    static Process& one = *new Process;  // outlives every object that could still ask
    return one;
}

/// Which mutant a function is to be. What the compiler evaluates is as it is written.
constexpr int chosen(int function) {
    if (__builtin_is_constant_evaluated()) return 0;
    process().note(function);
    return process().mutant();
}

}  // namespace mutation
