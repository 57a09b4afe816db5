#include "vouchertype/voucher_type_form.h"

#include <tuple>

namespace chengheng {
namespace {

/// What goes together: a kind of restriction and its accounts.
auto restrictionOf(const _SignInfo& type) {
    return std::tie(type.byLimit, type.sCode1, type.sCode2);
}

}  // namespace

std::optional<std::vector<Leaf>> VoucherTypeForm::readLeaves() {
    const auto types = m_service.readAll();
    if (!types) return std::nullopt;
    std::vector<Leaf> leaves;
    leaves.reserve(types->size());
    for (const _SignInfo& type : *types) leaves.push_back({type.lId, voucherTypeLeafText(type)});
    return leaves;
}

Outcome VoucherTypeForm::load(int id, bool& isUsed) {
    _SignInfo type;
    const Outcome outcome = m_service.read(id, type, isUsed);
    if (outcome == Outcome::done) keep(type);
    return outcome;
}

bool VoucherTypeForm::isComplete() const {
    const _SignInfo wanted = tidied(input);
    return !wanted.sSign.empty() && !wanted.sSignName.empty();
}

Outcome VoucherTypeForm::write(SaveMode mode, Leaf& saved) {
    _SignInfo wanted = tidied(input);
    // A number that nobody touched is not renumbered by the blanks around it.
    if (input.sSign == m_loaded.sSign) wanted.sSign = m_loaded.sSign;
    const Outcome outcome =
        mode == SaveMode::addition ? m_service.add(wanted) : m_service.modify(m_loaded, wanted);
    if (outcome != Outcome::done) return outcome;
    keep(wanted);
    saved = {wanted.lId, voucherTypeLeafText(wanted)};
    return outcome;
}

void VoucherTypeForm::holdTyped() {
    m_typed = input;
    m_typedOver = m_loaded;
}

void VoucherTypeForm::takeTypedBack() {
    if (isAdding()) m_typedOver = {};
    if (m_typed.sSign != m_typedOver.sSign) input.sSign = m_typed.sSign;
    if (m_typed.sSignName != m_typedOver.sSignName) input.sSignName = m_typed.sSignName;
    if (restrictionOf(m_typed) == restrictionOf(m_typedOver)) return;
    input.byLimit = m_typed.byLimit;
    input.sCode1 = m_typed.sCode1;
    input.sCode2 = m_typed.sCode2;
}

Outcome VoucherTypeForm::erase(const Leaf* leaf) {
    return m_service.remove(leaf == nullptr ? 0 : leaf->id);
}

void VoucherTypeForm::keep(const _SignInfo& type) {
    m_loaded = type;
    input = type;
}

}  // namespace chengheng
