// Reads any bytes as a password file: the password is its first line behind a
// byte order mark, or there is none.

#include "books/logon/password_file.h"

#include "fuzz/fuzz_support.h"

using namespace chengheng;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzFolder folder;
    const FuzzInput input(data, size);
    std::string password = "before";
    const Status status = readPasswordFile(folder.put("password", input.text()), password);
    std::string_view text = input.text();
    if (constexpr std::string_view mark = "\xEF\xBB\xBF"; text.starts_with(mark))
        text.remove_prefix(mark.size());
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    const bool isFit = line.size() <= 1024 && line.find('\0') == std::string_view::npos;
    require(status.isDone() == isFit, "just the fit lines are read");
    require(password == (isFit ? line : ""), "the password is the first line");
    return 0;
}
