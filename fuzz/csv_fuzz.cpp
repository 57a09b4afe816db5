// Reads any bytes as a CSV file: what is read is written and read back the same.

#include "fuzz/fuzz_sheet.h"
#include "sheets/delimited/delimited_text.h"

using namespace chengheng;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    Sheet sheet;
    const std::optional<SheetFailure> failure = readCsv(input.text(), sheet);
    checkRead(failure, sheet);
    if (failure) return 0;
    std::string written;
    require(!csvText(sheet, written), "what was read can be written");
    Sheet again;
    require(!readCsv(written, again), "what was written can be read");
    require(again.rows == sheet.rows, "it reads back the same");
    return 0;
}
