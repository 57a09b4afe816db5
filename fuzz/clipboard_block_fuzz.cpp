// Reads any bytes as a block of cells from the clipboard: only what is no text is refused, and
// what is read is written and read back the same.

#include "fuzz/fuzz_sheet.h"
#include "sheets/delimited/delimited_text.h"

using namespace chengheng;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    Sheet sheet;
    const std::optional<SheetFailure> failure = readClipboardBlock(input.text(), sheet);
    checkRead(failure, sheet);
    const bool isText = isUtf8(input.text()) && input.text().find('\0') == std::string_view::npos;
    require(isText != failure.has_value(), "every text is a block, and nothing else is");
    if (failure) return 0;
    std::string written;
    require(!writeClipboardBlock(sheet, written), "what was read can be written");
    Sheet again;
    require(!readClipboardBlock(written, again), "what was written can be read");
    require(again.rows == sheet.rows, "it reads back the same");
    return 0;
}
