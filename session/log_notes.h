#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace chengheng {

/// Has the operation log of the open books tell of something that changes no row, such as a list
/// that was printed; the words are asked for only where a log is kept. What keeps it from being
/// told is no failure of what it tells of, and no failure of g_pDB either.
void noteInLog(std::int32_t function, const std::function<std::string()>& words);

/// Has the log tell of the open unit of work though it changes no row that the log watches.
void tellThisUnit();

/// A list that went out of the books: what was done with it, how it is called, and into which
/// file, if any.
void noteOutput(const char* deed, const std::string& title, const std::string& path = {});

}  // namespace chengheng
