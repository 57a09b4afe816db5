// Reads any bytes as the data file of a chart: no field is empty, and what is read is written and
// read back the same.

#include "books/making/chart_templates.h"
#include "fuzz/fuzz_support.h"
#include "sheets/delimited/delimited_text.h"

using namespace chengheng;

namespace {

Sheet sheetOf(const std::vector<ChartAccount>& accounts) {
    Sheet sheet;
    sheet.rows.push_back(
        {Cell::of("code"), Cell::of("name"), Cell::of("class"), Cell::of("direction")});
    for (const ChartAccount& account : accounts)
        sheet.rows.push_back({Cell::of(account.code), Cell::of(account.name),
                              Cell::of(account.className),
                              Cell::of(account.isDebit ? "借" : "贷")});
    return sheet;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    const auto accounts = readChart(input.text());
    if (!accounts) return 0;
    for (const ChartAccount& account : *accounts)
        require(!account.code.empty() && !account.name.empty() && !account.className.empty(),
                "no field is empty");
    std::string written;
    const Sheet sheet = sheetOf(*accounts);
    require(!csvText(sheet, written), "what was read can be written");
    const auto again = readChart(written);
    require(again.has_value(), "what was written can be read");
    require(sheetOf(*again).rows == sheet.rows, "it reads back the same");
    return 0;
}
