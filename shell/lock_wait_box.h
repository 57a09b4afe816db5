#pragma once

#include <QDialog>
#include <QLabel>
#include <chrono>
#include <memory>

#include "data/engine/lock_service.h"

namespace chengheng {

/// Shows, after a moment, who keeps this workstation waiting for a lock, and lets the operator
/// give the wait up. Windows go on painting meanwhile.
class LockWaitBox : public LockWaiter {
  public:
    /// Shorter waits are nobody's business.
    static constexpr std::chrono::milliseconds quietTime{700};

    LockWaitBox();
    ~LockWaitBox() override;

    bool keepWaiting(const LockHolder& holder, std::chrono::milliseconds waited) override;
    void waitEnded() override;
    Failure givenUpAs() const override;

  private:
    class Box;
    std::unique_ptr<Box> m_box;
};

}  // namespace chengheng
