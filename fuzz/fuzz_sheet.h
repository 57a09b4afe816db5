#pragma once

#include "base/values/utf8.h"
#include "fuzz/fuzz_support.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"
#include "sheets/sheet_limits.h"

namespace chengheng {

/// What holds for every sheet that was read, and for every failure to read one.
inline void checkRead(const std::optional<SheetFailure>& failure, const Sheet& sheet) {
    if (failure) {
        require(sheet.rows.empty(), "a failure leaves no half of a sheet");
        require(!failure->reason.empty() && isUtf8(failure->text()), "a failure has words");
        require(failure->column == 0 || failure->row > 0, "a place has a row");
    }
    require(sheet.rows.size() <= sheet_limits::rows, "rows lie within their limit");
    for (const SheetRow& row : sheet.rows) {
        require(row.size() <= sheet_limits::cells, "cells lie within their limit");
        for (const Cell& cell : row) {
            require(isUtf8(cell.text), "texts are UTF-8");
            require(cell.text.find('\0') == std::string::npos, "texts hold no NUL");
            require(cell.isAbsent() || !cellText(cell).empty(), "only absent cells are empty");
        }
    }
}

}  // namespace chengheng
