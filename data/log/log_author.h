#pragma once

#include <cstdint>
#include <string>

namespace chengheng {

/// Who changes the books, and from where.
struct LogAuthor {
    std::int32_t operatorId = 0;
    std::string operatorName = {};
    std::string workstation = {};
    std::int64_t process = 0;
    std::string program = {};  ///< with its version
};

/// What is done, in the words of the program.
struct LogWords {
    std::int32_t function = 0;  ///< of the rights list; 0: none
    std::string text = {};      ///< empty: the tables that were changed are named
};

}  // namespace chengheng
