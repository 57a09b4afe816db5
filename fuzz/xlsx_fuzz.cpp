// Reads any bytes as an XLSX file. Harm to the packing is mostly noticed by its checksums; what
// the parts hold is the matter of xlsx_parts_fuzz.

#include "fuzz/fuzz_sheet.h"
#include "sheets/xlsx/xlsx_reading.h"

using namespace chengheng;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    Sheet sheet;
    checkRead(readXlsx(input.text(), sheet), sheet);
    return 0;
}
