#include "vouchertype/restriction_kind.h"

#include "vouchertype/voucher_type_texts.h"

namespace chengheng {

const char* restrictionKindText(std::uint8_t stored) {
    switch (static_cast<RestrictionKind>(stored)) {
        case RestrictionKind::debitRequired:
            return voucher_type_texts::debitRequired;
        case RestrictionKind::creditRequired:
            return voucher_type_texts::creditRequired;
        case RestrictionKind::bothForbidden:
            return voucher_type_texts::bothForbidden;
        case RestrictionKind::none:
            break;
    }
    return nullptr;
}

}  // namespace chengheng
