// Reads any bytes as the data file of a chart: what is read, written line by line, is the file
// again but for the kind of its line ends.

#include <algorithm>

#include "books/making/chart_templates.h"
#include "fuzz/fuzz_support.h"

using namespace chengheng;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    const auto accounts = readChart(input.text());
    if (!accounts) return 0;
    std::string written = "code,name,class,direction\n";
    for (const ChartAccount& account : *accounts) {
        for (const std::string_view text : {account.code, account.name, account.className}) {
            require(!text.empty(), "no field is empty");
            (written += text) += ',';
        }
        written += account.isDebit ? "借\n" : "贷\n";
    }
    std::string file(input.text());
    if (!file.ends_with('\n')) file += '\n';
    for (std::size_t at = file.find("\r\n"); at != file.npos; at = file.find("\r\n", at))
        file.erase(at, 1);
    require(written == file, "nothing was lost or added");
    return 0;
}
