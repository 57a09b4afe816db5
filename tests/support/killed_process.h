#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "tests/support/faulty_engine.h"

namespace chengheng {

/// The call behind one at which a process was killed. What comes first only reads, and changes
/// nothing wherever it ends: some of it will do.
inline int nextCallToDieAt(int call) { return call < 24 ? call + 4 : call + 1; }

/// Runs work on books in a process of its own. True when it was killed on the way, as by
/// FaultyEngine::dieAtCall; false when it came to its end; throws when it went wrong. The caller
/// must have no connection to the books meanwhile.
bool isKilledAtWork(const std::string& location,
                    const std::function<void(std::unique_ptr<FaultyEngine> books)>& work);

/// The same of work that opens what it needs.
bool isKilledAtWork(const std::function<void()>& work);

/// A process number that was somebody's and is nobody's now.
std::int32_t endedProcess();

}  // namespace chengheng
