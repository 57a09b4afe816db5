#include "settle/settle_form.h"

namespace chengheng {

std::optional<std::vector<Leaf>> SettleForm::readLeaves() {
    const auto methods = m_service.readAll();
    if (!methods) return std::nullopt;
    std::vector<Leaf> leaves;
    leaves.reserve(methods->size());
    for (const _SettleInfo& method : *methods)
        leaves.push_back({method.lId, settleLeafText(method)});
    return leaves;
}

Outcome SettleForm::load(int id, bool& isUsed) {
    _SettleInfo method;
    const Outcome outcome = m_service.read(id, method, isUsed);
    if (outcome == Outcome::done) keep(method);
    return outcome;
}

bool SettleForm::isComplete() const {
    const _SettleInfo wanted = settleRecord(input, m_loaded);
    return !wanted.sStlId.empty() && !wanted.sSettle.empty();
}

Outcome SettleForm::write(SaveMode mode, Leaf& saved) {
    _SettleInfo wanted = settleRecord(input, m_loaded);
    const Outcome outcome = mode == SaveMode::addition
                                ? m_service.add(wanted, leaves().all())
                                : m_service.modify(m_loaded, wanted, leaves().all());
    if (outcome != Outcome::done) return outcome;
    keep(wanted);
    saved = {wanted.lId, settleLeafText(wanted)};
    return outcome;
}

void SettleForm::holdTyped() {
    m_typed = input;
    m_typedOver = settleInput(m_loaded);
}

void SettleForm::takeTypedBack() {
    if (isAdding()) m_typedOver = {};
    if (m_typed.number != m_typedOver.number) input.number = m_typed.number;
    if (m_typed.name != m_typedOver.name) input.name = m_typed.name;
    if (m_typed.usesChequeRegister != m_typedOver.usesChequeRegister)
        input.usesChequeRegister = m_typed.usesChequeRegister;
}

void SettleForm::keep(const _SettleInfo& method) {
    m_loaded = method;
    input = settleInput(method);
}

}  // namespace chengheng
