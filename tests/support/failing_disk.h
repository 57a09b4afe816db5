#pragma once

namespace chengheng {

/// While it lives, SQLite databases that are opened lie on a disk that can be made to fail.
class FailingDisk {
  public:
    enum class Fault { full, writeError, readError, syncError };

    FailingDisk();
    ~FailingDisk();
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    /// Every operation of that kind fails after the next `remaining` ones.
    void fail(Fault fault, int remaining = 0);
    void repair();
    /// How many operations of that kind were made since the last call of fail or repair.
    int operations(Fault fault) const;
};

}  // namespace chengheng
