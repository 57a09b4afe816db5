#include "auxiliary/entries/auxiliary_entry.h"

#include <fmt/format.h>

#include <utility>

namespace chengheng {

EntryFigures figuresOf(const EntryContent& content, const AuxiliaryAccount& account) {
    const EntryFigures figures =
        EntryFigures() + EntryFigures{content.money, content.foreign, content.quantity};
    return content.isDebit == account.isDebit ? figures : -figures;
}

const std::string& nameOf(const EntryNames& names, Dimension dimension) {
    switch (dimension) {
        case Dimension::department:
            return names.department;
        case Dimension::person:
            return names.person;
        case Dimension::unit:
            return names.unit;
        case Dimension::item:
            break;
    }
    return names.item;
}

std::string& nameOf(EntryNames& names, Dimension dimension) {
    return const_cast<std::string&>(nameOf(std::as_const(names), dimension));
}

std::string voucherNumberText(const EntryContent& content) {
    if (!content.sign.empty()) return fmt::format("{}-{:04}", content.sign, content.number);
    return content.number == 0 ? std::string() : fmt::format("{:04}", content.number);
}

}  // namespace chengheng
