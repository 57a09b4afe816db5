#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>

namespace chengheng {

/// A process of its own that does its work once it is told to. It is made before the maker opens
/// any books that the work uses.
class WaitingProcess {
  public:
    /// Gives whether the work went well.
    explicit WaitingProcess(const std::function<bool()>& work);
    ~WaitingProcess();
    WaitingProcess(const WaitingProcess&) = delete;
    WaitingProcess& operator=(const WaitingProcess&) = delete;

    /// Starts the work and gives it a moment to end. It may be kept from that by the caller.
    void start(std::chrono::milliseconds moment = std::chrono::milliseconds(60));
    /// Waits for the end of the work.
    bool hasSucceeded();

  private:
    pid_t m_process = -1;
    int m_line = -1;
};

}  // namespace chengheng
