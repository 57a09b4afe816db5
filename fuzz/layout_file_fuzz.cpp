// Reads any bytes as a layout file: it is used with values in their ranges, or refused with a
// line of it and a reason, and a refused one leaves the layout as it was.

#include "report/layout/layout_file.h"

#include <algorithm>
#include <vector>

#include "base/values/utf8.h"
#include "fuzz/fuzz_support.h"
#include "report/layout/page_facts.h"

namespace {

using namespace chengheng;

void checkLine(const LayoutLine& line) {
    require(line.height >= 0 && line.height <= 100, "heights lie in their range");
    require(line.rule >= 0 && line.rule <= 5, "rules lie in their range");
    for (const std::string& text : {line.left, line.middle, line.right}) {
        require(isUtf8(text), "texts are UTF-8");
        require(factsFault(text).empty(), "texts name known facts only");
        const std::string filled = withFacts(text, {"", {}, 1, 2});
        require(filled.find('{') == std::string::npos, "no fact stays in its braces");
    }
}

void checkUsable(const ReportLayout& layout) {
    const double width =
        std::min(layout.paperWidth, layout.paperHeight) - layout.marginLeft - layout.marginRight;
    require(width >= 30, "there is room for a table");
    require(layout.rowHeight >= 3, "rows have a height");
    require(layout.leastScale > 0 && layout.leastScale <= 1, "a table shrinks, never grows");
    require(layout.mostStretch >= 1, "a table widens, never shrinks");
    for (const LayoutFont& font : layout.fonts)
        require(font.points >= 5 && font.points <= 72, "fonts can be read");
    for (const LayoutLine& line : {layout.header, layout.heading, layout.footer}) checkLine(line);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    const std::string_view text = input.text();
    ReportLayout layout;
    layout.titleText = "as it was";
    const ReportLayout before = layout;
    const auto fault = parseLayout(text, layout);
    if (!fault) {
        checkUsable(layout);
        return 0;
    }
    require(layout == before, "a refused file changes nothing");
    require(!fault->reason.empty(), "a refusal has a reason");
    const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
    require(fault->line >= 1 && fault->line <= lines, "a refusal names a line of the file");
    return 0;
}
