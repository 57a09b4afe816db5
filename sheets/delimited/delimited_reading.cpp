#include <utility>

#include "base/values/utf8.h"
#include "sheets/delimited/delimited_reader.h"
#include "sheets/delimited/delimited_text.h"
#include "sheets/sheet_budget.h"
#include "sheets/sheet_texts.h"
#include "sheets/text_encoding.h"

namespace chengheng {
namespace {

std::optional<SheetFailure> readCells(DelimitedReader& reader, Sheet& sheet) {
    SheetBudget budget;
    std::string text;
    while (reader.next(text)) {
        const std::size_t bytes = text.size();
        if (std::optional<SheetFailure> failure = budget.put(
                sheet, reader.row() - 1, reader.column() - 1, Cell::of(std::move(text)), bytes))
            return failure;
    }
    return reader.failure();
}

/// Leaves no half of a sheet behind.
std::optional<SheetFailure> finished(std::optional<SheetFailure> failure, Sheet& sheet) {
    if (failure) sheet = Sheet();
    return failure;
}

/// Where the text stops, as the cell that is being read there.
SheetFailure unknownEncodingAfter(const DelimitedReader& reader, std::string_view text) {
    const bool isLineBegun = !text.empty() && text.back() != '\n' && text.back() != '\r';
    SheetFailure failure{.reason = sheet_texts::unknownEncoding};
    failure.row = reader.row() + (isLineBegun ? 0 : 1);
    failure.column = isLineBegun ? reader.column() : 1;
    return failure;
}

}  // namespace

std::optional<SheetFailure> readCsv(std::string_view bytes, Sheet& sheet) {
    sheet = Sheet();
    std::string text;
    const bool isWhole = decodeText(bytes, text);
    DelimitedReader reader(text, separatorOf(text), LoneQuotes::refuse);
    std::optional<SheetFailure> failure = readCells(reader, sheet);
    if (!isWhole && !failure) failure = unknownEncodingAfter(reader, text);
    // A quote left open by a text that breaks off is not what is the matter with it.
    if (!isWhole && failure && failure->reason == sheet_texts::quoteNotClosed)
        failure->reason = sheet_texts::unknownEncoding;
    return finished(std::move(failure), sheet);
}

std::optional<SheetFailure> readClipboardBlock(std::string_view text, Sheet& sheet) {
    sheet = Sheet();
    if (!isUtf8(text)) return SheetFailure{.reason = sheet_texts::unknownEncoding};
    DelimitedReader reader(text, '\t', LoneQuotes::keep);
    return finished(readCells(reader, sheet), sheet);
}

}  // namespace chengheng
