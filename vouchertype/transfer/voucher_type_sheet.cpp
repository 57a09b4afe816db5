#include "vouchertype/transfer/voucher_type_sheet.h"

#include "vouchertype/transfer/voucher_type_transfer_texts.h"
#include "vouchertype/voucher_type_rules.h"

namespace chengheng {

std::string sheetRestriction(std::uint8_t kind) {
    if (kind == stored(RestrictionKind::none)) return voucher_type_transfer_texts::unrestricted;
    const char* text = restrictionKindText(kind);
    return text != nullptr ? text : std::to_string(kind);
}

Sheet exportedVoucherTypes(std::span<const _SignInfo> types) {
    Sheet sheet{.name = voucher_type_texts::title, .columns = {}, .hasHeader = true, .rows = {}};
    sheet.rows.reserve(types.size() + 1);
    SheetRow& headings = sheet.rows.emplace_back();
    for (const WantedColumn& column : voucher_type_columns::wanted)
        headings.push_back(Cell::of(column.heading));
    for (const _SignInfo& type : types) {
        SheetRow& row = sheet.rows.emplace_back();
        for (const std::string& text : {type.sSign, type.sSignName, sheetRestriction(type.byLimit)})
            row.push_back(Cell::of(text));
        for (const std::string& account : {type.sCode1, type.sCode2})
            row.push_back(isRestricted(type) ? Cell::of(account) : Cell());
    }
    return sheet;
}

}  // namespace chengheng
