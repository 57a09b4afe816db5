#pragma once

#include "data/engine/engine.h"
#include "data/log/chain.h"
#include "data/log/change_gatherer.h"

namespace chengheng {

enum class LogOrder { oldestFirst, newestFirst };

/// Is handed the whole log, entry by entry, each with its parts behind it.
class LogReceiver {
  public:
    virtual ~LogReceiver() = default;
    virtual Status begin(const LogEntry& entry) = 0;
    virtual Status take(const LogEntry& entry, const LogPart& part) = 0;
    virtual Status end(const LogEntry& entry) = 0;
    /// Whether nothing else needs to be told.
    virtual bool isEnough() const { return false; }
};

/// Hands the log over in an order, parts and entries alike; what is in memory at a time does not
/// grow with it.
Status walkLog(Engine& engine, LogOrder order, LogReceiver& receiver);

}  // namespace chengheng
