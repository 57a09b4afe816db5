#pragma once

#include <sys/resource.h>

#include <csignal>

namespace chengheng {

/// While it lives, no file of this process grows beyond a size: the disk is full.
class SmallDisk {
  public:
    explicit SmallDisk(rlim_t size) {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        static_cast<void>(std::signal(SIGXFSZ, m_handler));
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

  private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

}  // namespace chengheng
