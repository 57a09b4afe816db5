#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "books/logon/books_session.h"

namespace chengheng {

/// A session with a clock that stands still until it is moved.
struct Shell {
    std::string refusalOf(const LogonRequest& request) {
        const auto refusal = session.logOn(request);
        return refusal ? refusal->notice.focusField + "|" + refusal->notice.text : "";
    }

    CNbCwDB database;
    double now = 1'795'000'000;
    WrongTries tries{[this] { return now; }};
    BooksSession session{database, tries};
};

/// What 王芳 logs on with.
inline LogonRequest requestFor(const std::string& location) {
    return {.location = location,
            .operatorName = "王芳",
            .password = "secret",
            .date = Date{2026, 5, 31},
            .launchArgument = "-ERPSINGLE"};
}

inline std::string bytesIn(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void putBytes(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace chengheng
