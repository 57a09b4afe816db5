#pragma once

#include <sys/stat.h>

#include <string>

namespace chengheng {

/// A database on a medium that this program cannot write, by an absolute path without links. It is
/// read without the engine's own protection against writers, which would need files beside it;
/// whoever can write it after all is noticed by this.
class UnwritableFile {
  public:
    explicit UnwritableFile(std::string path);

    /// No log lies beside it whose content would be missed.
    bool isWhole() const { return !hasLog(); }
    bool hasChanged() const;
    /// The address under which the engine takes it as it stands.
    std::string address() const;

  private:
    bool hasLog() const;

    std::string m_path;
    struct stat m_found {};
};

}  // namespace chengheng
