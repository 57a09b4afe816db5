#include "tool/printable_stream.h"

#include "base/values/text.h"

namespace chengheng {

std::streamsize PrintableStream::xsputn(const char* text, std::streamsize size) {
    m_target << printableText({text, static_cast<std::size_t>(size)});
    return m_target ? size : 0;
}

std::streambuf::int_type PrintableStream::overflow(std::streambuf::int_type letter) {
    const char sign = std::streambuf::traits_type::to_char_type(letter);
    return xsputn(&sign, 1) == 1 ? std::streambuf::traits_type::not_eof(letter)
                                 : std::streambuf::traits_type::eof();
}

int PrintableStream::sync() { return m_target.flush() ? 0 : -1; }

}  // namespace chengheng
