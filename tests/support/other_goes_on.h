#pragma once

#include <functional>
#include <utility>

#include "data/engine/lock_service.h"

namespace chengheng {

/// While a lock is waited for, the other workstation ends its own change.
class OtherGoesOn final : public LockWaiter {
  public:
    explicit OtherGoesOn(std::function<void()> goOn) : m_goOn(std::move(goOn)) {}
    bool keepWaiting(const LockHolder&, std::chrono::milliseconds) override {
        if (m_goOn) std::exchange(m_goOn, nullptr)();
        return true;
    }

  private:
    std::function<void()> m_goOn;
};

}  // namespace chengheng
