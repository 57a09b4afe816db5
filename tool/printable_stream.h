#pragma once

#include <ostream>
#include <streambuf>

namespace chengheng {

/// Passes on what is written to it in a form that cannot steer a terminal: names come from books
/// and files of others. Each text is to be written whole.
class PrintableStream final : private std::streambuf, public std::ostream {
  public:
    explicit PrintableStream(std::ostream& target) : std::ostream(this), m_target(target) {}

  private:
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    std::streambuf::int_type overflow(std::streambuf::int_type letter) override;
    int sync() override;

    std::ostream& m_target;
};

}  // namespace chengheng
